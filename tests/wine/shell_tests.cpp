// The application shell under Wine: real windows on two monitors the harness
// fakes (1920x1080 primary, 1280x1024 to its right), real messages and
// input, and recording stand-ins for the play field, the scene and the
// volume clamp. Which monitor is home, the timers and the guarded keys are
// proven end to end on the real program.
#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <vector>

#include "app/host.h"
#include "app/host_platform.h"
#include "app/keyboard_guard_win.h"
#include "app/shell_win.h"
#include "app/window_proc_win.h"
#include "play/display_records.h"
#include "play/play_field.h"
#include "play/window_handle_win.h"
#include "render/window_buffers_win.h"
#include "tests/wine/shell_fakes.h"

namespace {

constexpr ULONG_PTR kFromTouch = 0xFF515780;  // the signature of touch-synthesized mouse input

bool g_quitSeen = false;

void DispatchPending() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            g_quitSeen = true;
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// Runs the message loop until done() holds; false when the deadline passed.
bool PumpUntil(const std::function<bool()>& done, DWORD timeoutMs = 5000) {
    const DWORD start = GetTickCount();
    DispatchPending();
    while (!done()) {
        if (GetTickCount() - start > timeoutMs) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        DispatchPending();
    }
    return true;
}

// Whether WM_QUIT has been posted since the last call.
bool TakeQuit() {
    DispatchPending();
    const bool quit = g_quitSeen;
    g_quitSeen = false;
    return quit;
}

const DisplayWindow* RecordAt(int32_t screenLeft, int32_t screenTop) {
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.screenRect.left == screenLeft && window.screenRect.top == screenTop) return &window;
    }
    return nullptr;
}

// A real click through the system's input queue, at a screen point.
void ClickAt(int x, int y, ULONG_PTR extraInfo = 0) {
    SetCursorPos(x, y);
    INPUT inputs[2] = {};
    inputs[0].type = INPUT_MOUSE;
    inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    inputs[0].mi.dwExtraInfo = extraInfo;
    inputs[1] = inputs[0];
    inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(2, inputs, sizeof(INPUT));
}

TOUCHINPUT Contact(LONG xHundredths, LONG yHundredths, DWORD flags) {
    TOUCHINPUT contact{};
    contact.x = xHundredths;
    contact.y = yHundredths;
    contact.dwFlags = flags;
    return contact;
}

class ShellTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        g_instance = GetModuleHandleW(nullptr);
        RegisterDisplayWindowClass(g_instance);
    }

    void SetUp() override {
        g_playEnded = false;
        g_playField = PlayField{};
        g_calls = ShellCalls{};
        RebuildDisplayWindows();
        TakeQuit();
    }

    void TearDown() override {
        RemoveKeyboardGuard();
        g_homeWindow = nullptr;
        DestroyDisplayWindows();
        g_shortcutTarget = nullptr;
        TakeQuit();
    }
};

using TwoMonitors = ShellTest;

TEST_F(TwoMonitors, ClicksReachThePlayFieldAtTheirPoint) {
    ClickAt(100, 200);
    ClickAt(1970, 1000);
    ClickAt(300, 300, kFromTouch);  // the touch itself came through WM_TOUCH
    ASSERT_TRUE(PumpUntil([] { return g_calls.releases >= 3; }));
    const std::vector<Press> expected = {{{100, 200}, false}, {{1970, 1000}, false}};
    EXPECT_EQ(g_calls.presses, expected);
    EXPECT_EQ(g_calls.releases, 3) << "a synthesized release still ends a press";
}

TEST_F(TwoMonitors, TouchContactsPressAtTheirPlayFieldPoint) {
    const HWND right = NativeWindow(RecordAt(1920, 0)->window);
    const TOUCHINPUT contacts[] = {
        Contact(2000 * 100 + 99, 500 * 100, TOUCHEVENTF_DOWN),  // 2000.99 px
        Contact(2100 * 100, 600 * 100, TOUCHEVENTF_MOVE),         // moves are not used
        Contact(2200 * 100, 700 * 100, TOUCHEVENTF_DOWN),         // a second finger
        Contact(2000 * 100, 500 * 100, TOUCHEVENTF_UP),           // any lift ends the press
    };
    DeliverTouchContacts(right, contacts, 4);
    const std::vector<Press> expected = {{{2000, 500}, true}, {{2200, 700}, true}};
    EXPECT_EQ(g_calls.presses, expected);
    EXPECT_EQ(g_calls.releases, 1);

    g_calls = ShellCalls{};
    DeliverTouchContacts(reinterpret_cast<HWND>(0x1234), contacts, 4);
    EXPECT_TRUE(g_calls.presses.empty()) << "a window that is no display window is ignored";
}

