// The master volume of the default playback device, as a 0.0..1.0 scalar
// (the system volume slider). The clamp opens it, reads, perhaps lowers it
// and closes it within one call; nothing is kept between calls. Platform
// layer: master_volume_win.cpp (Core Audio), master_volume_linux.cpp
// (PulseAudio); the native tests link a stand-in.
// There is deliberately no way to touch mute.
#pragma once

struct MasterVolume;  // the platform's endpoint-volume object

// Null when any step fails: COM not initialized, no playback device, no
// endpoint-volume interface; on Linux no sound server, or none answering in
// time.
MasterVolume* OpenMasterVolume();

// The current level; false when it cannot be read.
bool GetMasterLevel(MasterVolume* volume, float& level);

// Asks for a new level; whether the device takes it is not reported (Wine
// refuses every change).
void SetMasterLevel(MasterVolume* volume, float level);

// Releases what OpenMasterVolume made.
void CloseMasterVolume(MasterVolume* volume);
