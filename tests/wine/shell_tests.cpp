// The application shell under Wine: real windows on the monitors the harness
// fakes, real messages and input, and recording stand-ins for the play
// field, the scene and the volume clamp. Each suite runs under the monitor
// layout its name states (the CTest entry passes the layout to the harness).
#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <vector>

#include "app/display_windows.h"
#include "app/keyboard_guard_win.h"
#include "app/shell.h"
#include "app/shell_win.h"
#include "app/window_proc_win.h"
#include "play/play_field.h"
#include "tests/wine/shell_fakes.h"

namespace {

constexpr wchar_t kLaunchVariable[] = L"TONKARI_LAUNCH_MONITOR";
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
        SetEnvironmentVariableW(kLaunchVariable, nullptr);
        g_playEnded = false;
        g_playField = PlayField{};
        g_calls = ShellCalls{};
        RebuildDisplayWindows();
        TakeQuit();
    }

    void TearDown() override {
        RemoveKeyboardGuard();
        g_mainWindow = nullptr;
        DestroyDisplayWindows();
        g_shortcutTarget = nullptr;
        TakeQuit();
        SetEnvironmentVariableW(kLaunchVariable, nullptr);
    }
};

// 1920x1080 primary, 1280x1024 to its right.
using TwoMonitors = ShellTest;

TEST_F(TwoMonitors, LaunchValueChoosesTheHomeMonitor) {
    const struct {
        const wchar_t* value;
        int homeLeft;  // -1: no home window
    } cases[] = {
        {L"1920,0,3200,1024", 1920},
        {L"1920,0,4000,4000 from the launcher", 1920},  // only the corner counts
        {L"0,0,1920,1080", 0},
        {L"1920,0,3200,1024x", 0},  // malformed: the primary
        {L"5000,0,6000,1000", -1},  // names no monitor's corner
    };
    for (const auto& c : cases) {
        SetEnvironmentVariableW(kLaunchVariable, c.value);
        const HWND previousTarget = g_shortcutTarget;
        RebuildDisplayWindows();
        ASSERT_EQ(g_displayWindows.size(), 2u);
        EXPECT_FALSE(TakeQuit()) << "a rebuild must not end play";
        if (c.homeLeft < 0) {
            EXPECT_EQ(g_mainWindow, nullptr);
            EXPECT_EQ(g_shortcutTarget, previousTarget) << "kept until a rebuild finds a home";
            for (const DisplayWindow& window : g_displayWindows) EXPECT_FALSE(window.isMain);
        } else {
            const DisplayWindow* home = RecordAt(c.homeLeft, 0);
            ASSERT_NE(home, nullptr);
            EXPECT_TRUE(home->isMain);
            EXPECT_EQ(g_mainWindow, home->hwnd);
            EXPECT_EQ(g_shortcutTarget, home->hwnd);
        }
    }
}

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
    const HWND right = RecordAt(1920, 0)->hwnd;
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

