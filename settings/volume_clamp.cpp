// Holds the master volume at or below the configured ceiling: lowers it,
// never raises it, never restores it.
#include "settings/volume_clamp.h"

#include "settings/config_values.h"
#include "settings/master_volume.h"

int32_t g_volumeClampPercent = 0;

void ClampMasterVolume() {
    const int32_t percent = ClampVolumePercent(g_volumeClampPercent);
    // Without a ceiling no audio object is ever made.
    if (percent == 0) return;
    const auto ceiling = static_cast<float>(percent / 100.0);
    MasterVolume* volume = OpenMasterVolume();
    // No device now: the next topmost tick tries again, so a device plugged
    // in later is clamped within 1.5 s.
    if (!volume) return;
    float level = 1.0f;
    if (GetMasterLevel(volume, level) && level > ceiling) SetMasterLevel(volume, ceiling);
    CloseMasterVolume(volume);
}
