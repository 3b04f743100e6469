// Process-wide flags of the application shell and the end-of-play routine.
// All of them live on the one user-interface thread.
#pragma once

#include <cstdint>

// Sound on or off for this run: starts from the settings, flipped by the
// on-screen sound button, never written back.
extern bool g_soundEnabled;
// Whether the keyboard guard is installed at start-up (from the settings).
extern bool g_blockShortcuts;
// Master-volume ceiling as a fraction, or -1.0 for no clamp.
extern float g_volumeClampLevel;
// Set once play has ended; never cleared.
extern bool g_playEnded;

// The ceiling for a configured percent: 1..100 become 0.01..1.0, anything
// else (0, the default, included) means no clamp.
float VolumeClampLevel(int32_t percent);

struct Settings;
// Takes the settings' sound, guard and ceiling into the flags above; called
// once at start-up after the settings are read.
void ApplySettings(const Settings& settings);

// Ends play: called by the finish button and by Alt+F4 through the keyboard
// guard. A second call does nothing. Posts the quit message; the teardown
// happens when the message loop sees it.
void EndPlay();
