// The pose pictures as cairo image surfaces.
#pragma once

#include <cairo.h>

#include "assets/penguin_images.h"

// The prepared picture, premultiplied as cairo draws it.
struct PosePicture {
    cairo_surface_t* surface = nullptr;
    int32_t width = 0;
    int32_t height = 0;
};
