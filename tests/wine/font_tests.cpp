// The font folder search on real folder trees, loading the rounded faces
// from their files, and the installed fallbacks.
#include <fstream>

#include "assets/font_folders.h"
#include "assets/fonts_win.h"
#include "tests/wine/gdiplus_test_support_win.h"

namespace {

// A fresh folder tree under the temporary folder, removed again at the end.
// Entries are relative; a trailing '\' makes a folder, else an empty file.
struct TempTree {
    explicit TempTree(const std::vector<std::wstring>& entries) {
        wchar_t temp[MAX_PATH];
        GetTempPathW(MAX_PATH, temp);
        static int count = 0;
        root = JoinPath(temp, L"puffino-fonts-" + std::to_wstring(++count));
        for (std::wstring entry : entries) {
            if (entry.back() == L'\\') {
                std::filesystem::create_directories(Path(entry.substr(0, entry.size() - 1)));
            } else {
                std::filesystem::create_directories(ParentFolder(Path(entry)));
                std::ofstream(std::filesystem::path(Path(entry)));
            }
        }
    }
    ~TempTree() { std::filesystem::remove_all(root); }
    std::wstring Path(const std::wstring& entry) const { return JoinPath(root, entry); }
    std::wstring root;
};

TEST(FontFolders, LauncherFolderThenProgramFolder) {
    const struct {
        const char* what;
        std::vector<std::wstring> entries;  // the program lives in a\game
        const wchar_t* launcher;            // expected, nullptr for none
        const wchar_t* fonts;
    } cases[] = {
        {"launcher beside", {L"a\\game\\Tonkari.exe", L"a\\game\\Fonts\\"}, L"a\\game",
         L"a\\game\\Fonts"},
        {"launcher one up: its Fonts wins", {L"a\\Tonkari.exe", L"a\\Fonts\\", L"a\\game\\Fonts\\"},
         L"a", L"a\\Fonts"},
        {"launcher one up without Fonts", {L"a\\Tonkari.exe", L"a\\game\\Fonts\\"}, L"a",
         L"a\\game\\Fonts"},
        {"launcher two up", {L"Tonkari.exe", L"Fonts\\", L"a\\game\\Fonts\\"}, nullptr,
         L"a\\game\\Fonts"},
        {"launcher beside, no Fonts near", {L"a\\game\\Tonkari.exe", L"Fonts\\"}, L"a\\game",
         nullptr},
        {"plain files named Fonts", {L"a\\Tonkari.exe", L"a\\Fonts", L"a\\game\\Fonts"}, L"a",
         nullptr},
    };
    for (const auto& c : cases) {
        TempTree tree(c.entries);
        const std::wstring program = tree.Path(L"a\\game");
        std::filesystem::create_directories(program);
        EXPECT_EQ(FindLauncherFolder(program), c.launcher ? tree.Path(c.launcher) : L"") << c.what;
        EXPECT_EQ(FindFontsFolder(program), c.fonts ? tree.Path(c.fonts) : L"") << c.what;
    }
    EXPECT_EQ(FontsSubfolder(L""), L"");  // never the working folder's "Fonts"
}

std::wstring FamilyName(const FontFace* face) {
    wchar_t name[LF_FACESIZE] = {};
    face->family.GetFamilyName(name);
    return name;
}

using FontFiles = FontTest;

// The test program has the shipped faces in a "Fonts" folder beside it.
TEST_F(FontFiles, FacesLoadOnceFromTheFontFolderAndKeepTheirBytes) {
    const std::wstring path = FindFontFile(kRegularFontFile);
    ASSERT_EQ(path, JoinPath(JoinPath(ExecutableFolder(), L"Fonts"), kRegularFontFile));
    LoadedFont font;
    const FontFace* family = LoadPrivateFamily(font, kRegularFontFile);
    ASSERT_NE(family, nullptr);
    EXPECT_EQ(font.bytes.size(), std::filesystem::file_size(path));
    EXPECT_EQ(LoadPrivateFamily(font, kRegularFontFile), family);

    LoadedFont missing;
    EXPECT_EQ(LoadPrivateFamily(missing, L"MPLUSRounded1c-Missing.ttf"), nullptr);
    EXPECT_EQ(LoadPrivateFamily(missing, kRegularFontFile), nullptr);  // not tried again

    EXPECT_EQ(FamilyName(LabelFamily()), L"Rounded Mplus 1c");
    EXPECT_EQ(FamilyName(PraiseFamily()), L"Rounded Mplus 1c Black");
    EXPECT_EQ(PathStyleFor(PraiseFamily()), kFontRegular);

    // This prefix has none of the five fallbacks: the last entry stands in.
    const FontFace* plain = ChooseFallbackFamily(false);
    ASSERT_NE(plain, nullptr);
    EXPECT_FALSE(plain->family.IsAvailable());
    EXPECT_EQ(ChooseFallbackFamily(true), plain);
    EXPECT_EQ(PathStyleFor(plain), kFontRegular);
}

TEST_F(FontFiles, EmptyOrForeignFilesGiveNoFamilyAndKeepNothing) {
    TempTree tree({L"empty.ttf", L"folder.ttf\\"});
    std::ofstream(std::filesystem::path(tree.Path(L"text.ttf"))) << std::string(4096, 'x');
    for (const wchar_t* name : {L"empty.ttf", L"text.ttf", L"none.ttf", L"folder.ttf"}) {
        LoadedFont font;
        EXPECT_EQ(LoadFontFile(font, tree.Path(name)), nullptr) << name;
        EXPECT_FALSE(font.loaded || font.collection || font.family || !font.bytes.empty());
    }
}

// Run in a prefix where the first fallback name stands for a family without
// a bold face and the third for one with it.
using InstalledFallbacks = FontTest;

TEST_F(InstalledFallbacks, FirstInstalledForLabelsFirstWithBoldForPraise) {
    const FontFace* plain = ChooseFallbackFamily(false);
    const FontFace* bold = ChooseFallbackFamily(true);
    EXPECT_EQ(FamilyName(plain), L"Rounded Mplus 1c");
    EXPECT_EQ(FamilyName(bold), L"DejaVu Sans");
    EXPECT_EQ(PathStyleFor(plain), kFontRegular);
    EXPECT_EQ(PathStyleFor(bold), kFontBold);
}

}  // namespace
