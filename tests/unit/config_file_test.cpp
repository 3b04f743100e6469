// config.ini in the Linux edition: the portable profile reader and the Linux
// LoadSettings against the same files and answers as the real Windows
// functions and the Windows program under Wine (tests/config_file_cases.h).
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "assets/file_paths.h"
#include "settings/config_values.h"
#include "settings/profile_reader.h"
#include "settings/settings.h"
#include "tests/config_file_cases.h"

namespace {

std::string ReadBytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

TEST(ProfileReader, ReadsAsTheWindowsProfileFunctions) {
    for (const ProfileCase& c : ProfileCases()) {
        const std::u16string text = DecodeProfileText(c.bytes);
        EXPECT_TRUE(ReadProfileString(text, c.section, c.key, u"absent", kProfileCaseCapacity) == c.text) << c.what;
        EXPECT_EQ(ReadProfileInt(text, c.section, c.key, kProfileCaseFallback), c.number) << c.what;
    }
}

TEST(ConfigFile, SettingsAsTheWindowsProgramReadsThem) {
    const std::filesystem::path file = FilePath(AppDataFile(L"config.ini"));
    for (const SettingsCase& c : SettingsCases()) {
        EnsureAppDataDirectory();
        std::ofstream(file, std::ios::binary | std::ios::trunc) << c.bytes;
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

TEST(ConfigFile, FirstStartWritesTheWindowsProgramsDefaultFile) {
    const std::filesystem::path folder = FilePath(GetAppDataDirectory());
    std::filesystem::remove_all(folder);
    Settings settings;
    settings.soundEnabled = false;
    LoadSettings(settings);
    EXPECT_EQ(ReadBytes(FilePath(AppDataFile(L"config.ini"))), Utf16File(kDefaultConfigText));
    EXPECT_EQ(settings.volumeClampPercent, 0);
    EXPECT_TRUE(settings.blockSystemShortcuts && settings.soundEnabled && settings.language.empty());

    // No folder to be had (a file in its place): the defaults, and no file.
    std::filesystem::remove_all(folder);
    std::ofstream(folder) << "in the way";
    settings.soundEnabled = false;
    LoadSettings(settings);
    EXPECT_TRUE(settings.soundEnabled);
    std::filesystem::remove(folder);
}

}  // namespace
