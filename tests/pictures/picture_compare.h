// Reference pictures: a rendered scene against the one kept in the
// repository, pixel by pixel within a small tolerance, with a picture of
// where they differ. Plain pixels, so every drawing backend shares it.
#pragma once

#include <cstdint>
#include <vector>

#include "play/geometry.h"

// 0xAARRGGBB pixels, row by row.
struct Picture {
    int32_t width = 0;
    int32_t height = 0;
    std::vector<uint32_t> pixels;
};

// A channel may be off by this much before a pixel counts as changed:
// enough for rounding in a blend, far too little for a changed colour.
constexpr int32_t kChannelTolerance = 3;

struct PictureDifference {
    bool sameSize = false;
    int32_t changedPixels = 0;
    Rect changedBox{0, 0, 0, 0};  // bounding box of the changed pixels
    // The reference faded to grey, the changed pixels in magenta: where to
    // look. Empty when the sizes differ.
    Picture map;
};

PictureDifference ComparePictures(const Picture& actual, const Picture& reference);
