// config.ini and high_score.txt on real files, in both editions: under Wine
// through the real profile functions (each run has a fresh prefix of its
// own, so the tests use the real roaming application-data folder), natively
// through the Linux edition's reading of the same files (in a folder of the
// test process). One table, so that a file reads the same in both.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "settings/high_score.h"
#include "settings/settings.h"

namespace {

std::string ReadBytes(const std::wstring& file) {
    std::ifstream in(std::filesystem::path(file), std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

void WriteBytes(const std::wstring& file, const std::string& bytes) {
    EnsureAppDataDirectory();
    std::ofstream(std::filesystem::path(file), std::ios::binary | std::ios::trunc) << bytes;
}

// As Notepad saves it: UTF-16 LE with a byte-order mark.
std::string Utf16File(const std::wstring& text) {
    std::string bytes = "\xFF\xFE";
    for (wchar_t ch : text) bytes += {static_cast<char>(ch & 0xFF), static_cast<char>(ch >> 8)};
    return bytes;
}

struct Expected {
    int32_t volume;
    bool block, sound;
    std::wstring language;
};

// Loads the settings from a config.ini of these bytes and checks them, and
// that the file was left as it was.
void ExpectSettingsFrom(const std::string& bytes, const Expected& expected) {
    WriteBytes(AppDataFile(L"config.ini"), bytes);
    Settings settings;
    settings.language = L"stale";
    LoadSettings(settings);
    EXPECT_EQ(settings.volumeClampPercent, expected.volume);
    EXPECT_EQ(settings.blockSystemShortcuts, expected.block);
    EXPECT_EQ(settings.soundEnabled, expected.sound);
    EXPECT_EQ(settings.language, expected.language);
    EXPECT_TRUE(ReadBytes(AppDataFile(L"config.ini")) == bytes) << "never rewritten";
}

// Files as Notepad saves them and as a parent might leave them after
// editing by hand: every key reads as the profile functions read it, and
// whatever is no number or no key falls back on its own.
TEST(ConfigFile, ValuesAliasesLimitsAndMalformedFiles) {
    const std::wstring hundred(100, L'x'), longLine(200000, L'y');
    std::wstring comments;
    while (comments.size() < 300000) comments += L"; one more line of a very long comment\r\n";
    auto u = [](const std::wstring& lines) { return Utf16File(lines + L"\r\n"); };
    const struct {
        const char* what;
        std::string bytes;
        Expected expected;
    } cases[] = {
        {"empty file", u(L""), {0, true, true, L""}},
        {"ceiling above 100", u(L"[Puffino]\r\nVolumeClampPercent=150"), {100, true, true, L""}},
        {"negative ceiling", u(L"[Puffino]\r\nVolumeClampPercent=-5"), {0, true, true, L""}},
        {"digits then words", u(L"[Puffino]\r\nVolumeClampPercent=35 percent"), {35, true, true, L""}},
        {"older ceiling key", u(L"[Puffino]\r\nMasterVolumeClampPercent=40"), {40, true, true, L""}},
        {"newer key wins at 0", u(L"[Puffino]\r\nMasterVolumeClampPercent=40\r\nVolumeClampPercent=0"),
         {0, true, true, L""}},
        {"guard off beats the older key", u(L"[Puffino]\r\nLlKeyboardHook=1\r\nBlockSystemShortcuts=0"),
         {0, false, true, L""}},
        {"older guard key off", u(L"[Puffino]\r\nLlKeyboardHook=0"), {0, false, true, L""}},
        {"words are no numbers", u(L"[Puffino]\r\nSoundEnabled=on\r\nBlockSystemShortcuts=yes"),
         {0, false, false, L""}},
        {"keys in the wrong section", u(L"[UI]\r\nSoundEnabled=0\r\n[Puffino]\r\nLanguage=ja"),
         {0, true, true, L""}},
        {"100-character language", u(L"[UI]\r\nLanguage=" + hundred), {0, true, true, hundred.substr(0, 63)}},
        {"a decimal point", u(L"[Puffino]\r\nVolumeClampPercent=12.7"), {12, true, true, L""}},
        {"spaces around key and value", u(L"[Puffino]\r\n  VolumeClampPercent  =  25  "), {25, true, true, L""}},
        {"a million percent", u(L"[Puffino]\r\nVolumeClampPercent=1000000"), {100, true, true, L""}},
        {"twenty digits still switch sound on", u(L"[Puffino]\r\nSoundEnabled=99999999999999999999"),
         {0, true, true, L""}},
        {"the absent-key marker itself reads as absent",
         u(L"[Puffino]\r\nVolumeClampPercent=-2147483647\r\nMasterVolumeClampPercent=40"), {40, true, true, L""}},
        {"a key twice: the first counts",
         u(L"[Puffino]\r\nSoundEnabled=0\r\nSoundEnabled=1\r\nVolumeClampPercent=20\r\nVolumeClampPercent=90"),
         {20, true, false, L""}},
        {"a section twice: only the first is read",
         u(L"[Puffino]\r\nSoundEnabled=0\r\n[UI]\r\nLanguage=en\r\n[Puffino]\r\nVolumeClampPercent=30\r\n"
           L"BlockSystemShortcuts=0"),
         {0, true, false, L"en"}},
        {"ANSI without a byte-order mark",
         "[Puffino]\r\nSoundEnabled=0\r\nVolumeClampPercent=25\r\nBlockSystemShortcuts=0\r\n[UI]\r\nLanguage=en\r\n",
         {25, false, false, L"en"}},
        {"names in any case", u(L"[puffino]\r\nsoundenabled=0\r\n[ui]\r\nLANGUAGE=en"), {0, true, false, L"en"}},
        {"a quoted language", u(L"[UI]\r\nLanguage=\"en\""), {0, true, true, L"en"}},
        {"empty quotes", u(L"[UI]\r\nLanguage=''"), {0, true, true, L""}},
        {"empty values keep their defaults", u(L"[Puffino]\r\nSoundEnabled=\r\nVolumeClampPercent=\r\n"
                                               L"MasterVolumeClampPercent=40"), {40, true, true, L""}},
        {"a plus sign", u(L"[Puffino]\r\nVolumeClampPercent=+30"), {30, true, true, L""}},
        {"hexadecimal", u(L"[Puffino]\r\nVolumeClampPercent=0x20"), {32, true, true, L""}},
        {"a capital X is no prefix", u(L"[Puffino]\r\nVolumeClampPercent=0X20"), {0, true, true, L""}},
        {"binary", u(L"[Puffino]\r\nVolumeClampPercent=0b101"), {5, true, true, L""}},
        {"octal", u(L"[Puffino]\r\nVolumeClampPercent=0o17"), {15, true, true, L""}},
        {"a sign before hexadecimal", u(L"[Puffino]\r\nVolumeClampPercent=-0x5\r\nSoundEnabled=0x"), {0, true, false, L""}},
        {"UTF-8 with its mark and bare line feeds",
         "\xEF\xBB\xBF[Puffino]\nSoundEnabled=0\n[UI]\nLanguage=en\n", {0, true, false, L"en"}},
        {"a megabyte: half a million characters of comments and a 200000-character line",
         u(L"[Puffino]\r\n" + comments + L"VolumeClampPercent=30\r\n[UI]\r\nLanguage=" + longLine),
         {30, true, true, longLine.substr(0, 63)}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ExpectSettingsFrom(c.bytes, c.expected);
    }
    EXPECT_GE(cases[std::size(cases) - 1].bytes.size(), 1000000u);
}

TEST(HighScoreFile, ReadAndWrittenWithCrLf) {
    const struct { std::string bytes; int32_t best; } cases[] = {
        {"  42 trailing words", 42}, {"-3\r\n", 0}, {"12345678901234567890\r\n", 0}, {"", 0},
        {std::string("\0\xFF\x89PNG\r\n\x1A\n", 10), 0}, {std::string("7\0\xFF\xFE", 4), 7},
    };
    for (const auto& c : cases) {
        WriteBytes(AppDataFile(L"high_score.txt"), c.bytes);
        g_bestScore = 5;
        LoadBestScore();
        EXPECT_EQ(g_bestScore, c.best) << '"' << c.bytes << '"';
    }
    std::filesystem::remove(AppDataFile(L"high_score.txt"));
    std::filesystem::create_directory(AppDataFile(L"high_score.txt"));
    g_bestScore = 5;
    LoadBestScore();
    EXPECT_EQ(g_bestScore, 0) << "a folder in the file's place";
    SaveBestScore();
    EXPECT_TRUE(std::filesystem::is_directory(AppDataFile(L"high_score.txt"))) << "nothing written over it";
    std::filesystem::remove_all(GetAppDataDirectory());
    LoadBestScore();
    EXPECT_EQ(g_bestScore, 0) << "no file";
    g_bestScore = 1;
    SaveBestScore();  // makes the folder again
    EXPECT_EQ(ReadBytes(AppDataFile(L"high_score.txt")), "1\r\n");
    WriteBytes(AppDataFile(L"high_score.txt"), "123456789 and an old comment\r\n");
    g_bestScore = 42;
    SaveBestScore();
    EXPECT_EQ(ReadBytes(AppDataFile(L"high_score.txt")), "42\r\n") << "nothing left of the longer old file";
}

}  // namespace
