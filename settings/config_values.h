// What config.ini holds when the program writes it, and the rules that turn
// the numbers read from it into settings.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

// The file written on first start, after its byte-order mark: UTF-16 LE,
// every line (the last one too) ending in CR LF, no terminating null.
inline constexpr std::u16string_view kDefaultConfigText =
    u"[Puffino]\r\n"
    u"; Puffino optional settings. Encoding: UTF-16 LE with BOM.\r\n"
    u"; Path: %AppData%\\Roaming\\morvenda\\Tonkari\\Puffino\\config.ini\r\n"
    u"\r\n"
    u"SoundEnabled=1\r\n"
    u"VolumeClampPercent=0\r\n"
    u"BlockSystemShortcuts=1\r\n"
    u"\r\n"
    u"[UI]\r\n"
    u"Language=\r\n";

// Given as the default of a number read, it tells an absent key from every
// value a person would write (0x80000001), so that the older alias of the
// key is read only when the key itself is missing.
inline constexpr int32_t kAbsentKey = -2147483647;

// The language is read into this many characters: at most 63 and the
// null; a longer value is cut.
inline constexpr int kLanguageCapacity = 64;

// The number keys of the [Puffino] section, read through readNumber(key,
// fallback) as the profile functions read them: each newer key wins over
// its older alias, even when it is 0; the alias is read only when the newer
// key is missing. Shared by both editions' LoadSettings.
struct Settings;
void ReadSettingNumbers(Settings& settings, const std::function<int32_t(const char16_t* key, int32_t fallback)>& readNumber);

// The configured ceiling, held to 0..100 percent.
int32_t ClampVolumePercent(int32_t percent);
