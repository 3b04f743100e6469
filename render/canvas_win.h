// The canvas over GDI+: a frame's or a scenery buffer's Graphics, and a font
// family as GDI+ holds it.
#pragma once

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include <vector>

#include "render/canvas.h"

struct Canvas {
    explicit Canvas(Gdiplus::Graphics& target) : graphics(target) {}
    Gdiplus::Graphics& graphics;
    std::vector<Gdiplus::GraphicsState> saved;  // one per SaveState not yet restored
};

// A family from a private collection (filled in by the collection) or an
// installed one by name.
struct FontFace {
    FontFace() = default;
    explicit FontFace(const wchar_t* installedName) : family(installedName) {}
    Gdiplus::FontFamily family;
};
