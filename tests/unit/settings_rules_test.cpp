// The settings' pure rules: the language choice, the volume clamp through a
// stand-in playback device, the number in the best-score file and the
// configured ceiling.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "assets/file_paths.h"
#include "settings/config_values.h"
#include "settings/high_score.h"
#include "settings/language.h"
#include "settings/settings.h"
#include "settings/volume_clamp.h"
#include "tests/unit/settings_fakes.h"

namespace {

TEST(Language, ConfiguredPrefixElseUiLanguage) {
    constexpr uint16_t kJapaneseUi = 0x0411, kEnglishUi = 0x0409, kGermanUi = 0x0407;
    constexpr Language ja = Language::kJapanese, en = Language::kEnglish;
    const struct { const wchar_t* configured; uint16_t ui; Language expected; } cases[] = {
        {L"  Ja\r\n", kEnglishUi, ja}, {L"\tja-JP ", kEnglishUi, ja}, {L"japanese", kEnglishUi, ja},
        {L"EN", kJapaneseUi, en},      {L"English", kJapaneseUi, en},  {L"fr", kJapaneseUi, ja},
        {L"JA", kEnglishUi, ja},
        {L"fr", kGermanUi, en},        {L"j a", kJapaneseUi, ja},      {L"j a", kEnglishUi, en},
        {L"", kJapaneseUi, ja},        {L"auto", kEnglishUi, en},      {L"", 0x0C11, ja},  // any Japanese sublanguage
        {L"\u00C9N", kJapaneseUi, ja},      // only A..Z fold
        {L"\u00A0ja", kEnglishUi, en},      // a no-break space is not trimmed
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ChooseLanguage(c.configured, c.ui), c.expected)
            << testing::PrintToString(std::wstring(c.configured)) << " on UI 0x" << std::hex << c.ui;
    }
}

TEST(Language, TheLinuxLocaleAsTheCLibraryRanksIt) {
    constexpr uint16_t ja = 0x0411, en = 0x0409;
    const struct { const char* all; const char* messages; const char* lang; uint16_t expected; } cases[] = {
        {nullptr, nullptr, "ja_JP.UTF-8", ja}, {nullptr, nullptr, "ja", ja},  {nullptr, nullptr, "ja@x", ja},
        {nullptr, nullptr, "en_US.UTF-8", en}, {nullptr, nullptr, "C", en},   {nullptr, nullptr, nullptr, en},
        {"C.UTF-8", "ja_JP", "ja_JP", en},     {nullptr, "en_GB", "ja_JP", en}, {"", "", "ja_JP.eucJP", ja},
        {nullptr, nullptr, "jam_JM", en},      {nullptr, nullptr, "JA_JP", en},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(UiLanguageFromLocale(c.all, c.messages, c.lang), c.expected)
            << (c.all ? c.all : "-") << " " << (c.messages ? c.messages : "-") << " " << (c.lang ? c.lang : "-");
    }
}

TEST(Language, TheLinuxEditionAppliesTheLocalesLanguage) {
    const auto japanese = [] {
        return std::any_of(InstructionText.begin(), InstructionText.end(), [](wchar_t c) { return c > 0x3000; });
    };
    const char* const names[] = {"LC_ALL", "LC_MESSAGES", "LANG"};
    std::vector<std::pair<const char*, std::string>> saved;
    for (const char* name : names) {
        if (const char* value = std::getenv(name)) saved.emplace_back(name, value);
        unsetenv(name);
    }
    setenv("LANG", "ja_JP.UTF-8", 1);
    SetupLanguage(L"");
    EXPECT_TRUE(japanese());
    setenv("LANG", "en_GB.UTF-8", 1);
    SetupLanguage(L"");
    EXPECT_FALSE(japanese());
    SetupLanguage(L"ja");
    EXPECT_TRUE(japanese()) << "the configured language first";
    for (const char* name : names) unsetenv(name);
    for (const auto& [name, value] : saved) setenv(name, value.c_str(), 1);
}

