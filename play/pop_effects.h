// The burst a pop leaves: one or two expanding rings and a spray of coloured
// droplets and white sparkles. They move and expire with the bubbles
// (StepMotion).
#pragma once

#include <cstdint>

// Starts the pop effect of a bubble at its centre in its tint. A full pop
// sprays droplets and sparkles with a ring (a gold one adds a white flash);
// a soft pop, made while the penguin is blowing, is a small ring and a drop
// or two. Items that find their list full are left out, their random draws
// still made. Called only by PopBubble.
void SpawnPopEffect(float x, float y, uint8_t red, uint8_t green, uint8_t blue, bool gold, bool soft);
