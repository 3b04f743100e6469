// config.ini and high_score.txt on real files under Wine: the profile
// functions' reading of numbers, aliases and the language, and the text
// streams' line ends. Each run of this program has a fresh prefix of its
// own, so the tests use the real roaming application-data folder.
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

TEST(ConfigFile, ValuesAliasesAndLimits) {
    const std::wstring hundred(100, L'x');
    const struct {
        const wchar_t* what;
        std::wstring lines;
        int32_t volume;
        bool block, sound;
        std::wstring language;
    } cases[] = {
        {L"empty file", L"", 0, true, true, L""},
        {L"ceiling above 100", L"[Puffino]\r\nVolumeClampPercent=150", 100, true, true, L""},
        {L"negative ceiling", L"[Puffino]\r\nVolumeClampPercent=-5", 0, true, true, L""},
        {L"digits then words", L"[Puffino]\r\nVolumeClampPercent=35 percent", 35, true, true, L""},
        {L"older ceiling key", L"[Puffino]\r\nMasterVolumeClampPercent=40", 40, true, true, L""},
        {L"newer key wins at 0", L"[Puffino]\r\nMasterVolumeClampPercent=40\r\nVolumeClampPercent=0", 0, true,
         true, L""},
        {L"guard off beats the older key", L"[Puffino]\r\nLlKeyboardHook=1\r\nBlockSystemShortcuts=0", 0, false,
         true, L""},
        {L"older guard key off", L"[Puffino]\r\nLlKeyboardHook=0", 0, false, true, L""},
        {L"words are no numbers", L"[Puffino]\r\nSoundEnabled=on\r\nBlockSystemShortcuts=yes", 0, false, false,
         L""},
        {L"keys in the wrong section", L"[UI]\r\nSoundEnabled=0\r\n[Puffino]\r\nLanguage=ja", 0, true, true, L""},
        {L"100-character language", L"[UI]\r\nLanguage=" + hundred, 0, true, true, hundred.substr(0, 63)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ExpectSettingsFrom(Utf16File(c.lines + L"\r\n"), {c.volume, c.block, c.sound, c.language});
    }
}

// Files a parent might leave behind after editing by hand: every key still
// reads as the profile functions read it, and whatever is no number or no
// key falls back on its own.
TEST(ConfigFile, MalformedFilesFallBackKeyByKey) {
    std::wstring comments;
    while (comments.size() < 300000) comments += L"; one more line of a very long comment\r\n";
    const std::wstring longLine(200000, L'y');
    const struct {
        const char* what;
        std::string bytes;
        Expected expected;
    } cases[] = {
        {"a decimal point", Utf16File(L"[Puffino]\r\nVolumeClampPercent=12.7\r\n"), {12, true, true, L""}},
        {"spaces around key and value", Utf16File(L"[Puffino]\r\n  VolumeClampPercent  =  25  \r\n"),
         {25, true, true, L""}},
        {"a million percent", Utf16File(L"[Puffino]\r\nVolumeClampPercent=1000000\r\n"), {100, true, true, L""}},
        {"twenty digits still switch sound on",
         Utf16File(L"[Puffino]\r\nSoundEnabled=99999999999999999999\r\n"), {0, true, true, L""}},
        {"the absent-key marker itself reads as absent",
         Utf16File(L"[Puffino]\r\nVolumeClampPercent=-2147483647\r\nMasterVolumeClampPercent=40\r\n"),
         {40, true, true, L""}},
        {"a key twice: the first counts",
         Utf16File(L"[Puffino]\r\nSoundEnabled=0\r\nSoundEnabled=1\r\nVolumeClampPercent=20\r\n"
                   L"VolumeClampPercent=90\r\n"),
         {20, true, false, L""}},
        {"a section twice: only the first is read",
         Utf16File(L"[Puffino]\r\nSoundEnabled=0\r\n[UI]\r\nLanguage=en\r\n[Puffino]\r\n"
                   L"VolumeClampPercent=30\r\nBlockSystemShortcuts=0\r\n"),
         {0, true, false, L"en"}},
        {"ANSI without a byte-order mark",
         "[Puffino]\r\nSoundEnabled=0\r\nVolumeClampPercent=25\r\nBlockSystemShortcuts=0\r\n[UI]\r\nLanguage=en\r\n",
         {25, false, false, L"en"}},
        {"a megabyte: half a million characters of comments and a 200000-character line",
         Utf16File(L"[Puffino]\r\n" + comments + L"VolumeClampPercent=30\r\n[UI]\r\nLanguage=" + longLine +
                   L"\r\n"),
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
        {"  42 trailing words", 42}, {"17\r\n", 17}, {"+8\r\n", 8}, {"-3\r\n", 0}, {"-42\r\n", 0},
        {"4294967296\r\n", 0}, {"12345678901234567890\r\n", 0}, {"best: 12\r\n", 0}, {"", 0},
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
