// The rounded font faces and their installed fallbacks, loaded lazily by the
// first label drawn.
#pragma once

#include <cstdint>

struct FontFace;

// The families of the labels (regular face) and of the praise words (black
// face), each chosen on its first use and kept until ReleaseFonts: the
// rounded face from its file, else an installed fallback family.
const FontFace* LabelFamily();
const FontFace* PraiseFamily();

// The style (kFontRegular or kFontBold) in which text becomes a path in this
// family: bold wherever the family offers it, except the black face, which
// is heavy enough already. Null gives regular.
int32_t PathStyleFor(const FontFace* face);

// Releases the font families, collections and file bytes; called by the
// teardown before GDI+ shuts down.
void ReleaseFonts();
