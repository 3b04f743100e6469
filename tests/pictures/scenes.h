// The fixed scenes whose pictures are kept as references: every landscape,
// bubbles, pop effects at several ages, the penguin in each pose and
// mid-hop, every label in both languages at 96 and 144 dpi, and a frame
// composed over two windows. Each is a play-field state over a few small
// display windows; a drawing backend composes it and compares the result.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "play/geometry.h"
#include "settings/language.h"

struct SceneWindow {
    Rect playRect;
    uint32_t theme = 0;
    bool home = false;
};

struct Scene {
    std::string name;
    std::vector<SceneWindow> windows;
    float scale = 1.0f;
    Language language = Language::kJapanese;
    bool soundOn = true;
    bool plainBackground = false;  // kPlainBackground under everything, no landscape
    bool withoutFonts = false;     // drawn by a program that finds no font
    void (*setUp)() = nullptr;     // fills the play field after its layout
    Rect (*crop)() = nullptr;      // play-field area kept; null: every window
    // Optional second paint: after this change only `redraw` is composed
    // again, as a paint of a dirty rectangle would.
    void (*change)() = nullptr;
    Rect redraw{};
};

// A calm sky blue that no drawer uses, behind scenes without a landscape.
constexpr uint32_t kPlainBackground = 0xFF9CC8E8;

const std::vector<Scene>& Scenes();

// Test reports name a scene by its name.
inline void PrintTo(const Scene& scene, std::ostream* out) { *out << scene.name; }

// Sets the program's records for the scene: display windows (without
// buffers), DPI scale, language, sound, best score, a laid-out play field
// and its state. The backend then makes the buffers and composes.
void StageScene(const Scene& scene);

// The area a scene's picture covers: every window, or the crop on them.
Rect SceneArea(const Scene& scene);
