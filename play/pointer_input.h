// Pointer input: what a touch or a click on the play field does. The window
// procedure converts every message to play-field points and calls these.
#pragma once

#include "app/geometry.h"

// A press at a play-field point: a button, else the newest bubble under it,
// else the penguin. isTouch tells touch from the mouse.
void PointerDown(Point point, bool isTouch);

// The end of whatever press is in progress; any lifted finger counts.
void PointerUp();

// Ends any press or hold and releases the home window's mouse capture.
// Also called when another window takes the capture and on display rebuilds.
void CancelPress();