TEST_F(TwoMonitors, TimerIdsAndTheirTicks) {
    const HWND home = g_mainWindow;
    // Drop the topmost flag; the topmost tick puts it back.
    SetWindowPos(home, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ASSERT_FALSE(GetWindowLongW(home, GWL_EXSTYLE) & WS_EX_TOPMOST);
    g_calls = ShellCalls{};

    EXPECT_EQ(SendMessageW(home, WM_TIMER, 7, 0), 0);
    EXPECT_EQ(g_calls.clamps + g_calls.frames, 0) << "an unknown timer id does nothing";

    SendMessageW(home, WM_TIMER, kTopmostTimer, 0);
    EXPECT_TRUE(GetWindowLongW(home, GWL_EXSTYLE) & WS_EX_TOPMOST);
    EXPECT_EQ(g_calls.clamps, 1) << "the topmost tick re-applies the volume clamp";
    EXPECT_EQ(g_calls.frames, 0);

    SendMessageW(home, WM_TIMER, kFrameTimer, 0);
    EXPECT_EQ(g_calls.frames, 1);
    EXPECT_EQ(g_calls.clamps, 1);
}

TEST_F(TwoMonitors, GuardedKeysEndPlayOnlyForF4) {
    SendMessageW(g_mainWindow, WM_GUARDED_KEY, VK_F1, 0);
    SendMessageW(g_mainWindow, WM_GUARDED_KEY, VK_SNAPSHOT, 0);
    EXPECT_FALSE(g_playEnded);
    EXPECT_EQ(g_displayWindows.size(), 2u);
    EXPECT_FALSE(TakeQuit());

    SendMessageW(g_mainWindow, WM_GUARDED_KEY, VK_F4, 0);
    EXPECT_TRUE(g_playEnded);
    EXPECT_TRUE(g_displayWindows.empty());
    EXPECT_TRUE(TakeQuit());
}

TEST_F(TwoMonitors, LosingTheCaptureCancelsOnlyAPress) {
    const auto other = reinterpret_cast<LPARAM>(RecordAt(1920, 0)->hwnd);
    const auto home = reinterpret_cast<LPARAM>(g_mainWindow);
    g_calls = ShellCalls{};

    g_playField.pressStartTick = 0;
    SendMessageW(g_mainWindow, WM_CAPTURECHANGED, 0, other);
    EXPECT_EQ(g_calls.cancels, 0) << "no press in progress";

    g_playField.pressStartTick = 1234;
    SendMessageW(g_mainWindow, WM_CAPTURECHANGED, 0, home);
    EXPECT_EQ(g_calls.cancels, 0) << "the home window took the capture itself";
    SendMessageW(g_mainWindow, WM_CAPTURECHANGED, 0, other);
    SendMessageW(g_mainWindow, WM_CAPTURECHANGED, 0, 0);
    EXPECT_EQ(g_calls.cancels, 2);
}

TEST_F(TwoMonitors, DpiChangeResizesOneWindow) {
    DisplayWindow* right = const_cast<DisplayWindow*>(RecordAt(1920, 0));
    const uint32_t theme = right->sceneryTheme;
    const HDC oldFrame = right->frameDC;
    g_calls = ShellCalls{};

    RECT suggested{1920, 0, 1920 + 1000, 800};
    SendMessageW(right->hwnd, WM_DPICHANGED, MAKEWPARAM(120, 120), reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ(right->playRect, (Rect{1920, 0, 2920, 800}));
    EXPECT_EQ(right->width, 1000);
    EXPECT_EQ(right->sceneryTheme, theme);
    EXPECT_TRUE(right->frameDC && right->frameDC != oldFrame) << "buffers made anew";
    EXPECT_EQ(g_calls.sceneries, 1);
    EXPECT_EQ(g_calls.layouts, 0) << "only the home window's change re-lays out";

    RECT home{0, 0, 1920, 1080};
    g_dpiScale = 3.0f;
    SendMessageW(g_mainWindow, WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&home));
    EXPECT_EQ(g_calls.layouts, 1);
    EXPECT_FLOAT_EQ(g_dpiScale, 1.0f);
}

TEST_F(TwoMonitors, PaintComposesTheInvalidRectangle) {
    ASSERT_TRUE(PumpUntil([] { return GetUpdateRect(g_mainWindow, nullptr, FALSE) == FALSE; }));
    g_calls.composed.clear();
    const RECT dirty{10, 20, 110, 70};
    InvalidateRect(g_mainWindow, &dirty, FALSE);
    UpdateWindow(g_mainWindow);
    ASSERT_EQ(g_calls.composed.size(), 1u);
    EXPECT_EQ(g_calls.composed[0], (Rect{10, 20, 110, 70}));
}

TEST_F(TwoMonitors, OnlyTheHomeWindowsDestructionEndsTheLoop) {
    const HWND home = g_mainWindow;
    DestroyWindow(RecordAt(1920, 0)->hwnd);
    EXPECT_FALSE(TakeQuit()) << "another window's end is not the end of play";
    ASSERT_TRUE(PumpUntil([] { return g_calls.frames >= 1; })) << "the frame timer still runs";

    DestroyWindow(home);
    EXPECT_TRUE(TakeQuit());
    EXPECT_FALSE(g_playEnded) << "the loop ends without EndPlay; the teardown releases the rest";
    g_calls.frames = 0;
    EXPECT_FALSE(PumpUntil([] { return g_calls.frames > 0; }, 300)) << "no frame after the home window";
}

// A 1920x1080 primary with a second 1920x1080 monitor to its left: the
// virtual screen starts at x = -1920.
using LeftOfPrimary = ShellTest;

TEST_F(LeftOfPrimary, PlayFieldPointsStartAtTheVirtualOrigin) {
    EXPECT_EQ(g_virtualLeft, -1920);
    EXPECT_EQ(g_virtualWidth, 3840);
    EXPECT_TRUE(RecordAt(0, 0)->isMain);
    ClickAt(-1900, 10);
    ASSERT_TRUE(PumpUntil([] { return g_calls.releases >= 1; }));
    ASSERT_EQ(g_calls.presses.size(), 1u);
    EXPECT_EQ(g_calls.presses[0].point, (Point{20, 10}));

    g_calls = ShellCalls{};
    const TOUCHINPUT touch = Contact(-1999, 5000, TOUCHEVENTF_DOWN);  // -19.99 px
    DeliverTouchContacts(RecordAt(-1920, 0)->hwnd, &touch, 1);
    ASSERT_EQ(g_calls.presses.size(), 1u);
    EXPECT_EQ(g_calls.presses[0].point, (Point{1901, 50})) << "-19.99 px is -19, not -20";
}

}  // namespace
