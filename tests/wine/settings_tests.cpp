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
        // As Notepad saves it: UTF-16 LE with a byte-order mark.
        std::string bytes = "\xFF\xFE";
        for (wchar_t ch : c.lines + L"\r\n") bytes += {static_cast<char>(ch & 0xFF), static_cast<char>(ch >> 8)};
        WriteBytes(AppDataFile(L"config.ini"), bytes);
        Settings settings;
        settings.language = L"stale";
        LoadSettings(settings);
        EXPECT_EQ(settings.volumeClampPercent, c.volume) << c.what;
        EXPECT_EQ(settings.blockSystemShortcuts, c.block) << c.what;
        EXPECT_EQ(settings.soundEnabled, c.sound) << c.what;
        EXPECT_EQ(settings.language, c.language) << c.what;
        EXPECT_EQ(ReadBytes(AppDataFile(L"config.ini")), bytes) << c.what << ": never rewritten";
    }
}

TEST(HighScoreFile, ReadAndWrittenWithCrLf) {
    const struct { const char* bytes; int32_t best; } cases[] = {
        {"  42 trailing words", 42}, {"17\r\n", 17}, {"-3\r\n", 0}, {"4294967296\r\n", 0},
    };
    for (const auto& c : cases) {
        WriteBytes(AppDataFile(L"high_score.txt"), c.bytes);
        g_bestScore = 5;
        LoadBestScore();
        EXPECT_EQ(g_bestScore, c.best) << '"' << c.bytes << '"';
    }
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
