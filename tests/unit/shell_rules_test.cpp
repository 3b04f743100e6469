// The shell's pure rules: DPI scale, pointer positions and play-field points.
#include <gtest/gtest.h>

#include "app/display_windows.h"
#include "app/pointer_points.h"
#include "app/shell.h"
#include "tests/printers.h"
#include "tests/unit/fake_platform.h"

namespace {

TEST(DpiScale, FromWindowDpi) {
    const struct { uint32_t dpi; float scale; } cases[] = {
        {96, 1.0f}, {144, 1.5f}, {120, 1.25f}, {192, 2.0f}, {0, 1.0f}, {72, 1.0f},
    };
    for (const auto& c : cases) EXPECT_FLOAT_EQ(DpiScaleFromDpi(c.dpi), c.scale) << c.dpi;
}

TEST(PointerPoints, TouchSignatureSignedMouseHalvesAndTouchTruncatedTowardZero) {
    EXPECT_TRUE(IsTouchSynthesizedMouse(0xFF515700u));
    EXPECT_TRUE(IsTouchSynthesizedMouse(0xFF515780u));  // the low byte varies
    EXPECT_TRUE(IsTouchSynthesizedMouse(0x12345678FF5157FFull));  // only the low 32 bits count
    EXPECT_FALSE(IsTouchSynthesizedMouse(0));
    EXPECT_FALSE(IsTouchSynthesizedMouse(0xFF515600u));
    EXPECT_FALSE(IsTouchSynthesizedMouse(0xFE515700u));

    EXPECT_EQ(MouseClientPoint(0x00200010u), (Point{16, 32}));
    EXPECT_EQ(MouseClientPoint(0xFFFEFFFFu), (Point{-1, -2}));
    EXPECT_EQ(MouseClientPoint(0x7FFF8000u), (Point{-32768, 32767}));

    EXPECT_EQ(TouchScreenPixel(-1999, 1999), (Point{-19, 19}));
    EXPECT_EQ(TouchScreenPixel(-100, 250), (Point{-1, 2}));
    EXPECT_EQ(TouchScreenPixel(-99, 99), (Point{0, 0}));
    EXPECT_EQ(TouchScreenPixel(384000, 215999), (Point{3840, 2159}));
}

TEST(PlayFieldPoints, ClientPointsShiftByTheWindowsPlayRect) {
    DisplayWindow left, primary;
    left.playRect = {0, 0, 1920, 1080};
    primary.playRect = {1920, 0, 3840, 1080};
    left.hwnd = FakeWindow(1);
    primary.hwnd = FakeWindow(2);
    g_displayWindows = {left, primary};

    const DisplayWindow* found = FindDisplayWindow(FakeWindow(2));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(ClientToPlayField(*found, {5, 7}), (Point{1925, 7}));
    EXPECT_EQ(ClientToPlayField(g_displayWindows[0], {-3, 4}), (Point{-3, 4}));
    EXPECT_EQ(FindDisplayWindow(FakeWindow(3)), nullptr);
    EXPECT_EQ(FindDisplayWindow(nullptr), nullptr) << "a window without a handle is never found";
    g_displayWindows.clear();
}

}  // namespace
