// The Linux edition's entry point: brings every subsystem up in the same
// order as the Windows program, runs the one event loop and takes
// everything down again. Single instance, single thread; no command line,
// no log.
#include <SDL.h>

#include "app/display_windows.h"
#include "app/linux_shell.h"
#include "app/shell.h"
#include "assets/asset_paths.h"
#include "assets/fonts.h"
#include "assets/penguin_images.h"
#include "play/sound_bank.h"
#include "settings/high_score.h"
#include "settings/language.h"
#include "settings/settings.h"
#include "settings/volume_clamp.h"

namespace {

void SetPlatformHints() {
    // The windows must stay up when another program takes the focus.
    SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
    // On X11 no window manager may place, frame, stack or focus the
    // windows: it would keep them inside the work area below its panels,
    // float them all onto one monitor, or let another window cover them.
    SDL_SetHint(SDL_HINT_X11_FORCE_OVERRIDE_REDIRECT, "1");
    // A press that comes with a focus change is a press: SDL would drop
    // one made within moments of its window getting the focus (a window
    // manager's focus-on-click, the home window focused after a rebuild).
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    // The name the desktop shows for the windows and the sound stream.
    SDL_SetHint(SDL_HINT_APP_NAME, "Puffino");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Puffino");
}

// Once the video driver is known. The frames are composed in memory: on
// X11 the window surface is best shown by the server's own image copy
// (shared memory). SDL would otherwise put it through OpenGL, which without
// a graphics driver is a software rasterizer costing a frame time of its
// own. SDL's Wayland driver has no image copy of its own: its window
// surface exists only through the accelerated path, so there the hint
// stays unset (with it no surface, and no window ever shown).
void SetVideoDriverHints() {
    if (VideoDriverIs("x11")) SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
}

// After the loop: whatever EndPlay has not already released.
void TearDown() {
    RemoveKeyboardGuard();
    CloseX11Desktop();
    g_shortcutTarget = nullptr;
    DestroyDisplayWindows();
    g_mainWindow = nullptr;
    ReleasePenguinImages();
    ReleaseFonts();
    CloseSoundOutput();
    SDL_Quit();
}

}  // namespace

int main() {
    if (!AcquireInstanceLock()) return 0;  // another instance plays already: show nothing

    Settings settings;
    LoadSettings(settings);
    ApplySettings(settings);
    SetupLanguage(settings.language);
    EnsureAppDataDirectory();
    LoadBestScore();
    BuildSoundBank();

    SetPlatformHints();
    // Without a display no home window can be made.
    if (SDL_Init(SDL_INIT_VIDEO) != 0) return 1;
    SetVideoDriverHints();
    OpenX11Desktop();  // on an X server; elsewhere SDL's own means serve
    OpenSoundOutput();
    LoadPenguinImages(PoseFolder());
    RebuildDisplayWindows();

    if (!g_mainWindow) {
        // No home window (the launch value names no display's corner, or its
        // window failed): an orderly exit, with nothing left shown.
        TearDown();
        return 1;
    }

    ReassertTopmost();
    BringToForeground(g_mainWindow);  // as on Windows
    StartTimers();
    InstallKeyboardGuard();
    ClampMasterVolume();

    RunEventLoop();

    TearDown();
    return 0;
}
