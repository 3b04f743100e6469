// The one window procedure of every display window, and its two timers.
#pragma once

#include <windows.h>

constexpr UINT_PTR kTopmostTimer = 1;  // 1500 ms: every window topmost again
constexpr UINT_PTR kFrameTimer = 2;    // 33 ms: one tick of the play field

LRESULT CALLBACK DisplayWindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

// Registers "PuffinoWindow" with DisplayWindowProc; called once at start-up.
void RegisterDisplayWindowClass(HINSTANCE instance);

// Hands touch contacts to the play field in array order: a contact going
// down presses at its play-field point, one going up ends the press.
// Separate from the message so that tests can craft contacts (the system
// fills them from WM_TOUCH).
void DeliverTouchContacts(HWND hwnd, const TOUCHINPUT* contacts, UINT count);
