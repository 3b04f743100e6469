// Holds the default output's master volume under the configured ceiling.
#pragma once

// Lowers the master volume to g_volumeClampLevel when it is higher; never
// raises it. Called at start-up and on every topmost-timer tick.
void ClampMasterVolume();
