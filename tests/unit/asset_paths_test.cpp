// Parent folders and joins in Windows form, the same on every platform.
#include <gtest/gtest.h>

#include "assets/asset_paths.h"

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

}  // namespace