TEST(AppDataFolder, TheLinuxConfigurationFolder) {
    EXPECT_EQ(ConfigurationBase("/home/k/.cfg", "/home/k"), "/home/k/.cfg");
    EXPECT_EQ(ConfigurationBase(nullptr, "/home/k"), "/home/k/.config");
    EXPECT_EQ(ConfigurationBase("relative", "/home/k"), "/home/k/.config");  // only absolute paths count
    EXPECT_EQ(ConfigurationBase("", ""), ".");
    EXPECT_EQ(ConfigurationBase(nullptr, nullptr), ".");
}

TEST(VolumeClamp, LowersNeverRaisesAndOpensNothingWithoutACeiling) {
    const struct {
        const char* what;
        int32_t percent;
        bool present, readable;
        float level;
        int openAttempts;
        std::vector<float> sets;
    } cases[] = {
        {"0.80 under a 35 % ceiling", 35, true, true, 0.80f, 1, {0.35f}},
        {"0.20 stays", 35, true, true, 0.20f, 1, {}},
        {"at the ceiling stays", 35, true, true, 0.35f, 1, {}},
        {"1 % ceiling", 1, true, true, 0.5f, 1, {0.01f}},
        {"no ceiling", 0, true, true, 0.80f, 0, {}},
        {"ceiling above 100 % counts as 100 %", 101, true, true, 0.80f, 1, {}},
        {"no playback device", 35, false, true, 0.80f, 1, {}},
        {"level unreadable", 35, true, false, 0.80f, 1, {}},
    };
    for (const auto& c : cases) {
        g_fakeEndpoint = FakeEndpoint{};
        g_fakeEndpoint.present = c.present;
        g_fakeEndpoint.readable = c.readable;
        g_fakeEndpoint.level = c.level;
        g_volumeClampPercent = c.percent;
        ClampMasterVolume();
        EXPECT_EQ(g_fakeEndpoint.openAttempts, c.openAttempts) << c.what;
        EXPECT_EQ(g_fakeEndpoint.sets, c.sets) << c.what;
        EXPECT_EQ(g_fakeEndpoint.closed, g_fakeEndpoint.opened) << c.what << ": released within the call";
    }
    g_volumeClampPercent = 0;
}

TEST(BestScore, LeadingPositiveNumberElseZero) {
    using namespace std::string_view_literals;
    const struct { std::string_view text; int32_t best; } cases[] = {
        {"42\r\n", 42},  {"  42 trailing words", 42}, {"+5", 5},        {"12abc", 12},
        {"1,234", 1},    {"2147483647", 2147483647},  {"2147483648", 0}, {"-2147483649", 0},
        {"-3", 0},       {"0", 0},                    {"", 0},           {"words 42", 0},
        {"12345678901234567890", 0},  // twenty digits
        {"-0", 0},       {"\n\t 9", 9},               {"7\0\xFF\x01"sv, 7},  // binary after the number
        {"\0\x01\xFE" "42"sv, 0},   // binary before it
        {"\xEF\xBB\xBF" "42\r\n", 0},  // saved by an editor with a UTF-8 mark
        {"\xD9\xA4\xD9\xA2", 0},      // Arabic-Indic digits are no number here
    };
    for (const auto& c : cases) {
        std::istringstream text{std::string(c.text)};
        EXPECT_EQ(ParseBestScore(text), c.best) << testing::PrintToString(std::string(c.text));
    }
}

TEST(BestScore, SavedReadBackAndZeroWithoutAFile) {
    g_bestScore = 42;
    SaveBestScore();
    std::ifstream saved(FilePath(AppDataFile(L"high_score.txt")), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(saved), {}), "42\r\n") << "the Windows program's bytes";
    g_bestScore = 7;
    LoadBestScore();
    EXPECT_EQ(g_bestScore, 42);
    std::filesystem::remove(AppDataFile(L"high_score.txt"));
    LoadBestScore();
    EXPECT_EQ(g_bestScore, 0);
}

TEST(VolumeCeiling, TheNumberReadHeldTo0To100) {
    // The number config.ini gives (a word reads as 0): no clamp for 0.
    const struct { int32_t read; int32_t percent; } cases[] = {
        {150, 100}, {-5, 0}, {0, 0}, {35, 35}, {100, 100}, {2147483647, 100}, {-2147483647 - 1, 0}, {101, 100}, {-1, 0},
    };
    for (const auto& c : cases) EXPECT_EQ(ClampVolumePercent(c.read), c.percent) << c.read;
}

}  // namespace
