// Pointer input: what a touch or a click on the play field does, and the
// long press on the penguin that makes it blow bubbles. The host turns
// every press of a window into a play-field point and calls these.
#pragma once

#include "play/geometry.h"

// A press at a play-field point: a button, else the newest bubble under it,
// else the penguin. isTouch tells touch from the mouse. Repaints what the
// press changed.
void PointerDown(Point point, bool isTouch);

// The end of whatever press is in progress; any lifted finger counts.
void PointerUp();

// Ends any press or hold and releases the home window's mouse capture.
// Also called when another window takes the capture and on display rebuilds.
void CancelPress();

// The long press, once per frame tick (called by AdvanceFrame): a press
// still down after 300 ms starts the blowing with a puff of two bubbles and
// the chirp; then one bubble comes every 3.5 ticks, every 12th one gold.
void HoldTick();

// Whether a play-field point is on the penguin as it is drawn at rest: its
// picture (blowing while it blows) without the side margins.
bool PenguinHit(Point point);