TEST_F(TwoMonitors, LosingTheCaptureCancelsOnlyAPress) {
    const auto other = reinterpret_cast<LPARAM>(RecordAt(1920, 0)->window);
    const auto home = reinterpret_cast<LPARAM>(g_homeWindow);
    g_calls = ShellCalls{};

    g_playField.pressStartTick = 0;
    SendMessageW(NativeWindow(g_homeWindow), WM_CAPTURECHANGED, 0, other);
    EXPECT_EQ(g_calls.cancels, 0) << "no press in progress";

    g_playField.pressStartTick = 1234;
    SendMessageW(NativeWindow(g_homeWindow), WM_CAPTURECHANGED, 0, home);
    EXPECT_EQ(g_calls.cancels, 0) << "the home window took the capture itself";
    SendMessageW(NativeWindow(g_homeWindow), WM_CAPTURECHANGED, 0, other);
    SendMessageW(NativeWindow(g_homeWindow), WM_CAPTURECHANGED, 0, 0);
    EXPECT_EQ(g_calls.cancels, 2);
}

TEST_F(TwoMonitors, DpiChangeResizesOneWindow) {
    DisplayWindow* right = const_cast<DisplayWindow*>(RecordAt(1920, 0));
    const uint32_t theme = right->sceneryTheme;
    const HDC oldFrame = FrameDC(*right);
    g_calls = ShellCalls{};

    RECT suggested{1920, 0, 1920 + 1000, 800};
    SendMessageW(NativeWindow(right->window), WM_DPICHANGED, MAKEWPARAM(120, 120), reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ(right->playRect, (Rect{1920, 0, 2920, 800}));
    EXPECT_EQ(right->width, 1000);
    EXPECT_EQ(right->sceneryTheme, theme);
    EXPECT_TRUE(FrameDC(*right) && FrameDC(*right) != oldFrame) << "buffers made anew";
    EXPECT_EQ(g_calls.sceneries, 1);
    EXPECT_EQ(g_calls.layouts, 0) << "only the home window's change re-lays out";

    RECT home{0, 0, 1920, 1080};
    g_dpiScale = 3.0f;
    SendMessageW(NativeWindow(g_homeWindow), WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&home));
    EXPECT_EQ(g_calls.layouts, 1);
    EXPECT_FLOAT_EQ(g_dpiScale, 1.0f);
}

TEST_F(TwoMonitors, PaintComposesTheInvalidRectangle) {
    ASSERT_TRUE(PumpUntil([] { return GetUpdateRect(NativeWindow(g_homeWindow), nullptr, FALSE) == FALSE; }));
    g_calls.composed.clear();
    const RECT dirty{10, 20, 110, 70};
    InvalidateRect(NativeWindow(g_homeWindow), &dirty, FALSE);
    UpdateWindow(NativeWindow(g_homeWindow));
    ASSERT_EQ(g_calls.composed.size(), 1u);
    EXPECT_EQ(g_calls.composed[0], (Rect{10, 20, 110, 70}));
}

TEST_F(TwoMonitors, OnlyTheHomeWindowsDestructionEndsTheLoop) {
    const HWND home = NativeWindow(g_homeWindow);
    DestroyWindow(NativeWindow(RecordAt(1920, 0)->window));
    EXPECT_FALSE(TakeQuit()) << "another window's end is not the end of play";
    ASSERT_TRUE(PumpUntil([] { return g_calls.frames >= 1; })) << "the frame timer still runs";

    DestroyWindow(home);
    EXPECT_TRUE(TakeQuit());
    EXPECT_FALSE(g_playEnded) << "the loop ends without EndPlay; the teardown releases the rest";
    g_calls.frames = 0;
    EXPECT_FALSE(PumpUntil([] { return g_calls.frames > 0; }, 300)) << "no frame after the home window";
}

}  // namespace
