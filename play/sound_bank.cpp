// Sound synthesis: every sample from a formula in 32-bit floats.
#include "play/sound_bank.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

#include "play/platform.h"

SoundBank g_soundBank;
bool g_soundEnabled = true;

namespace {

constexpr float kTwoPi = 6.2831855f;

// Clamped before scaling, so -32768 never occurs; truncated toward zero.
int16_t ToSample(float v) {
    return static_cast<int16_t>(std::clamp(v, -1.0f, 1.0f) * 32767.0f);
}

void PutLittleEndian(WavImage& image, size_t offset, uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) image[offset + i] = static_cast<uint8_t>(value >> (8 * i));
}

void PutTag(WavImage& image, size_t offset, const char (&tag)[5]) {
    std::memcpy(image.data() + offset, tag, 4);
}

WavImage SynthBlowChirp() {
    constexpr uint32_t kRate = 22050;
    std::vector<int16_t> samples(1984, 0);
    for (size_t i = 0; i < samples.size(); ++i) {
        const float t = static_cast<float>(i) / static_cast<float>(kRate);
        const float a = std::min(t * 30, (0.09f - t) * 24);
        const float envelope = std::min(a, 1.0f) * 0.12f;
        // The frequency term grows with t and is multiplied by t again: the
        // pitch heard rises from 1200 Hz to about 2600 Hz.
        samples[i] = ToSample(std::sin((t / 0.09f * 700 + 1200) * kTwoPi * t) * envelope);
    }
    return MakeWav(samples, kRate);
}

}  // namespace

WavImage MakeWav(const std::vector<int16_t>& samples, uint32_t sampleRate) {
    const uint32_t dataSize = static_cast<uint32_t>(2 * samples.size());
    WavImage image(44 + dataSize, 0);
    PutTag(image, 0, "RIFF");
    PutLittleEndian(image, 4, 36 + dataSize, 4);
    PutTag(image, 8, "WAVE");
    PutTag(image, 12, "fmt ");
    PutLittleEndian(image, 16, 16, 4);  // format chunk size
    PutLittleEndian(image, 20, 1, 2);   // PCM
    PutLittleEndian(image, 22, 1, 2);   // mono
    PutLittleEndian(image, 24, sampleRate, 4);
    PutLittleEndian(image, 28, 2 * sampleRate, 4);  // bytes per second
    PutLittleEndian(image, 32, 2, 2);               // bytes per sample frame
    PutLittleEndian(image, 34, 16, 2);              // bits per sample
    PutTag(image, 36, "data");
    PutLittleEndian(image, 40, dataSize, 4);
    for (size_t i = 0; i < samples.size(); ++i) {
        PutLittleEndian(image, 44 + 2 * i, static_cast<uint16_t>(samples[i]), 2);
    }
    return image;
}

WavImage SynthPopSound(float pitch) {
    constexpr uint32_t kRate = 44100;
    // A noise engine of its own with a seed from the pitch: the shared
    // random source is not touched, and the pops are the same in every run.
    std::mt19937 noise(12345u - static_cast<uint32_t>(static_cast<int32_t>(pitch)) * 1640531535u);
    std::vector<int16_t> samples(3969, 0);
    float x = 0;  // phase
    for (size_t i = 0; i < samples.size(); ++i) {
        const float t = static_cast<float>(i) / static_cast<float>(kRate);
        const float body = std::exp(-t * 42);
        const float glide = std::exp(-t * 30);
        x += (glide * pitch + 120) * kTwoPi / static_cast<float>(kRate);
        const float tone = std::sin(x + x) * 0.18f + std::sin(x) * 0.7f;  // octave and fundamental
        float click = 0;
        if (t < 0.004f) {  // the first 177 samples; no draws afterwards
            const float u = static_cast<float>(noise() >> 8) * 5.9604645e-8f;
            click = std::exp(-t * 900) * (2 * u - 1) * 0.7f;
        }
        samples[i] = ToSample((tone * body + click) * 0.55f);
    }
    return MakeWav(samples, kRate);
}

WavImage SynthCheerSound() {
    constexpr uint32_t kRate = 22050;
    struct Note {
        float frequency;  // Hz
        int32_t durationMs;
    };
    constexpr Note kNotes[] = {{784, 110}, {988, 110}, {1175, 110}, {1568, 260}};
    std::vector<int16_t> samples;
    for (const Note& note : kNotes) {
        const int32_t count = note.durationMs * static_cast<int32_t>(kRate) / 1000;
        const float d = static_cast<float>(note.durationMs) / 1000.0f;
        const float w = note.frequency * kTwoPi;
        for (int32_t j = 0; j < count; ++j) {
            const float t = static_cast<float>(j) / static_cast<float>(kRate);
            // A 22 ms attack and a 33 ms release, peaking at 0.24.
            const float a = std::min(t * 45, (d - t) * 30);
            const float envelope = std::min(a, 1.0f) * 0.24f;
            samples.push_back(ToSample((std::sin(t * w) * 0.7f + std::sin(t * (w + w)) * 0.2f) * envelope));
        }
    }
    return MakeWav(samples, kRate);
}

void BuildSoundBank() {
    g_soundBank.popSounds.clear();
    for (float pitch : {1500.0f, 1250.0f, 1750.0f, 1050.0f}) {
        g_soundBank.popSounds.push_back(SynthPopSound(pitch));
    }
    g_soundBank.blowSound = SynthBlowChirp();
    g_soundBank.cheerSound = SynthCheerSound();
}

void PlayMemorySound(const WavImage& image) {
    if (image.empty()) return;  // never hand the player nothing
    PlayWavImage(image.data());
}
