// The shell's process-wide flags and the settings rule that fills one of them.
#include "app/shell.h"

#include "settings/settings.h"

bool g_soundEnabled = true;
bool g_blockShortcuts = true;
float g_volumeClampLevel = -1.0f;
bool g_playEnded = false;

float VolumeClampLevel(int32_t percent) {
    if (percent < 1 || percent > 100) return -1.0f;
    return static_cast<float>(percent / 100.0);
}

void ApplySettings(const Settings& settings) {
    g_soundEnabled = settings.soundEnabled;
    g_blockShortcuts = settings.blockSystemShortcuts;
    g_volumeClampLevel = VolumeClampLevel(settings.volumeClampPercent);
}
