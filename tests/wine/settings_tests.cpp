// config.ini and high_score.txt on real files under Wine: the profile
// functions' reading, measured on the files that the Linux edition's reader
// is held to (tests/config_file_cases.h), the Windows LoadSettings on them,
// and the text streams' line ends. Each run of this program has a fresh
// prefix of its own, so the tests use the real roaming application-data
// folder.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "settings/high_score.h"
#include "settings/settings.h"
#include "tests/config_file_cases.h"

namespace {

std::string ReadBytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

void WriteBytes(const std::filesystem::path& file, const std::string& bytes) {
    EnsureAppDataDirectory();
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}

const wchar_t* Wide(const char16_t* text) { return reinterpret_cast<const wchar_t*>(text); }

// Each file under a name of its own: the profile functions keep recently
// read files in a cache.
TEST(ProfileFunctions, ReadTheSharedCases) {
    int index = 0;
    for (const ProfileCase& c : ProfileCases()) {
        const std::wstring file = AppDataFile(L"case" + std::to_wstring(++index) + L".ini");
        WriteBytes(file, c.bytes);
        wchar_t text[kProfileCaseCapacity] = {};
        GetPrivateProfileStringW(Wide(c.section), Wide(c.key), L"absent", text, kProfileCaseCapacity, file.c_str());
        EXPECT_TRUE(std::u16string(reinterpret_cast<const char16_t*>(text)) == c.text) << c.what;
        EXPECT_EQ(static_cast<int32_t>(GetPrivateProfileIntW(Wide(c.section), Wide(c.key), kProfileCaseFallback,
                                                             file.c_str())),
                  c.number)
            << c.what;
    }
}

// Files as Notepad saves them and as a parent might leave them after
// editing by hand; the file is left as it was.
TEST(ConfigFile, SettingsFromTheSharedCases) {
    const std::filesystem::path file = AppDataFile(L"config.ini");
    for (const SettingsCase& c : SettingsCases()) {
        WriteBytes(file, c.bytes);
        Settings settings;
        settings.language = L"stale";
        LoadSettings(settings);
        EXPECT_EQ(settings.volumeClampPercent, c.volume) << c.what;
        EXPECT_EQ(settings.blockSystemShortcuts, c.block) << c.what;
        EXPECT_EQ(settings.soundEnabled, c.sound) << c.what;
        EXPECT_EQ(settings.language, c.language) << c.what;
        EXPECT_TRUE(ReadBytes(file) == c.bytes) << c.what << ": never rewritten";
    }
}

TEST(ConfigFile, AFolderInItsPlaceReadsAsNoFile) {
    const std::filesystem::path file = AppDataFile(L"config.ini");
    std::filesystem::remove_all(file);
    std::filesystem::create_directories(file);
    Settings settings{50, false, false, L"stale"};
    LoadSettings(settings);
    EXPECT_TRUE(settings.soundEnabled && settings.blockSystemShortcuts && settings.volumeClampPercent == 0 &&
                settings.language.empty());
    EXPECT_TRUE(std::filesystem::is_directory(file)) << "no first start's file written over it";
    std::filesystem::remove_all(file);
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
