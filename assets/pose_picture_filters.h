// The clean-up a cut-out pose picture gets once at load time, so that it
// scales without stray specks, jagged outline or dark halos: plain filters
// over a locked 32-bit ARGB pixel buffer.
#pragma once

#include <cstddef>
#include <cstdint>

// A picture's pixels as a lock hands them out: four bytes per pixel in the
// memory order blue, green, red, alpha (not premultiplied), rows `stride`
// bytes apart.
struct PicturePixels {
    uint8_t* bits = nullptr;
    int32_t width = 0;   // pixels
    int32_t height = 0;  // pixels
    ptrdiff_t stride = 0;  // bytes from the start of one row to the next
};

// A pixel counts as drawn from this alpha on; the speck removal and the
// colour bleed share the threshold.
constexpr uint8_t kVisibleAlpha = 16;

// Erases every connected blob of visible pixels (corner contact connects)
// smaller than max(24, area / 16000, largest blob / 40) pixels: the specks
// left over from cutting the picture out. Skipped below 3 x 3 pixels.
void RemoveSpecks(const PicturePixels& pixels);

// Lowers the alpha of opaque dark outline pixels on the picture's outer
// edge (150 with three or more open sides, 200 with one or two), so the
// outline ends softly instead of in hard steps. Skipped below 2 x 2 pixels.
void SoftenOutline(const PicturePixels& pixels);

// Gives the invisible pixels within four steps of the drawing the average
// colour of their coloured neighbours, alpha untouched, so that bilinear
// scaling blends the drawing's own colours into its edge instead of black.
// Skipped below 3 x 3 pixels.
void BleedColours(const PicturePixels& pixels);
