// The host's orders, checked against a platform that records its calls:
// start of play, rebuild of the display windows, end of play and teardown.
// The expected orders are written out as the program's documentation gives
// them (README's "Ending play", the start-up and end-of-play comments of
// app/host.cpp), not taken from the code.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/host.h"
#include "app/host_platform.h"
#include "play/platform.h"
#include "play/play_field.h"

namespace {

std::vector<std::string> g_calls;
std::vector<Rect> g_monitors;
Rect g_launch;

WindowHandle Window(size_t index) { return reinterpret_cast<WindowHandle>((index + 1) * 0x10); }

void Call(const std::string& name) { g_calls.push_back(name); }

}  // namespace

// The host's platform, recording.
bool StartProcess() { return true; }
bool StartWindowSystem() { return true; }
void StopWindowSystem() { Call("stop window system"); }
void RunEventLoop() {}
void PostQuit() { Call("post quit"); }
std::vector<Rect> ListMonitors() { return g_monitors; }
Rect VirtualScreen(const std::vector<Rect>& monitors) {
    Rect all = monitors.empty() ? Rect{} : monitors[0];
    for (const Rect& monitor : monitors) all = Union(all, monitor);
    return all;
}
bool ChooseLaunchMonitor(Rect& out) {
    out = g_launch;
    return true;
}
WindowHandle MakePlatformWindow(const Rect&, size_t index) {
    Call("make window " + std::to_string(index));
    return Window(index);
}
void HidePlatformWindow(WindowHandle window) { Call("hide " + std::to_string(reinterpret_cast<uintptr_t>(window) / 0x10 - 1)); }
void DestroyPlatformWindow(WindowHandle window) {
    Call("destroy " + std::to_string(reinterpret_cast<uintptr_t>(window) / 0x10 - 1));
}
uint32_t WindowDpi(WindowHandle) { return 144; }
void InvalidateWindow(WindowHandle window) {
    Call("invalidate " + std::to_string(reinterpret_cast<uintptr_t>(window) / 0x10 - 1));
}
void RaiseWindows() { Call("raise windows"); }
void BringToForeground(WindowHandle window) { Call(window == g_homeWindow ? "foreground home" : "foreground other"); }
void ReleasePointer() { Call("release pointer"); }
void StartTimers() { Call("start timers"); }
void StopTimers() { Call("stop timers"); }
void InstallKeyboardGuard() { Call("install guard"); }
void RemoveKeyboardGuard() { Call("remove guard"); }

// The play field's operating-system services, quiet.
uint32_t TickCount() { return 1000; }
bool LeftButtonDown() { return false; }
void CaptureMouse(WindowHandle) {}
WindowHandle MouseCaptureWindow() { return nullptr; }
void ReleaseMouseCapture() {}
void PlayWavImage(const uint8_t*) {}
void InvalidateClientRect(WindowHandle, const Rect&) {}

namespace {

class HostOrder : public ::testing::Test {
protected:
    void SetUp() override {
        // Two small monitors, the home one on the right.
        g_monitors = {{0, 0, 64, 48}, {64, 0, 128, 48}};
        g_launch = g_monitors[1];
        g_playEnded = false;
        RebuildDisplayWindows();
        g_calls.clear();
    }
    void TearDown() override {
        DestroyDisplayWindows();
        g_homeWindow = nullptr;
    }
};

TEST_F(HostOrder, RebuildMakesEveryWindowThenLaysOutStartsTheTimersAndRepaints) {
    RebuildDisplayWindows();
    // The old windows go before the new are made; the timers start on the
    // new home window after the layout; every window is painted afresh.
    const std::vector<std::string> expected = {
        "destroy 0", "destroy 1", "make window 0", "make window 1", "start timers", "invalidate 0", "invalidate 1",
    };
    EXPECT_EQ(g_calls, expected);
    EXPECT_EQ(g_homeWindow, Window(1)) << "the home window is on the launch monitor";
    EXPECT_EQ(g_shortcutTarget, Window(1));
    EXPECT_FLOAT_EQ(g_dpiScale, 1.5f) << "the home window's 144 DPI";
    EXPECT_EQ(g_playField.homeRect, (Rect{64, 0, 128, 48})) << "laid out on the home monitor";
}

TEST_F(HostOrder, StartOfPlayTopmostForegroundTimersGuardThenVolume) {
    // After the rebuild: every window topmost (with the volume ceiling), the
    // home window in front, the timers, the keyboard guard, the ceiling.
    ASSERT_TRUE(StartPlay());
    const std::vector<std::string> expected = {
        "raise windows", "foreground home", "start timers", "install guard",
    };
    EXPECT_EQ(g_calls, expected);
}

TEST_F(HostOrder, NoHomeWindowStartsNothing) {
    g_launch = {500, 500, 600, 600};  // names no monitor's corner
    RebuildDisplayWindows();
    g_calls.clear();
    EXPECT_FALSE(StartPlay());
    EXPECT_TRUE(g_calls.empty());
}

TEST_F(HostOrder, EndOfPlayGuardBeforeTheWindowsThenQuitOnce) {
    EndPlay();
    EndPlay();  // the finish button and Alt+F4 in one burst
    // Timers, then the guard (so that the shortcuts work again as soon as
    // the windows disappear), the pointer, every window hidden, then
    // destroyed, and the quit.
    const std::vector<std::string> expected = {
        "stop timers", "remove guard", "release pointer", "hide 0", "hide 1", "destroy 0", "destroy 1", "post quit",
    };
    EXPECT_EQ(g_calls, expected);
    EXPECT_TRUE(g_playEnded && g_displayWindows.empty() && !g_homeWindow && !g_shortcutTarget);
}

TEST_F(HostOrder, TeardownGuardWindowsThenTheWindowSystemLast) {
    ::TearDown();
    const std::vector<std::string> expected = {"remove guard", "destroy 0", "destroy 1", "stop window system"};
    EXPECT_EQ(g_calls, expected);
}

}  // namespace
