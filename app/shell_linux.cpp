// The process and the window system of the Linux edition: the single-
// instance lock, SDL with its hints, the X11 desktop and the sound output.
#include "app/shell_linux.h"

#include <SDL.h>

#include "app/host_platform.h"

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

}  // namespace

bool StartWindowSystem() {
    SetPlatformHints();
    if (SDL_Init(SDL_INIT_VIDEO) != 0) return false;
    SetVideoDriverHints();
    OpenX11Desktop();  // on an X server; elsewhere SDL's own means serve
    OpenSoundOutput();
    return true;
}

void StopWindowSystem() {
    CloseX11Desktop();
    CloseSoundOutput();
    SDL_Quit();
}
