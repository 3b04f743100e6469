// The five landscapes as numbers: where every sun, cloud, wave, mountain,
// tree and flower of a theme goes on a window of a given size, and the exact
// shapes each element painter fills. The painters (scenery.cpp)
// only turn these numbers into brushes, pens and fills.
#pragma once

#include <array>
#include <cstdint>
#include <variant>
#include <vector>

#include "play/geometry.h"
#include "render/colour.h"

enum class SceneryTheme : uint32_t {
    Seaside = 0,      // sea with rows of wave crests, two clouds, sun at the right
    Mountains = 1,    // two snow-capped mountains, a tree in each lower corner
    Park = 2,         // meadow with two trees and nine flowers at hashed places
    Garden = 3,       // narrow flower bed of eight flowers in two staggered lines
    FlowerField = 4,  // wide field with rows of flowers
};
constexpr uint32_t kSceneryThemeCount = 5;

// The theme a window's sceneryTheme value draws: anything but 0..3 is the
// flower field, so a bad value still gives a friendly scene.
SceneryTheme SceneryThemeFromValue(uint32_t value);

// The scale unit k = min(W, H) / 750: every sun, cloud, tree, flower and
// wave is a multiple of it, so a scene keeps its proportions on any monitor
// (1.44 on 1920 x 1080). On a portrait window it follows the width.
float SceneryUnit(const Rect& rect);

// A fixed pseudo-random fraction in [0, 1) for flower n: the fractional part
// of sin(n x 78.233 + offset) x 43758.547 in float arithmetic. Scattered
// flowers sit at the same places on every run and every machine.
float Hash01(int32_t n, float offset);

// -- The element painters' shapes ----------------------------------------

// DrawSkyOrGround: a vertical gradient from one pixel above the rectangle
// to one pixel below it, so its first and last rows are not quite the end
// colours.
struct GradientShape {
    PointF from;  // in the top colour
    PointF to;    // in the bottom colour
};
GradientShape SkyOrGroundGradient(const Rect& rect);

// DrawSun: twelve free-standing rays and the disc.
struct SunShape {
    float rayPenWidth = 0;  // max(0.14 r, 2)
    std::array<LineF, 12> rays{};
    BoxF disc;
};
constexpr uint32_t kSunRayAlpha = 0xD2;
SunShape SunGeometry(float cx, float cy, float radius);

// DrawCloud: four overlapping ellipses in translucent white.
constexpr uint32_t kCloudColour = 0xEBFFFFFF;
std::array<BoxF, 4> CloudEllipses(float cx, float cy, float width, float height);

// DrawFlower: (cx, cy) is the middle of the blossom; the stem hangs below.
// The petal is given in the blossom's own frame (origin at the middle) and is
// drawn five times, turned by 72 degrees each.
struct FlowerShape {
    BoxF stem;
    BoxF petal;
    BoxF centre;
};
constexpr uint32_t kStemColour = 0xFF60B060;
constexpr uint32_t kFlowerCentreColour = 0xFFFFF0AA;
constexpr int kPetalCount = 5;
constexpr float kPetalTurnDegrees = 72.0f;
FlowerShape FlowerGeometry(float cx, float cy, float size);

// DrawTree: a trunk standing on groundY, a dark crown and three light leaf
// clumps over it; q scales the tree.
struct TreeShape {
    BoxF trunk;
    BoxF crown;
    std::array<BoxF, 3> leaves{};
};
constexpr uint32_t kTrunkColour = 0xFF966842;
constexpr uint32_t kCrownColour = 0xFF60BE6E;
constexpr uint32_t kLeavesColour = 0xFF78D080;
TreeShape TreeGeometry(float x, float groundY, float scale);

// DrawMountain: a triangle on its base line and a snow cap whose lower edge
// is notched upward in the middle.
struct MountainShape {
    std::array<PointF, 3> body{};
    std::array<PointF, 4> snowCap{};
};
constexpr uint32_t kSnowColour = 0xFFFAFCFF;
MountainShape MountainGeometry(float peakX, float baseY, float baseWidth, float height);

// -- A theme as a list of elements, in painting order ----------------------

struct SkyOrGround {
    Rect rect;
    Colour top;
    Colour bottom;
};
struct Sun {
    float cx = 0, cy = 0, radius = 0;
    Colour colour;
};
struct Cloud {
    float cx = 0, cy = 0, width = 0, height = 0;
};
// The sea's crests: upper arcs of ellipses, all drawn with one pen.
struct WaveCrests {
    float penWidth = 0;  // max(4 k, 2), round caps
    std::vector<BoxF> arcs;
};
constexpr uint32_t kWaveColour = 0x96EBFAFF;
constexpr float kWaveStartDegrees = 200.0f;
constexpr float kWaveSweepDegrees = 140.0f;
struct Mountain {
    float peakX = 0, baseY = 0, baseWidth = 0, height = 0;
    Colour colour;
};
struct Tree {
    float x = 0, groundY = 0, scale = 0;
};
struct Flower {
    float cx = 0, cy = 0, size = 0;
    Colour petal;
};

using SceneryElement = std::variant<SkyOrGround, Sun, Cloud, WaveCrests, Mountain, Tree, Flower>;

// Every element of the theme for the rectangle, in painting order. Rows and
// flowers that fall below the rectangle are listed all the same: the clip
// removes them. Called by DrawScenery, once per scenery buffer.
std::vector<SceneryElement> SceneryPlan(const Rect& rect, uint32_t theme);
