// GDI+ started once for a whole Windows test program and shut down at its
// end, for tests that draw without fonts.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

class GdiplusSession : public ::testing::Environment {
public:
    void SetUp() override {
        Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&token, &input, nullptr);
    }
    void TearDown() override { Gdiplus::GdiplusShutdown(token); }

private:
    ULONG_PTR token = 0;
};
