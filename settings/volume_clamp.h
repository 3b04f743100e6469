// Holds the default output's master volume under the configured ceiling.
#pragma once

#include <cstdint>

// The ceiling in percent as the settings hold it (ClampVolumePercent's
// 0..100); 0, the default, means no clamp.
extern int32_t g_volumeClampPercent;

// Lowers the master volume to the ceiling when it is higher; never raises
// it, never touches mute. Called at start-up (through ReassertTopmost and
// once after the keyboard guard is installed) and on every topmost-timer
// tick. On Windows it needs COM initialized on the calling thread.
void ClampMasterVolume();
