// The pieces of the Linux edition's shell that its files share, besides
// the host's platform functions (host_platform.h): the sound output, the
// windows' pending repaints, the keyboard guard over SDL and the X11
// desktop. All of them run on the one thread of the event loop.
#pragma once

#include <cstdint>

#include "app/keyboard_guard.h"
#include "play/geometry.h"
#include "play/window_handle.h"

union SDL_Event;

// Whether SDL's video part runs on the named driver ("x11", "wayland").
bool VideoDriverIs(const char* name);

// Sound (sound_output_linux.cpp): opens SDL's default output once at
// start-up; without one every sound is silently dropped.
void OpenSoundOutput();
void CloseSoundOutput();
// Plays a WAV image of the sound bank, cutting off the one playing.
void PlaySoundImage(const uint8_t* image);

// Painting (window_painting_linux.cpp): a client rectangle of a window to
// compose and show at the next paint; PaintWindows composes every pending
// rectangle and puts it on the screen.
void AddWindowDirt(WindowHandle window, const Rect& client);
void PaintWindows();
// Forgets a window's pending rectangle (the window is going away).
void ForgetWindowDirt(WindowHandle window);

// The keyboard guard (keyboard_guard_linux.cpp): holds the keyboard for the
// home window while play runs (on X11 through the desktop connection below,
// on Wayland through SDL's grab, which asks the compositor to inhibit its
// shortcuts) and puts every key event through the guard's rules: Alt+F4
// ends play. The hold is asked for anew: after start-up and every rebuild, on every
// topmost tick, and for a display window that got the focus (SDL grabs
// for the focused window only).
void GrabKeyboardFor(WindowHandle window);
void RenewKeyboardGuard();

// One key event, from SDL or from the X server, filled in as the guard's
// rules read it (the report target is the guard's to set).
void HandleKeyEvent(const SDL_Event& event);
void HandleGuardedKey(GuardedKey key);

// The X11 desktop (x11_desktop_linux.cpp): a connection of Puffino's own
// that holds the keyboard and watches the stacking, opened once SDL's
// video is up; off X11 (Wayland) it does not open and every call below
// does nothing.
bool OpenX11Desktop();
void CloseX11Desktop();
bool X11DesktopOpen();
bool HoldX11Keyboard(WindowHandle home);  // true when held
void ReleaseX11Keyboard();
// Every loop turn: the held keys go to HandleGuardedKey, and another
// client's window mapping or restacking is noted for OthersRestacked.
void PumpX11Desktop();
bool OthersRestacked();  // since the windows were last raised
// The keyboard focus for a display window, reverting to the pointer's
// window when it goes.
void FocusX11Window(WindowHandle window);
// The desktop's DPI (the Xft.dpi resource); 0 where there is none.
uint32_t X11DesktopDpi(WindowHandle window);
// The outputs' layout: remembered by every rebuild, compared on every
// topmost tick.
void RememberX11Layout();
bool X11LayoutChanged();

