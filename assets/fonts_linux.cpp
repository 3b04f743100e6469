// Font files through FreeType, installed fallbacks through fontconfig, both
// handed to cairo. The rules are the GDI+ edition's: the rounded faces from
// their files, one attempt each; else the first installed fallback family
// (for the praise, the first with a bold face); bold paths where a family
// has a bold face, except for the black face.
#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "assets/file_paths.h"
#include "assets/font_folders.h"
#include "assets/fonts_linux.h"
#include "assets/whole_file.h"

namespace {

// Japanese families that may be installed, best first.
constexpr std::array<const char*, 5> kFallbackFamilyNames = {
    "HGP創立者角ポップ体 W9", "HG丸ゴシックM-PRO", "Yu Kyokasho Yoko", "Yu Gothic UI", "Meiryo UI",
};

struct Fonts {
    FT_Library library = nullptr;
    LoadedFont regular;  // "MPLUSRounded1c-Regular.ttf"
    LoadedFont black;    // "MPLUSRounded1c-Black.ttf"
    std::array<FontFace, kFallbackFamilyNames.size()> fallbacks;
    bool fallbacksLooked = false;
};
Fonts g_fonts;

const cairo_user_data_key_t kFreeTypeFaceKey{};

// A cairo face over the FreeType face, which it frees when cairo is done
// with it; null when there is none.
cairo_font_face_t* CairoFace(FT_Face face) {
    if (!face) return nullptr;
    cairo_font_face_t* cairoFace = cairo_ft_font_face_create_for_ft_face(face, 0);
    cairo_font_face_set_user_data(cairoFace, &kFreeTypeFaceKey, face,
                                  [](void* ft) { FT_Done_Face(static_cast<FT_Face>(ft)); });
    return cairoFace;
}

double LineSpacingOf(FT_Face face) {
    return face && face->units_per_EM ? static_cast<double>(face->height) / face->units_per_EM : 1.2;
}

FT_Library Library() {
    if (!g_fonts.library) FT_Init_FreeType(&g_fonts.library);
    return g_fonts.library;
}

const FontFace* LoadPrivateFamily(LoadedFont& font, const wchar_t* fileName) {
    // One attempt per run: a face that failed is not tried again, and one
    // that loaded stays loaded even if its file goes away.
    if (font.attempted) return font.loaded ? &font.face : nullptr;
    font.attempted = true;
    const std::wstring path = FindFontFile(fileName);
    if (path.empty()) return nullptr;
    return LoadFontFile(font, path);
}

// The file of the family's face of that weight or heavier (bold), or of
// the lightest weight from regular up (regular); empty when the family is
// not installed under exactly that name.
std::string InstalledFile(const char* family, bool bold, int& index) {
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
    FcObjectSet* properties = FcObjectSetBuild(FC_FILE, FC_INDEX, FC_WEIGHT, nullptr);
    FcFontSet* fonts = FcFontList(nullptr, pattern, properties);
    std::string best;
    int bestWeight = 0;
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        int weight = FC_WEIGHT_REGULAR, at = 0;
        FcChar8* file = nullptr;
        FcPatternGetInteger(fonts->fonts[i], FC_WEIGHT, 0, &weight);
        FcPatternGetInteger(fonts->fonts[i], FC_INDEX, 0, &at);
        if (FcPatternGetString(fonts->fonts[i], FC_FILE, 0, &file) != FcResultMatch) continue;
        const bool fits = bold ? weight >= FC_WEIGHT_BOLD : weight >= FC_WEIGHT_REGULAR;
        if (fits && (best.empty() || weight < bestWeight)) {
            best = reinterpret_cast<const char*>(file);
            bestWeight = weight;
            index = at;
        }
    }
    if (fonts) FcFontSetDestroy(fonts);
    FcObjectSetDestroy(properties);
    FcPatternDestroy(pattern);
    return best;
}

FT_Face OpenInstalled(const char* family, bool bold) {
    int index = 0;
    const std::string file = InstalledFile(family, bold, index);
    // FreeType opens the file itself: only a regular file, which never
    // makes it wait (fontconfig's cache may name one that has changed).
    std::error_code error;
    if (file.empty() || !std::filesystem::is_regular_file(file, error) || error) return nullptr;
    FT_Face face = nullptr;
    if (!Library() || FT_New_Face(Library(), file.c_str(), index, &face) != 0) return nullptr;
    return face;
}

void Release(FontFace& face) {
    if (face.regular) cairo_font_face_destroy(face.regular);
    if (face.bold) cairo_font_face_destroy(face.bold);
    face = {};
}

}  // namespace

const FontFace* LoadFontFile(LoadedFont& font, const std::wstring& path) {
    // A folder, a fifo or a file that cannot be read gives no bytes.
    std::optional<std::string> bytes = ReadWholeFile(FilePath(path));
    if (!bytes || bytes->empty() || !Library()) return nullptr;
    font.bytes = std::move(*bytes);
    FT_Face face = nullptr;
    if (FT_New_Memory_Face(Library(), reinterpret_cast<const FT_Byte*>(font.bytes.data()),
                           static_cast<FT_Long>(font.bytes.size()), 0, &face) != 0) {
        font.bytes.clear();
        return nullptr;
    }
    font.face = {CairoFace(face), nullptr, LineSpacingOf(face)};
    font.loaded = true;
    return &font.face;
}

const FontFace* ChooseFallbackFamily(bool boldRequired) {
    if (!g_fonts.fallbacksLooked) {
        g_fonts.fallbacksLooked = true;
        for (size_t i = 0; i < kFallbackFamilyNames.size(); ++i) {
            FT_Face regular = OpenInstalled(kFallbackFamilyNames[i], false);
            g_fonts.fallbacks[i] = {CairoFace(regular), CairoFace(OpenInstalled(kFallbackFamilyNames[i], true)),
                                    LineSpacingOf(regular)};
        }
    }
    for (const FontFace& face : g_fonts.fallbacks) {
        if (face.regular && (!boldRequired || HasBoldFace(&face))) return &face;
    }
    // Nothing qualifies: the last entry, whose text then simply comes out
    // empty while the panels are still drawn.
    return &g_fonts.fallbacks.back();
}

const FontFace* RoundedFace(const wchar_t* fileName) {
    const bool black = std::wstring_view(fileName) == kBlackFontFile;
    return LoadPrivateFamily(black ? g_fonts.black : g_fonts.regular, fileName);
}

bool HasBoldFace(const FontFace* face) { return face && face->bold; }

void ReleaseFonts() {
    ForgetFontChoice();
    for (LoadedFont* font : {&g_fonts.regular, &g_fonts.black}) {
        Release(font->face);
        *font = {};
    }
    for (FontFace& face : g_fonts.fallbacks) Release(face);
    g_fonts.fallbacksLooked = false;
}
