// config.ini files and what the program must read from them, shared by the
// Wine tests (the real profile functions and the Windows LoadSettings) and
// the native ones (the portable profile reader and the Linux LoadSettings),
// so that the two editions cannot read one file differently.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// As Notepad saves it: UTF-16 LE (or BE) with a byte-order mark.
inline std::string Utf16File(std::u16string_view text, bool bigEndian = false) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (char16_t c : text) {
        const char low = static_cast<char>(c & 0xFF), high = static_cast<char>(c >> 8);
        bytes += bigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
}

// One key read from a file: the string read into 64 characters with the
// fallback "absent", and the number read with the fallback -2147483647.
struct ProfileCase {
    const char* what;
    std::string bytes;
    const char16_t* section;
    const char16_t* key;
    std::u16string text;
    int32_t number;
};

inline constexpr int32_t kProfileCaseFallback = -2147483647;
inline constexpr size_t kProfileCaseCapacity = 64;

inline std::vector<ProfileCase> ProfileCases() {
    constexpr int32_t absent = kProfileCaseFallback;
    const auto u = [](std::u16string_view text) { return Utf16File(text); };
    const std::u16string x63(63, u'x'), x64(64, u'x'), x100(100, u'x');
    std::u16string comments;
    while (comments.size() < 500000) comments += u"; one more line of a very long comment\r\n";
    const std::u16string longLine(200000, u'y');
    return {
        {"a number", u(u"[Puffino]\r\nVolumeClampPercent=35"), u"Puffino", u"VolumeClampPercent", u"35", 35},
        {"names in any case, white space around them",
         u(u"  [puffino]\r\n \t volumeclamppercent \t = \t 25 \t \x1A\r\n"), u" PUFFINO ", u"VolumeClampPercent ",
         u"25", 25},
        {"a word is no number", u(u"[Puffino]\r\nSoundEnabled=on"), u"Puffino", u"SoundEnabled", u"on", 0},
        {"digits then words", u(u"[Puffino]\r\nVolumeClampPercent=35 percent"), u"Puffino", u"VolumeClampPercent",
         u"35 percent", 35},
        {"a decimal point", u(u"[Puffino]\r\nVolumeClampPercent=12.7"), u"Puffino", u"VolumeClampPercent", u"12.7",
         12},
        {"a minus sign", u(u"[Puffino]\r\nVolumeClampPercent=-5"), u"Puffino", u"VolumeClampPercent", u"-5", -5},
        {"a plus sign", u(u"[Puffino]\r\nVolumeClampPercent=+7"), u"Puffino", u"VolumeClampPercent", u"+7", 7},
        {"a space after the sign", u(u"[Puffino]\r\nVolumeClampPercent=- 5"), u"Puffino", u"VolumeClampPercent",
         u"- 5", 0},
        {"two signs", u(u"[Puffino]\r\nVolumeClampPercent=--5"), u"Puffino", u"VolumeClampPercent", u"--5", 0},
        {"hexadecimal", u(u"[Puffino]\r\nVolumeClampPercent=0x1f"), u"Puffino", u"VolumeClampPercent", u"0x1f", 31},
        {"capital hexadecimal digits", u(u"[Puffino]\r\nVolumeClampPercent=0x1F"), u"Puffino", u"VolumeClampPercent",
         u"0x1F", 31},
        {"hexadecimal, capital X", u(u"[Puffino]\r\nVolumeClampPercent=0X10"), u"Puffino", u"VolumeClampPercent",
         u"0X10", 0},
        {"octal", u(u"[Puffino]\r\nVolumeClampPercent=0o17"), u"Puffino", u"VolumeClampPercent", u"0o17", 15},
        {"binary", u(u"[Puffino]\r\nVolumeClampPercent=0b101"), u"Puffino", u"VolumeClampPercent", u"0b101", 5},
        {"a signed hexadecimal", u(u"[Puffino]\r\nVolumeClampPercent=-0x10"), u"Puffino", u"VolumeClampPercent",
         u"-0x10", -16},
        {"full-width digits are no number", u(u"[Puffino]\r\nVolumeClampPercent=５０"), u"Puffino",
         u"VolumeClampPercent", u"５０", 0},
        {"a leading zero is still decimal", u(u"[Puffino]\r\nVolumeClampPercent=010"), u"Puffino",
         u"VolumeClampPercent", u"010", 10},
        {"twenty digits wrap at 32 bits", u(u"[Puffino]\r\nSoundEnabled=99999999999999999999"), u"Puffino",
         u"SoundEnabled", u"99999999999999999999", 1661992959},
        {"a number's first 29 characters count", u(u"[Puffino]\r\nVolumeClampPercent=000000000000000000000000000012"),
         u"Puffino", u"VolumeClampPercent", u"000000000000000000000000000012", 1},
        {"an empty value", u(u"[Puffino]\r\nSoundEnabled=\r\n"), u"Puffino", u"SoundEnabled", u"", absent},
        {"a key without '='", u(u"[Puffino]\r\nSoundEnabled\r\n"), u"Puffino", u"SoundEnabled", u"absent", absent},
        {"quotes around a number", u(u"[Puffino]\r\nSoundEnabled=\"0\""), u"Puffino", u"SoundEnabled", u"0", 0},
        {"a space inside quotes", u(u"[Puffino]\r\nSoundEnabled=' 5'"), u"Puffino", u"SoundEnabled", u" 5", 5},
        {"double quotes", u(u"[UI]\r\nLanguage=\"ja\""), u"UI", u"Language", u"ja", 0},
        {"single quotes", u(u"[UI]\r\nLanguage='en'"), u"UI", u"Language", u"en", 0},
        {"quotes that differ", u(u"[UI]\r\nLanguage=\"ja'"), u"UI", u"Language", u"\"ja'", 0},
        {"a lone quote", u(u"[UI]\r\nLanguage=\""), u"UI", u"Language", u"\"", 0},
        {"two quotes", u(u"[UI]\r\nLanguage=\"\""), u"UI", u"Language", u"", absent},
        {"63 characters in quotes lose their last", u(u"[UI]\r\nLanguage=\"" + x63 + u"\""), u"UI", u"Language",
         x63.substr(0, 62), 0},
        {"64 characters in quotes keep the opening one off", u(u"[UI]\r\nLanguage=\"" + x64 + u"\""), u"UI",
         u"Language", x63, 0},
        {"100 characters cut to 63", u(u"[UI]\r\nLanguage=" + x100), u"UI", u"Language", x63, 0},
        {"Japanese text", u(u"[UI]\r\nLanguage=日本語"), u"UI", u"Language", u"日本語", 0},
        {"a key twice: the first counts", u(u"[Puffino]\r\nSoundEnabled=0\r\nSoundEnabled=1"), u"Puffino",
         u"SoundEnabled", u"0", 0},
        {"a section twice: only the first is read",
         u(u"[Puffino]\r\nSoundEnabled=0\r\n[UI]\r\n[Puffino]\r\nVolumeClampPercent=30"), u"Puffino",
         u"VolumeClampPercent", u"absent", absent},
        {"a key in another section", u(u"[UI]\r\nSoundEnabled=0"), u"Puffino", u"SoundEnabled", u"absent", absent},
        {"a key before every section", u(u"SoundEnabled=0\r\n[Puffino]"), u"Puffino", u"SoundEnabled", u"absent",
         absent},
        {"a name in capitals", u(u"[UI]\r\nLANGUAGE=en"), u"UI", u"Language", u"en", 0},
        {"spaces inside the brackets", u(u"[ Puffino ]\r\nSoundEnabled=0"), u"Puffino", u"SoundEnabled", u"0", 0},
        {"words after the brackets", u(u"[Puffino] ; the toy\r\nSoundEnabled=0"), u"Puffino", u"SoundEnabled", u"0",
         0},
        {"the header ends at the line's last bracket", u(u"[Puffino] ; was [Bubbles]\r\nSoundEnabled=0"), u"Puffino",
         u"SoundEnabled", u"absent", absent},
        {"a header without its bracket opens nothing", u(u"[UI]\r\n[Puffino\r\nSoundEnabled=0"), u"Puffino",
         u"SoundEnabled", u"absent", absent},
        {"a commented-out key", u(u"[Puffino]\r\n; SoundEnabled=0\r\n#SoundEnabled=0"), u"Puffino", u"SoundEnabled",
         u"absent", absent},
        {"line feeds alone", u(u"[Puffino]\nVolumeClampPercent=40\n"), u"Puffino", u"VolumeClampPercent", u"40", 40},
        {"carriage returns alone", u(u"[Puffino]\rVolumeClampPercent=40\r"), u"Puffino", u"VolumeClampPercent", u"40",
         40},
        {"a no-break space is no white space", u(u"[Puffino]\r\nSoundEnabled=\u00A00"), u"Puffino",
         u"SoundEnabled", u"\u00A00", 0},
        {"the Kelvin sign is no K", u(u"[Puffino]\r\nLlKeyboardHoo\u212A=0"), u"Puffino", u"LlKeyboardHook",
         u"absent", absent},
        {"UTF-16 big-endian", Utf16File(u"[UI]\r\nLanguage=日本語", true), u"UI", u"Language", u"日本語", 0},
        {"UTF-8 with its mark", "\xEF\xBB\xBF[UI]\r\nLanguage=\xE6\x97\xA5\xE6\x9C\xAC", u"UI", u"Language",
         u"日本", 0},
        {"UTF-8 of the last plane", "\xEF\xBB\xBF[UI]\r\nLanguage=\xF4\x80\x80\x80", u"UI", u"Language", u"\U00100000",
         0},
        {"UTF-8 broken after its first byte", "\xEF\xBB\xBF[UI]\r\nLanguage=\xE6\x41\x42", u"UI", u"Language",
         u"\uFFFDAB", 0},
        {"plain ASCII", "[Puffino]\r\nBlockSystemShortcuts=0\r\n", u"Puffino", u"BlockSystemShortcuts", u"0", 0},
        {"UTF-8 without a mark, Japanese comments before the key",
         "; \xE8\xA8\xAD\xE5\xAE\x9A\r\n[Puffino]\r\n; \xE9\x9F\xB3\r\nVolumeClampPercent=45\r\n", u"Puffino",
         u"VolumeClampPercent", u"45", 45},
        {"UTF-16 without a mark is not read", std::string("[\0U\0I\0]\0\r\0\n\0L\0a\0n\0g\0=\0e\0n\0", 26), u"UI",
         u"Lang", u"absent", absent},
        {"a megabyte: half a million characters of comments and a 200000-character line",
         u(u"[UI]\r\n" + comments + u"Language=" + longLine), u"UI", u"Language", longLine.substr(0, 63), 0},
    };
}

