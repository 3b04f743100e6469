// The rounded font faces and their installed fallbacks, loaded lazily by the
// first label drawn. The choice is made here; loading a face is the drawing
// backend's (fonts_win.cpp with GDI+, fonts_linux.cpp with FreeType and
// fontconfig).
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

// Releases the font families and file bytes; called by the teardown before
// the drawing backend shuts down.
void ReleaseFonts();

// The backend's part. The family of the named rounded font file, or null.
// Only the first call for a file looks at the disk; later calls report that
// outcome again.
const FontFace* RoundedFace(const wchar_t* fileName);
// An installed family from the fixed fallback list; with bold required,
// only one that offers a bold face. Never null: when nothing qualifies it is
// the last entry, usable or not.
const FontFace* ChooseFallbackFamily(bool boldRequired);
// Whether the family offers a bold face.
bool HasBoldFace(const FontFace* face);
// Forgets the choice made (ReleaseFonts calls it).
void ForgetFontChoice();
