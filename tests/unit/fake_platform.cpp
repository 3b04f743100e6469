// The recording stand-in for the operating system, linked into the native
// tests and benchmarks in place of the Win32 layer.
#include "tests/unit/fake_platform.h"

#include "play/display_records.h"
#include "play/sound_bank.h"
#include "play/platform.h"
#include "play/play_field.h"
#include "play/random.h"
#include "settings/high_score.h"
#include "settings/language.h"

FakePlatform g_fake;

uint32_t TickCount() { return g_fake.now; }
bool LeftButtonDown() { return g_fake.leftButtonDown; }
void CaptureMouse(WindowHandle window) { g_fake.capture = window; }
WindowHandle MouseCaptureWindow() { return g_fake.capture; }
void ReleaseMouseCapture() { g_fake.capture = nullptr; }
void PlayWavImage(const uint8_t* image) { g_fake.played.push_back(image); }
void InvalidateClientRect(WindowHandle window, const Rect& client) { g_fake.invalidated.push_back({window, client}); }
void EndPlay() { ++g_fake.endPlayCalls; }

bool LoadedPoseSize(PosePictureKind image, int32_t& width, int32_t& height) {
    const auto found = g_fake.poseSizes.find(image);
    if (found == g_fake.poseSizes.end()) return false;
    std::tie(width, height) = found->second;
    return true;
}

WindowHandle FakeWindow(uintptr_t id) { return reinterpret_cast<WindowHandle>(id * 0x10); }

void ResetWorld(uint32_t seed) {
    g_fake = FakePlatform{};
    g_playField = PlayField{};
    g_soundEnabled = true;
    SetLanguageTexts(Language::kJapanese);  // the program always has its texts
    g_bestScore = 0;
    g_dpiScale = 1.0f;
    DisplayWindow home;
    home.playRect = home.screenRect = {0, 0, 1920, 1080};
    home.width = 1920;
    home.height = 1080;
    home.window = g_homeWindow = FakeWindow(1);
    home.home = true;
    g_displayWindows = {home};
    g_virtualLeft = g_virtualTop = 0;
    g_virtualWidth = 1920;
    g_virtualHeight = 1080;
    SeedRandom(seed);
}
