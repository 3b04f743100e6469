// GDI+ for the Windows-side tests: started and shut down around each test,
// and ARGB bitmaps read back pixel by pixel or saved as PNG.
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

// Saves a bitmap as PNG; false if GDI+ could not.
inline bool SavePng(Gdiplus::Bitmap& bitmap, const std::wstring& path) {
    static const CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
    return bitmap.Save(path.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
}
