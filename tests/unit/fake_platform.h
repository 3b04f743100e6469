// The native tests' stand-in for the operating system: a clock and a mouse
// button the test sets, and records of the capture, the sounds played, the
// invalidated rectangles, the end of play and the loaded pose pictures.
#pragma once

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "play/geometry.h"
#include "play/window_handle.h"
#include "assets/penguin_images.h"

struct Invalidation {
    WindowHandle window = nullptr;
    Rect client;
};

struct FakePlatform {
    uint32_t now = 100000;  // TickCount(), ms
    bool leftButtonDown = false;
    WindowHandle capture = nullptr;
    std::vector<const uint8_t*> played;     // PlayWavImage, in order
    std::vector<Invalidation> invalidated;  // in order
    int endPlayCalls = 0;
    std::map<PosePictureKind, std::pair<int32_t, int32_t>> poseSizes;  // the loaded pictures
};

extern FakePlatform g_fake;

// A fresh world: the fake, the play field, sound on, best score 0, DPI
// scale 1, one 1920 x 1080 home window at the origin (not laid out), and
// the random source seeded.
void ResetWorld(uint32_t seed = 1);

// A window handle for tests, never dereferenced.
WindowHandle FakeWindow(uintptr_t id);
