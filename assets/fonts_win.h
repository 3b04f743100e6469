// The font families the labels draw with: the two rounded faces loaded from
// their files into private GDI+ collections, else an installed Japanese
// family. Everything here runs on the UI thread, inside painting.
#pragma once

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include <memory>
#include <string>
#include <vector>

#include "assets/fonts.h"
#include "render/canvas_win.h"

// One font file and what GDI+ made of it. GDI+ reads the family's glyphs
// from the bytes for as long as the collection lives, so they stay here.
struct LoadedFont {
    std::vector<char> bytes;  // the whole file
    std::unique_ptr<Gdiplus::PrivateFontCollection> collection;
    std::unique_ptr<FontFace> family;  // the file's first family
    bool attempted = false;  // the one load attempt was made
    bool loaded = false;     // and it gave a family
};

// The family of the named font file, or null. Only the first call for a
// record looks at the disk; later calls report that outcome again.
const FontFace* LoadPrivateFamily(LoadedFont& font, const wchar_t* fileName);

// The part of LoadPrivateFamily after the path is known: reads the file
// into the record and makes its collection and family. On failure the
// record keeps no collection, no family and no bytes.
const FontFace* LoadFontFile(LoadedFont& font, const std::wstring& path);
