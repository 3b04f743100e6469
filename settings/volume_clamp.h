// Holds the default output's master volume under the configured ceiling.
#pragma once

// Lowers the master volume to g_volumeClampLevel when it is higher; never
// raises it, never touches mute. Called at start-up (through ReassertTopmost
// and once after the keyboard guard is installed) and on every topmost-timer
// tick. Needs COM initialized on the calling thread.
void ClampMasterVolume();
