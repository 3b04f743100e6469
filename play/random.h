// The shared random source: one MT19937 engine for every random choice of
// the program, seeded once from the system's random device during static
// initialisation. Each call consumes engine outputs in a fixed way, so the
// order in which callers draw decides what they get.
#pragma once

#include <cstdint>

// Uniform in lo..hi inclusive (lo <= hi), unbiased; a range of one value
// still consumes exactly one output.
int32_t RandomInt(int32_t lo, int32_t hi);

// In [0, 1) with 24 significant bits; never 1.0.
float RandomUnit();

// RandomUnit() * (b - a) + a, with b - a formed as a float difference.
float RandomRange(float a, float b);

// Tests start the engine from a known seed; the program never reseeds.
void SeedRandom(uint32_t seed);
