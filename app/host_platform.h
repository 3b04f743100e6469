// What the host asks of the window system: the functions each edition
// implements in its _win.cpp or _linux.cpp files, each a translation that
// decides nothing. Called on the user-interface thread only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "play/geometry.h"
#include "play/window_handle.h"

// The process: false when another run of this session already plays (then
// nothing is shown); else this run is the only one until it ends, and the
// thread is ready for the system's services (COM on Windows).
bool StartProcess();
// The window system, the drawing and the sound output, brought up once the
// settings are read and taken down last; false when no window can be made
// at all (no display).
bool StartWindowSystem();
void StopWindowSystem();
// Runs the event loop until the quit is posted.
void RunEventLoop();
// The loop ends after the event being handled.
void PostQuit();

// The monitors in screen coordinates, in the system's order; the virtual
// screen around them; the launch monitor (the launch value's, else the
// primary monitor; false when there is none).
std::vector<Rect> ListMonitors();
Rect VirtualScreen(const std::vector<Rect>& monitors);
bool ChooseLaunchMonitor(Rect& out);

// One borderless, topmost window over a monitor; null when it fails. The
// index is the window's record in g_displayWindows.
WindowHandle MakePlatformWindow(const Rect& screenRect, size_t index);
void HidePlatformWindow(WindowHandle window);
void DestroyPlatformWindow(WindowHandle window);
uint32_t WindowDpi(WindowHandle window);
// The whole client area to be painted again.
void InvalidateWindow(WindowHandle window);
// Every display window above every other window, without taking the focus.
void RaiseWindows();
// The home window in front with the keyboard focus, at start-up.
void BringToForeground(WindowHandle window);
// Lets go of the pointer: any capture of this program's and a cursor clip.
void ReleasePointer();

// The frame timer (33 ms, a tick of the play field) and the topmost timer
// (1500 ms) on the home window; starting running timers restarts them.
void StartTimers();
void StopTimers();

// The keyboard guard: installed at start-up when shortcuts are blocked,
// removed when play ends and at teardown.
void InstallKeyboardGuard();
void RemoveKeyboardGuard();
