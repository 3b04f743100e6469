// Font files through GDI+ private collections, with installed fallbacks.
#include "assets/fonts_win.h"

#include <array>
#include <climits>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "assets/asset_paths.h"
#include "assets/font_folders.h"

namespace {

// Japanese families that may be installed, best first.
constexpr std::array<const wchar_t*, 5> kFallbackFamilyNames = {
    L"HGP創立者角ポップ体 W9", L"HG丸ゴシックM-PRO", L"Yu Kyokasho Yoko", L"Yu Gothic UI",
    L"Meiryo UI",
};

// Everything this file keeps for the life of the process; released by
// ReleaseFonts only.
struct Fonts {
    LoadedFont regular;  // "MPLUSRounded1c-Regular.ttf"
    LoadedFont black;    // "MPLUSRounded1c-Black.ttf"
    std::array<std::unique_ptr<FontFace>, kFallbackFamilyNames.size()> fallbacks;
};
Fonts g_fonts;

// Reading the status resets it, as the GDI+ wrappers do; a family made from
// the name of a font that is not installed has no native handle.
bool IsUsable(const FontFace& face) {
    return face.family.GetLastStatus() == Gdiplus::Ok && face.family.IsAvailable();
}

void Unload(LoadedFont& font) {
    // The family refers into the collection, which reads from the bytes.
    font.family.reset();
    font.collection.reset();
    font.bytes.clear();
    font.bytes.shrink_to_fit();
}

}  // namespace

const FontFace* LoadFontFile(LoadedFont& font, const std::wstring& path) {
    std::ifstream stream(std::filesystem::path(path), std::ios::binary | std::ios::ate);
    if (!stream) return nullptr;
    const std::streamoff size = stream.tellg();
    if (size < 1 || size > INT_MAX) return nullptr;  // GDI+ takes the size as an INT
    stream.seekg(0);
    font.bytes.resize(static_cast<size_t>(size));
    stream.read(font.bytes.data(), size);
    const bool readWhole = static_cast<bool>(stream);
    stream.close();
    if (!readWhole) return nullptr;

    font.collection = std::make_unique<Gdiplus::PrivateFontCollection>();
    const Gdiplus::Status added =
        font.collection->AddMemoryFont(font.bytes.data(), static_cast<INT>(font.bytes.size()));
    if (added != Gdiplus::Ok || font.collection->GetFamilyCount() < 1) {
        Unload(font);
        return nullptr;
    }
    font.family = std::make_unique<FontFace>();
    INT found = 0;
    const Gdiplus::Status listed = font.collection->GetFamilies(1, &font.family->family, &found);
    if (listed == Gdiplus::Ok && found >= 1 && font.family->family.GetLastStatus() == Gdiplus::Ok) {
        font.loaded = true;
        return font.family.get();
    }
    Unload(font);
    return nullptr;
}

const FontFace* LoadPrivateFamily(LoadedFont& font, const wchar_t* fileName) {
    // One attempt per run: a face that failed is not tried again, and one
    // that loaded stays loaded even if its file goes away.
    if (font.attempted) return font.loaded ? font.family.get() : nullptr;
    font.attempted = true;
    const std::wstring path = FindFontFile(fileName);
    if (path.empty()) return nullptr;
    return LoadFontFile(font, path);
}

const FontFace* ChooseFallbackFamily(bool boldRequired) {
    if (!g_fonts.fallbacks[0]) {
        for (size_t i = 0; i < kFallbackFamilyNames.size(); ++i) {
            g_fonts.fallbacks[i] = std::make_unique<FontFace>(kFallbackFamilyNames[i]);
        }
    }
    for (const auto& family : g_fonts.fallbacks) {
        if (!IsUsable(*family)) continue;
        if (!boldRequired || HasBoldFace(family.get())) return family.get();
    }
    // Nothing qualifies: the last entry, whose text then simply comes out
    // empty while the panels are still drawn.
    return g_fonts.fallbacks.back().get();
}

const FontFace* RoundedFace(const wchar_t* fileName) {
    const bool black = std::wstring_view(fileName) == kBlackFontFile;
    return LoadPrivateFamily(black ? g_fonts.black : g_fonts.regular, fileName);
}

bool HasBoldFace(const FontFace* face) {
    // A failed query leaves its status in the family and counts as no.
    return face && face->family.IsStyleAvailable(Gdiplus::FontStyleBold);
}

void ReleaseFonts() {
    ForgetFontChoice();
    Unload(g_fonts.regular);
    Unload(g_fonts.black);
    for (auto& family : g_fonts.fallbacks) family.reset();
    // The records start over, so a later use (only tests make one) loads
    // afresh instead of handing out released families.
    g_fonts.regular = {};
    g_fonts.black = {};
}
