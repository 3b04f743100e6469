// The host's sequences, the same in both editions: the display windows'
// rebuild, the start and the end of play, the teardown, and pointer events
// as play-field points. The platform functions only translate.
#include "app/host.h"

#include "app/host_platform.h"
#include "assets/fonts.h"
#include "assets/penguin_images.h"
#include "play/platform.h"
#include "play/play_field.h"
#include "play/pointer_input.h"
#include "play/random.h"
#include "play/sound_bank.h"
#include "render/frame_buffers.h"
#include "settings/settings.h"
#include "settings/volume_clamp.h"

bool g_blockShortcuts = true;
bool g_playEnded = false;
WindowHandle g_shortcutTarget = nullptr;

void ApplySettings(const Settings& settings) {
    g_soundEnabled = settings.soundEnabled;
    g_blockShortcuts = settings.blockSystemShortcuts;
    g_volumeClampPercent = settings.volumeClampPercent;
}

void DestroyDisplayWindows() {
    for (DisplayWindow& window : g_displayWindows) {
        ReleaseWindowBuffers(window);
        if (window.window) DestroyPlatformWindow(window.window);
        window.window = nullptr;
    }
    g_displayWindows.clear();
}

namespace {

// A display's record, its window not yet made; each gets a landscape of its own.
void AddDisplayRecord(const Rect& screenRect, bool home) {
    DisplayWindow window;
    PlaceDisplayWindow(window, screenRect);
    window.home = home;
    window.sceneryTheme = static_cast<uint32_t>(RandomInt(0, 4));
    g_displayWindows.push_back(window);
}

}  // namespace

void CreateDisplayWindows() {
    // Forget the home window before it goes: its destruction ends play only
    // while it is the home window, and a rebuild must not end play.
    g_homeWindow = nullptr;
    DestroyDisplayWindows();

    const std::vector<Rect> monitors = ListMonitors();
    const Rect all = VirtualScreen(monitors);
    g_virtualLeft = all.left;
    g_virtualTop = all.top;
    g_virtualWidth = Width(all);
    g_virtualHeight = Height(all);
    for (const Rect& monitor : monitors) {
        // The launch value is read afresh for every monitor; only its
        // top-left corner has to match.
        Rect launch;
        AddDisplayRecord(monitor,
                         ChooseLaunchMonitor(launch) && monitor.left == launch.left && monitor.top == launch.top);
    }
    // No monitor listed: one home window over the whole virtual screen.
    if (g_displayWindows.empty() && !IsEmpty(all)) AddDisplayRecord(all, true);

    for (size_t i = 0; i < g_displayWindows.size(); ++i) {
        const WindowHandle made = MakePlatformWindow(g_displayWindows[i].screenRect, i);
        // Index again: making a window may call back into the host, and a
        // failed window keeps its record with a null handle.
        DisplayWindow& window = g_displayWindows[i];
        window.window = made;
        if (!made) continue;
        if (window.home) g_homeWindow = made;  // with several, the last wins
        CreateWindowBuffers(window);
        RenderScenery(window);
    }
}

void RebuildDisplayWindows() {
    CancelPress();  // before the old windows and their capture go
    CreateDisplayWindows();
    if (g_homeWindow) {
        g_dpiScale = DpiScaleFromDpi(WindowDpi(g_homeWindow));
        g_shortcutTarget = g_homeWindow;
    }
    LayoutPlayField();
    StartTimers();
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.window) InvalidateWindow(window.window);
    }
}

void DisplayWindowMoved(DisplayWindow& window, const Rect& screenRect) {
    PlaceDisplayWindow(window, screenRect);
    CreateWindowBuffers(window);
    RenderScenery(window);
    if (window.home) {
        g_dpiScale = DpiScaleFromDpi(WindowDpi(window.window));
        LayoutPlayField();
    }
    InvalidateWindow(window.window);
}

void ReassertTopmost() {
    RaiseWindows();
    ClampMasterVolume();
}

bool StartPlay() {
    // No home window (the launch value names no monitor's corner, or its
    // window failed): nothing more is shown.
    if (!g_homeWindow) return false;
    ReassertTopmost();
    BringToForeground(g_homeWindow);
    StartTimers();
    InstallKeyboardGuard();
    ClampMasterVolume();
    return true;
}

void EndPlay() {
    // The finish button and Alt+F4 can both arrive in one burst.
    if (g_playEnded) return;
    g_playEnded = true;

    StopTimers();
    // The guard goes before the windows do, so that the system's shortcuts
    // work again as soon as the windows disappear.
    RemoveKeyboardGuard();
    g_shortcutTarget = nullptr;
    CancelPress();  // gives the pointer capture back
    ReleasePointer();
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.window) HidePlatformWindow(window.window);
    }
    DestroyDisplayWindows();
    g_homeWindow = nullptr;
    PostQuit();
}

void TearDown() {
    RemoveKeyboardGuard();
    g_shortcutTarget = nullptr;
    DestroyDisplayWindows();
    g_homeWindow = nullptr;
    ReleasePenguinImages();
    ReleaseFonts();  // the fonts go before the drawing library does
    StopWindowSystem();
}

void PressInWindow(WindowHandle window, Point client, bool isTouch) {
    const DisplayWindow* record = FindDisplayWindow(window);
    if (record) PointerDown(ClientToPlayField(*record, client), isTouch);
}

void ReleaseInWindow(WindowHandle window) {
    if (FindDisplayWindow(window)) PointerUp();
}
