// The pose pictures as GDI+ images.
#pragma once

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include <memory>

#include "assets/penguin_images.h"

// Normally the prepared 32-bit ARGB copy of its file.
struct PosePicture {
    std::unique_ptr<Gdiplus::Image> image;
};
