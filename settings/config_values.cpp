// Rules for the numbers read from config.ini.
#include "settings/config_values.h"

#include "settings/settings.h"

int32_t ClampVolumePercent(int32_t percent) {
    if (percent > 100) return 100;
    if (percent < 0) return 0;  // a negative ceiling means no clamp
    return percent;
}

void ReadSettingNumbers(Settings& settings, const std::function<int32_t(const char16_t* key, int32_t fallback)>& readNumber) {
    int32_t volume = readNumber(u"VolumeClampPercent", kAbsentKey);
    if (volume == kAbsentKey) volume = readNumber(u"MasterVolumeClampPercent", 0);
    settings.volumeClampPercent = ClampVolumePercent(volume);

    int32_t block = readNumber(u"BlockSystemShortcuts", kAbsentKey);
    if (block == kAbsentKey) block = readNumber(u"LlKeyboardHook", 1);
    settings.blockSystemShortcuts = block != 0;

    settings.soundEnabled = readNumber(u"SoundEnabled", 1) != 0;
}
