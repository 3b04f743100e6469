// The shell's pure rules: DPI scale, pointer positions and play-field points.
#include <gtest/gtest.h>

#include "app/desktop_dpi.h"
#include "play/display_records.h"
#include "app/instance_lock.h"
#include "app/pointer_points.h"
#include "app/repeating_timer.h"
#include "tests/printers.h"
#include "tests/unit/fake_platform.h"

namespace {

TEST(DpiScale, FromWindowDpi) {
    const struct { uint32_t dpi; float scale; } cases[] = {
        {96, 1.0f}, {144, 1.5f}, {120, 1.25f}, {192, 2.0f}, {0, 1.0f}, {72, 1.0f},
    };
    for (const auto& c : cases) EXPECT_FLOAT_EQ(DpiScaleFromDpi(c.dpi), c.scale) << c.dpi;
}

TEST(DpiScale, FromTheDesktopsXftDpiResource) {
    const struct { const char* resources; uint32_t dpi; } cases[] = {
        {"Xft.dpi:\t144\n", 144},
        {"Xft.antialias:\t1\nXft.dpi:\t192\nXft.hinting:\t1\n", 192},  // among other lines
        {"Xft.dpi: 120", 120},                                               // no line end
        {"Xft.dpi:\t96.6\n", 97},                                           // rounded
        {"Xcursor.size:\t24\n", 0},
        {"Xft.dpi:\t\n", 0},
        {"Xft.dpi:\t-96\n", 0},
        {"Xft.dpi:\t144px\n", 0},
        {"*dpi:\t144\nXft.dpis:\t144\n", 0},  // only the desktops' own name
        {"", 0},
    };
    for (const auto& c : cases) EXPECT_EQ(DpiFromXResources(c.resources), c.dpi) << c.resources;
}

TEST(InstanceLock, RuntimeFolderElseAPrivateTemporaryFolder) {
    EXPECT_EQ(InstanceLockFolder("/run/user/1000", "/var/tmp", 1000), "/run/user/1000");
    EXPECT_EQ(InstanceLockFolder(nullptr, nullptr, 0), "/tmp/puffino-0");
    EXPECT_EQ(InstanceLockFolder("", "/var/tmp", 1000), "/var/tmp/puffino-1000");
    EXPECT_EQ(InstanceLockFolder("relative/run", "tmp", 7), "/tmp/puffino-7");  // relative paths are not used
}

// The 33 ms frame timer as the event loop drives it, against times worked out
// by hand.
TEST(RepeatingTimer, FiresOnTimeOnceWhenLateAndAcrossTheCountersWrap) {
    RepeatingTimer timer;
    EXPECT_FALSE(TimerFires(timer, 0)) << "never set";
    EXPECT_EQ(MillisecondsUntil(timer, 0), UINT32_MAX);

    SetRepeatingTimer(timer, 33, 1000);
    EXPECT_EQ(MillisecondsUntil(timer, 1000), 33u);
    EXPECT_FALSE(TimerFires(timer, 1032));
    EXPECT_TRUE(TimerFires(timer, 1033));
    EXPECT_FALSE(TimerFires(timer, 1033)) << "once per period";
    EXPECT_TRUE(TimerFires(timer, 1070)) << "due at 1066; 4 ms late";
    EXPECT_EQ(MillisecondsUntil(timer, 1070), 29u) << "the cadence kept: next at 1099";
    EXPECT_TRUE(TimerFires(timer, 1300)) << "late by several periods";
    EXPECT_FALSE(TimerFires(timer, 1310)) << "fired once, not once per missed period";
    EXPECT_EQ(MillisecondsUntil(timer, 1300), 33u) << "counted again from the late tick";
    EXPECT_EQ(MillisecondsUntil(timer, 1400), 0u);

    SetRepeatingTimer(timer, 1500, 0xFFFFFF00u);  // 256 ms before the wrap
    EXPECT_FALSE(TimerFires(timer, 0x00000010u));
    EXPECT_EQ(MillisecondsUntil(timer, 0x00000010u), 1500u - 256u - 16u);
    EXPECT_TRUE(TimerFires(timer, 1500u - 256u));
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

    // SDL's contacts come as fractions of the window (1920 x 1080 here).
    EXPECT_EQ(TouchClientPoint(0.5f, 0.25f, 1920, 1080), (Point{960, 270}));
    EXPECT_EQ(TouchClientPoint(0.99999f, 0.99999f, 1920, 1080), (Point{1919, 1079}));
    EXPECT_EQ(TouchClientPoint(-0.0001f, 1.0f, 1920, 1080), (Point{0, 1080}));  // -0.19 px is 0
    EXPECT_EQ(TouchClientPoint(-0.01f, 0.0f, 1920, 1080), (Point{-19, 0}));    // -19.2 px is -19
}

TEST(PlayFieldPoints, ClientPointsShiftByTheWindowsPlayRect) {
    DisplayWindow left, primary;
    left.playRect = {0, 0, 1920, 1080};
    primary.playRect = {1920, 0, 3840, 1080};
    left.window = FakeWindow(1);
    primary.window = FakeWindow(2);
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
