// GDI+ for the Windows-side tests: started and shut down around each test
// (the fonts released in between, as the program's teardown does), and
// off-screen ARGB bitmaps read back pixel by pixel or saved as PNG.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "assets/asset_paths.h"
#include "assets/fonts.h"

class GdiplusTest : public ::testing::Test {
protected:
    void SetUp() override {
        Gdiplus::GdiplusStartupInput input;
        ASSERT_EQ(Gdiplus::GdiplusStartup(&token, &input, nullptr), Gdiplus::Ok);
    }
    void TearDown() override {
        ReleaseFonts();
        Gdiplus::GdiplusShutdown(token);
    }
    ULONG_PTR token = 0;
};

// A transparent 32-bit ARGB picture with its graphics, anti-aliased as a
// frame's graphics are.
struct Canvas {
    Canvas(int width, int height)
        : bitmap(width, height, PixelFormat32bppARGB), graphics(&bitmap) {
        graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
        graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAliasGridFit);
        graphics.Clear(Gdiplus::Color(0));
    }

    // Every pixel as 0xAARRGGBB, row by row.
    std::vector<uint32_t> Pixels() {
        const UINT width = bitmap.GetWidth(), height = bitmap.GetHeight();
        std::vector<uint32_t> pixels(width * height);
        Gdiplus::Rect all(0, 0, width, height);
        Gdiplus::BitmapData data{width, height, static_cast<INT>(width * 4), PixelFormat32bppARGB,
                                 pixels.data(), 0};
        bitmap.LockBits(&all, Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeUserInputBuf,
                        PixelFormat32bppARGB, &data);
        bitmap.UnlockBits(&data);
        return pixels;
    }

    // Saves the picture beside the test program, in renders\, to be looked at.
    bool SaveAs(const wchar_t* name) {
        static const CLSID kPngEncoder = {
            0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
        const std::wstring folder = JoinPath(ExecutableFolder(), L"renders");
        std::filesystem::create_directories(folder);
        return bitmap.Save(JoinPath(folder, name).c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
    }

    Gdiplus::Bitmap bitmap;
    Gdiplus::Graphics graphics;
};
