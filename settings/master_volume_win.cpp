// The default playback device's master level through Core Audio. Every
// object is made and released within the one clamp call that uses it.
#include <windows.h>
#include <endpointvolume.h>
#include <mmdeviceapi.h>

#include "settings/master_volume.h"

namespace {

constexpr CLSID kMMDeviceEnumerator = {
    0xBCDE0395, 0xE52F, 0x467C, {0x8E, 0x3D, 0xC4, 0x57, 0x92, 0x91, 0x69, 0x2E}};
constexpr IID kIMMDeviceEnumerator = {
    0xA95664D2, 0x9614, 0x4F35, {0xA7, 0x46, 0xDE, 0x8D, 0xB6, 0x36, 0x17, 0xE6}};
constexpr IID kIAudioEndpointVolume = {
    0x5CDF2C82, 0x841E, 0x4546, {0x97, 0x22, 0x0C, 0xF7, 0x40, 0x78, 0x22, 0x9A}};

IAudioEndpointVolume* Endpoint(MasterVolume* volume) {
    return reinterpret_cast<IAudioEndpointVolume*>(volume);
}

}  // namespace

MasterVolume* OpenMasterVolume() {
    IMMDeviceEnumerator* enumerator = nullptr;
    if (FAILED(CoCreateInstance(kMMDeviceEnumerator, nullptr, CLSCTX_INPROC_SERVER, kIMMDeviceEnumerator,
                                reinterpret_cast<void**>(&enumerator))) ||
        !enumerator) {
        return nullptr;
    }
    IMMDevice* device = nullptr;
    const HRESULT found = enumerator->GetDefaultAudioEndpoint(eRender, eConsole, &device);
    enumerator->Release();
    if (FAILED(found) || !device) return nullptr;

    IAudioEndpointVolume* volume = nullptr;
    const HRESULT activated =
        device->Activate(kIAudioEndpointVolume, CLSCTX_ALL, nullptr, reinterpret_cast<void**>(&volume));
    device->Release();
    if (FAILED(activated) || !volume) return nullptr;
    return reinterpret_cast<MasterVolume*>(volume);
}

bool GetMasterLevel(MasterVolume* volume, float& level) {
    return SUCCEEDED(Endpoint(volume)->GetMasterVolumeLevelScalar(&level));
}

void SetMasterLevel(MasterVolume* volume, float level) {
    // No event context: the change is nobody's in particular.
    Endpoint(volume)->SetMasterVolumeLevelScalar(level, nullptr);
}

void CloseMasterVolume(MasterVolume* volume) { Endpoint(volume)->Release(); }
