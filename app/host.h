// The host: how Puffino starts, keeps its display windows, ends play and
// takes everything down again, written once over the platform functions of
// host_platform.h that each edition implements. Everything here runs on the
// one user-interface thread.
#pragma once

#include <cstdint>

#include "play/display_records.h"

// Whether the keyboard guard is installed at start-up (from the settings).
extern bool g_blockShortcuts;
// Set once play has ended; never cleared.
extern bool g_playEnded;
// Where the keyboard guard reports guarded keys: the home window of the
// last rebuild that had one; cleared when play ends.
extern WindowHandle g_shortcutTarget;

struct Settings;
// Takes the settings' sound, guard and ceiling into the flags; called once
// at start-up after the settings are read.
void ApplySettings(const Settings& settings);

// The whole run: the single-instance check, the settings, the sounds, the
// window system, the pose pictures, the display windows, play until the
// quit, and the teardown. Returns the process's exit code: 0 after play or
// when another run already plays, 1 when no home window could be shown.
int RunPuffino();

// After the display windows are up: every window topmost, the home window
// in front, the timers, the keyboard guard and the volume ceiling. False
// (and nothing of that done) without a home window.
bool StartPlay();

// After the loop: whatever EndPlay has not already released, the pose
// pictures, the fonts and the window system.
void TearDown();

// Display windows: one per monitor, the home window on the launch monitor.
// The rebuild runs at start-up and whenever the displays change.
void RebuildDisplayWindows();
void CreateDisplayWindows();  // destroys the old windows, makes new ones
// Releases the buffers of every display window, destroys the windows and
// empties the list; what becomes of g_homeWindow is the caller's business.
void DestroyDisplayWindows();
// A display window the system moved or resized (a DPI change): its record,
// buffers and landscape follow, and the home window's DPI sets the scale.
void DisplayWindowMoved(DisplayWindow& window, const Rect& screenRect);
// Every window topmost again, then the volume ceiling; on the topmost tick.
void ReassertTopmost();

// Pointer events of a display window, in its client coordinates; a window
// that is not (or no longer) a display window is ignored.
void PressInWindow(WindowHandle window, Point client, bool isTouch);
void ReleaseInWindow(WindowHandle window);
