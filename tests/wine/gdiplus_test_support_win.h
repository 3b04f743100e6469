// GDI+ for the Windows-side tests: started and shut down around each test,
// and off-screen ARGB bitmaps read back pixel by pixel or saved as PNG.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "app/geometry.h"
#include "assets/asset_paths.h"
#include "assets/fonts.h"

class GdiplusTest : public ::testing::Test {
protected:
    void SetUp() override {
        Gdiplus::GdiplusStartupInput input;
        ASSERT_EQ(Gdiplus::GdiplusStartup(&token, &input, nullptr), Gdiplus::Ok);
    }
    void TearDown() override { Gdiplus::GdiplusShutdown(token); }
    ULONG_PTR token = 0;
};

// For the programs that draw text: the fonts are released before GDI+ shuts
// down, as the program's teardown does.
class FontTest : public GdiplusTest {
protected:
    void TearDown() override {
        ReleaseFonts();
        GdiplusTest::TearDown();
    }
};

// Every pixel of a bitmap as 0xAARRGGBB, row by row.
inline std::vector<uint32_t> PixelsOf(Gdiplus::Bitmap& bitmap) {
    const UINT width = bitmap.GetWidth(), height = bitmap.GetHeight();
    std::vector<uint32_t> pixels(static_cast<size_t>(width) * height);
    Gdiplus::Rect all(0, 0, width, height);
    Gdiplus::BitmapData data{width, height, static_cast<INT>(width * 4), PixelFormat32bppARGB, pixels.data(), 0};
    bitmap.LockBits(&all, Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeUserInputBuf,
                    PixelFormat32bppARGB, &data);
    bitmap.UnlockBits(&data);
    return pixels;
}

// The bounding box of every pixel that is not fully transparent; right -1
// when there is none.
inline Rect InkOf(Gdiplus::Bitmap& bitmap) {
    const int width = static_cast<int>(bitmap.GetWidth()), height = static_cast<int>(bitmap.GetHeight());
    const std::vector<uint32_t> pixels = PixelsOf(bitmap);
    Rect ink{width, height, -1, -1};
    for (int i = 0; i < width * height; ++i) {
        if (pixels[i] >> 24 == 0) continue;
        const int x = i % width, y = i / width;
        ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1), std::max(ink.bottom, y + 1)};
    }
    return ink;
}

// Saves a bitmap as PNG; false if GDI+ could not.
inline bool SavePng(Gdiplus::Bitmap& bitmap, const std::wstring& path) {
    static const CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
    return bitmap.Save(path.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
}

// A transparent 32-bit ARGB picture with its graphics, anti-aliased as a
// frame's graphics are.
struct Canvas {
    Canvas(int width, int height) : bitmap(width, height, PixelFormat32bppARGB), graphics(&bitmap) {
        graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
        graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAliasGridFit);
        graphics.Clear(Gdiplus::Color(0));
    }

    std::vector<uint32_t> Pixels() { return PixelsOf(bitmap); }

    // Saves the picture beside the test program, in renders\, to be looked at.
    bool SaveAs(const wchar_t* name) {
        const std::wstring folder = JoinPath(ExecutableFolder(), L"renders");
        std::filesystem::create_directories(folder);
        return SavePng(bitmap, JoinPath(folder, name));
    }

    Gdiplus::Bitmap bitmap;
    Gdiplus::Graphics graphics;
};