// A whole config.ini and the settings LoadSettings makes of it: the older
// alias of a key counts only when the key itself is missing.
struct SettingsCase {
    const char* what;
    std::string bytes;
    int32_t volume;
    bool block, sound;
    std::wstring language;
};

inline std::vector<SettingsCase> SettingsCases() {
    const auto u = [](std::u16string_view lines) { return Utf16File(std::u16string(lines) + u"\r\n"); };
    return {
        {"empty file", u(u""), 0, true, true, L""},
        {"ceiling above 100", u(u"[Puffino]\r\nVolumeClampPercent=150"), 100, true, true, L""},
        {"negative ceiling", u(u"[Puffino]\r\nVolumeClampPercent=-5"), 0, true, true, L""},
        {"older ceiling key", u(u"[Puffino]\r\nMasterVolumeClampPercent=40"), 40, true, true, L""},
        {"newer key wins at 0", u(u"[Puffino]\r\nMasterVolumeClampPercent=40\r\nVolumeClampPercent=0"), 0, true,
         true, L""},
        {"an empty newer key counts as missing", u(u"[Puffino]\r\nVolumeClampPercent=\r\nMasterVolumeClampPercent=40"),
         40, true, true, L""},
        {"the absent-key marker itself reads as absent",
         u(u"[Puffino]\r\nVolumeClampPercent=-2147483647\r\nMasterVolumeClampPercent=40"), 40, true, true, L""},
        {"guard off beats the older key", u(u"[Puffino]\r\nLlKeyboardHook=1\r\nBlockSystemShortcuts=0"), 0, false,
         true, L""},
        {"older guard key off", u(u"[Puffino]\r\nLlKeyboardHook=0"), 0, false, true, L""},
        {"words are no numbers", u(u"[Puffino]\r\nSoundEnabled=on\r\nBlockSystemShortcuts=yes"), 0, false, false,
         L""},
        {"keys in the wrong section", u(u"[UI]\r\nSoundEnabled=0\r\n[Puffino]\r\nLanguage=ja"), 0, true, true, L""},
        {"100-character language", u(u"[UI]\r\nLanguage=" + std::u16string(100, u'x')), 0, true, true,
         std::wstring(63, L'x')},
        // Four UTF-8 bytes, two UTF-16 halves, one character where a wchar_t holds 32 bits.
        {"a character beyond 16 bits ends a UTF-8 line", "\xEF\xBB\xBF[UI]\r\nLanguage=ja\xF0\x9F\x98\x80\r\n", 0,
         true, true, L"ja\U0001F600"},
    };
}
