// Holds the master volume at or below the configured ceiling: lowers it,
// never raises it, never restores it.
#include "settings/volume_clamp.h"

#include "app/shell.h"
#include "settings/master_volume.h"

void ClampMasterVolume() {
    const float ceiling = g_volumeClampLevel;
    // Outside (0, 1] there is no clamp, and no audio object is ever made.
    if (!(ceiling > 0.0f && ceiling <= 1.0f)) return;
    MasterVolume* volume = OpenMasterVolume();
    // No device now: the next topmost tick tries again, so a device plugged
    // in later is clamped within 1.5 s.
    if (!volume) return;
    float level = 1.0f;
    if (GetMasterLevel(volume, level) && level > ceiling) SetMasterLevel(volume, ceiling);
    CloseMasterVolume(volume);
}
