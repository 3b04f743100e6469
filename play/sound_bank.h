// The sounds of the toy, synthesized in memory once at start-up and kept as
// complete WAV images: four pops of different pitch, the rising chirp of the
// penguin starting to blow, and the four-note cheer of a praise. The player
// reads an image while it plays, so the bank never changes during play.
#pragma once

#include <cstdint>
#include <vector>

using WavImage = std::vector<uint8_t>;

struct SoundBank {
    std::vector<WavImage> popSounds;  // pitch 1500, 1250, 1750, 1050 Hz
    WavImage blowSound;               // the chirp, 22050 Hz
    WavImage cheerSound;              // the arpeggio, 22050 Hz
};

extern SoundBank g_soundBank;

// Sound on or off for this run: starts from the settings, flipped by the
// on-screen sound button, never written back.
extern bool g_soundEnabled;

// Fills the bank; called once by start-up before any window exists. A
// second call rebuilds the very same bank.
void BuildSoundBank();

// 16-bit mono samples wrapped in the canonical 44-byte RIFF/WAVE header.
WavImage MakeWav(const std::vector<int16_t>& samples, uint32_t sampleRate);

// A 0.09 s pop at 44100 Hz: a tone gliding down from pitch + 120 Hz to
// 120 Hz over a short noise click. The click's noise has its own fixed seed,
// so each pitch always sounds the same.
WavImage SynthPopSound(float pitch);

// Four rising notes, 0.59 s at 22050 Hz.
WavImage SynthCheerSound();

// Plays an image asynchronously, cutting off the sound playing; an empty
// image plays nothing. Callers check that sound is on.
void PlayMemorySound(const WavImage& image);
