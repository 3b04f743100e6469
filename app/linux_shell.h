// The pieces of the Linux edition's shell that its files share: the sound
// output, the windows' pending repaints and the keyboard guard over SDL.
// All of them run on the one thread of the event loop.
#pragma once

#include <cstdint>

#include "app/geometry.h"
#include "app/window_handle.h"

union SDL_Event;

// The single-instance lock (instance_lock_linux.cpp): false when another
// run of this session holds it. Held until the process ends.
bool AcquireInstanceLock();

// Sound (sound_output_linux.cpp): opens SDL's default output once at
// start-up; without one every sound is silently dropped.
void OpenSoundOutput();
void CloseSoundOutput();
// Plays a WAV image of the sound bank, cutting off the one playing.
void PlaySoundImage(const uint8_t* image);

// The foreground for the home window at start-up (display_windows_linux.cpp):
// raised and given the keyboard focus, which goes back to the desktop when
// the window goes.
void BringToForeground(WindowHandle window);

// Painting (window_painting_linux.cpp): a client rectangle of a window to
// compose and show at the next paint; PaintWindows composes every pending
// rectangle and puts it on the screen.
void AddWindowDirt(WindowHandle window, const Rect& client);
void PaintWindows();
// Forgets a window's pending rectangle (the window is going away).
void ForgetWindowDirt(WindowHandle window);

// The keyboard guard (keyboard_guard_linux.cpp): grabs the keyboard for the
// home window while play runs; HandleKeyEvent applies the guard's rules to
// one key event (Alt+F4 ends play).
void InstallKeyboardGuard();
void RemoveKeyboardGuard();
// The grab for a display window that has (or is to get) the focus: the
// home window after start-up and every rebuild, any window a window
// manager focuses.
void GrabKeyboardFor(WindowHandle window);
void HandleKeyEvent(const SDL_Event& event);

// The event loop (event_loop_linux.cpp): runs until the quit is posted.
// StartTimers sets (or restarts) the frame and topmost timers.
void StartTimers();
void StopTimers();
void RunEventLoop();
// Whether the display server's displays no longer match the windows
// (display_windows_linux.cpp); asked on every topmost tick.
bool DisplaysChanged();
// As PostQuitMessage: the loop ends after the event being handled.
void PostQuit();
