// Parent folders and joins in Windows form, the same on every platform; the
// files beside the program and in the installed share folder.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <vector>

#include "assets/asset_paths.h"
#include "assets/font_folders.h"

namespace {

TEST(AssetPaths, ParentFolder) {
    const struct { const wchar_t* path; const wchar_t* parent; } cases[] = {
        {L"C:\\Games\\Puffino\\Puffino.exe", L"C:\\Games\\Puffino"},
        {L"C:\\Games\\Puffino\\\\/Puffino.exe", L"C:\\Games\\Puffino"},  // the whole run of separators
        {L"C:/Games/Puffino.exe", L"C:/Games"},
        {L"A:\\Puffino.exe", L"A:\\"},   // never into the root
        {L"z:\\", L"z:\\"},
        {L"Z:Puffino.exe", L"Z:"}, {L"a:Puffino.exe", L"a:"},
        {L"\\\\server\\share\\Puffino.exe", L"\\\\server\\share"},
        {L"\\\\server\\share", L"\\\\server\\"},
        {L"C:\\Games\\Puffino\\", L"C:\\Games\\Puffino"},
        {L"Puffino.exe", L""},
        {L"", L""},
    };
    for (const auto& c : cases) EXPECT_EQ(ParentFolder(c.path), c.parent) << c.path;
}

TEST(AssetPaths, JoinPath) {
    EXPECT_EQ(JoinPath(L"C:\\Games", L"assets"), L"C:\\Games\\assets");
    EXPECT_EQ(JoinPath(L"C:\\", L"assets"), L"C:\\assets");
    EXPECT_EQ(JoinPath(L"", L"assets"), L"assets");
    EXPECT_EQ(JoinPath(JoinPath(L"D:/Toys", L"assets"), L"penguin"), L"D:/Toys\\assets\\penguin");
    EXPECT_EQ(JoinPath(JoinPath(L"/opt/puffino", L"assets"), L"penguin"), L"/opt/puffino/assets/penguin");
    EXPECT_EQ(JoinPath(L"//server/toys", L"assets"), L"//server/toys\\assets");
}

TEST(AssetPaths, ShareFolder) {
    EXPECT_EQ(ShareFolder(L"/usr/bin"), L"/usr/share/puffino");
    EXPECT_EQ(ShareFolder(L"/tmp/unpacked/usr/bin"), L"/tmp/unpacked/usr/share/puffino");
    EXPECT_EQ(ShareFolder(L"/"), L"/share/puffino");
    EXPECT_EQ(ShareFolder(L""), L"");  // never the working folder's
}

// The program lives in bin/ of a fresh tree, its installed files in
// share/puffino/. Entries ending in '/' are folders, the others empty files.
TEST(AssetPaths, BesideTheProgramThenTheShareFolder) {
    const struct {
        const char* what;
        std::vector<std::string> entries;
        const char* poses;  // expected, relative to the tree
        const char* fonts;  // nullptr for none
    } cases[] = {
        {"a build folder", {"bin/assets/penguin/", "bin/Fonts/", "share/puffino/assets/penguin/", "share/puffino/Fonts/"},
         "bin/assets/penguin", "bin/Fonts"},
        {"installed", {"share/puffino/assets/penguin/", "share/puffino/Fonts/"}, "share/puffino/assets/penguin",
         "share/puffino/Fonts"},
        {"a launcher's folder still wins", {"Tonkari.exe", "Fonts/", "share/puffino/Fonts/"}, "bin/assets/penguin",
         "Fonts"},
        {"plain files do not count", {"share/puffino/assets/penguin", "share/puffino/Fonts"}, "bin/assets/penguin",
         nullptr},
    };
    for (const auto& c : cases) {
        std::string pattern = (std::filesystem::temp_directory_path() / "puffino-paths-XXXXXX").string();
        const std::filesystem::path root = mkdtemp(pattern.data());
        std::filesystem::create_directories(root / "bin");
        for (const std::string& entry : c.entries) {
            const std::filesystem::path path = root / entry;
            std::filesystem::create_directories(entry.back() == '/' ? path : path.parent_path());
            if (entry.back() != '/') std::ofstream{path};
        }
        const std::wstring program = (root / "bin").wstring();
        EXPECT_EQ(FindPoseFolder(program, ShareFolder(program)), (root / c.poses).wstring()) << c.what;
        EXPECT_EQ(FindFontsFolder(program, ShareFolder(program)), c.fonts ? (root / c.fonts).wstring() : L"")
            << c.what;
        // Puffino.exe has no installed folder: only what stands beside it.
        EXPECT_EQ(FindPoseFolder(program, L""), (root / "bin/assets/penguin").wstring()) << c.what;
        std::filesystem::remove_all(root);
    }
}

}  // namespace
