// Parent folders and joins in Windows form, the same on every platform.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "assets/asset_paths.h"
#include "assets/file_paths.h"

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

// Stray bytes as the wide path keeps them: U+DC80 + (byte - 0x80).
std::wstring Bytes(std::initializer_list<unsigned> bytes) {
    std::wstring wide;
    for (unsigned b : bytes) wide += static_cast<wchar_t>(0xDC00 + b);
    return wide;
}

// A Linux file name's bytes and the wide path kept for it: UTF-8 both ways,
// and bytes that are no UTF-8 kept apart and given back unchanged.
TEST(FilePaths, Utf8FileNamesAndStrayBytesSurviveTheWideForm) {
    const struct { std::string bytes; std::wstring wide; } cases[] = {
        {"/home/\xE3\x81\x82\xE3\x81\x84/.config", L"/home/\u3042\u3044/.config"},
        {"/opt/Pu\xC3\xBF\xF0\x9F\x90\xA7", L"/opt/Pu\u00FF" + std::wstring(1, static_cast<wchar_t>(0x1F427))},
        {"/tmp/\xFF\xC3", L"/tmp/" + Bytes({0xFF, 0xC3})},     // a stray byte and a cut sequence
        {"/tmp/\xC0\xAF", L"/tmp/" + Bytes({0xC0, 0xAF})},     // an overlong slash is no slash
        {"/tmp/\xED\xA0\x80", L"/tmp/" + Bytes({0xED, 0xA0, 0x80})},  // an encoded surrogate
    };
    for (const auto& c : cases) {
        EXPECT_EQ(WidePath(std::filesystem::path(c.bytes)), c.wide) << c.bytes;
        EXPECT_EQ(FilePath(c.wide).native(), c.bytes) << c.bytes;
    }
}

}  // namespace
