// The pure rules that turn mouse and touch messages into client points.
// The window procedure adds the window's play-field origin afterwards.
#pragma once

#include <cstdint>

#include "play/geometry.h"

// True for a mouse message that the system synthesized from touch or pen
// input (its message extra info carries the 0xFF5157xx signature); such
// button-downs are ignored because the touch arrives through WM_TOUCH.
bool IsTouchSynthesizedMouse(uintptr_t messageExtraInfo);

// The client point packed in a mouse message's lParam: two signed 16-bit
// halves, x low, y high (negative on monitors left of or above the window).
Point MouseClientPoint(uintptr_t lParam);

// A touch contact's position comes in hundredths of a physical screen
// pixel; whole pixels truncate toward zero (-19.99 px is -19, not -20).
Point TouchScreenPixel(int32_t xHundredths, int32_t yHundredths);

// A touch contact as SDL reports it, in fractions of its window's width and
// height, as a client point; whole pixels truncate toward zero as above.
Point TouchClientPoint(float xFraction, float yFraction, int32_t width, int32_t height);
