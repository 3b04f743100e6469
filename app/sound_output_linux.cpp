// The sound output of the Linux edition: SDL's default audio device, opened
// once, playing one sound at a time as the Windows sound player does (a new
// sound replaces the one playing). Without a device every sound is dropped.
#include <SDL.h>

#include <cstring>
#include <map>
#include <vector>

#include "app/shell_linux.h"

namespace {

constexpr int kRate = 44100;
SDL_AudioDeviceID g_device = 0;
SDL_AudioSpec g_deviceFormat{};
// The bank's images converted to the device's format, made at their first
// playing; the images never change during a run.
std::map<const uint8_t*, std::vector<uint8_t>> g_converted;

uint32_t ImageSize(const uint8_t* image) {
    // The RIFF chunk's size, after its eight-byte header.
    uint32_t riffSize = 0;
    std::memcpy(&riffSize, image + 4, sizeof riffSize);
    return riffSize + 8;
}

std::vector<uint8_t> Convert(const uint8_t* image) {
    SDL_AudioSpec imageFormat;
    Uint8* samples = nullptr;
    Uint32 length = 0;
    SDL_RWops* stream = SDL_RWFromConstMem(image, static_cast<int>(ImageSize(image)));
    if (!SDL_LoadWAV_RW(stream, 1, &imageFormat, &samples, &length)) return {};
    std::vector<uint8_t> out;
    SDL_AudioCVT cvt;
    if (SDL_BuildAudioCVT(&cvt, imageFormat.format, imageFormat.channels, imageFormat.freq, g_deviceFormat.format,
                          g_deviceFormat.channels, g_deviceFormat.freq) >= 0) {
        cvt.len = static_cast<int>(length);
        std::vector<uint8_t> buffer(static_cast<size_t>(length) * static_cast<size_t>(cvt.len_mult));
        std::memcpy(buffer.data(), samples, length);
        cvt.buf = buffer.data();
        if (SDL_ConvertAudio(&cvt) == 0) out.assign(buffer.begin(), buffer.begin() + cvt.len_cvt);
    }
    SDL_FreeWAV(samples);
    return out;
}

}  // namespace

void OpenSoundOutput() {
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return;
    SDL_AudioSpec wanted{};
    wanted.freq = kRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 1;
    wanted.samples = 1024;
    // The device may differ; the sounds are converted to what it took.
    g_device = SDL_OpenAudioDevice(nullptr, 0, &wanted, &g_deviceFormat, SDL_AUDIO_ALLOW_ANY_CHANGE);
    if (g_device) SDL_PauseAudioDevice(g_device, 0);
}

void CloseSoundOutput() {
    if (g_device) SDL_CloseAudioDevice(g_device);
    g_device = 0;
    g_converted.clear();
}

void PlaySoundImage(const uint8_t* image) {
    if (!g_device || !image) return;
    auto found = g_converted.find(image);
    if (found == g_converted.end()) found = g_converted.emplace(image, Convert(image)).first;
    SDL_ClearQueuedAudio(g_device);
    if (!found->second.empty()) {
        SDL_QueueAudio(g_device, found->second.data(), static_cast<Uint32>(found->second.size()));
    }
}
