// The rounded font faces of the Linux edition, read from their files into
// memory for FreeType.
#pragma once

#include <string>

#include "assets/fonts.h"
#include "render/canvas_linux.h"

// A face read from a file, with the bytes FreeType reads it from.
struct LoadedFont {
    std::string bytes;  // the whole file
    FontFace face;
    bool attempted = false;  // the one load attempt was made
    bool loaded = false;     // and it gave a face
};

// The part of a face's one load attempt after the path is known: reads the
// file into the record and makes its face. Anything at the path other than
// a readable font file gives null, and the record keeps no bytes.
const FontFace* LoadFontFile(LoadedFont& font, const std::wstring& path);
