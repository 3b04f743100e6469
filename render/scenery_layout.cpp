// The five landscapes as numbers. Every position is a fraction of the
// window's width or height and every size a multiple of the scale unit k;
// nothing depends on time or on the random source.
#include "render/scenery_layout.h"

#include <algorithm>
#include <cmath>

namespace {

// The petal colours, written as ARGB like the rest of the palette.
constexpr Colour kParkPetals[] = {
    ColourFromArgb(0xFFFF78A0),  // pink
    ColourFromArgb(0xFFFFC846),  // yellow
    ColourFromArgb(0xFFAA82EB),  // violet
    ColourFromArgb(0xFFFF9678),  // coral
};
constexpr Colour kGardenPetals[] = {
    ColourFromArgb(0xFFFF82AA),  // pink
    ColourFromArgb(0xFFFFCD50),  // yellow
    ColourFromArgb(0xFFB48CF0),  // violet
    ColourFromArgb(0xFF78C8EB),  // sky blue
};
constexpr Colour kFieldPetals[] = {
    kParkPetals[0], kParkPetals[1], kParkPetals[2], kParkPetals[3],
    ColourFromArgb(0xFF78C8EB),  // sky blue
};

// The window's rectangle as the themes measure it: a position (a W, b H)
// is the point (L + a W, T + b H).
struct Frame {
    float left, top, width, height, k;
    Rect rect;

    explicit Frame(const Rect& r)
        : left(static_cast<float>(r.left)),
          top(static_cast<float>(r.top)),
          width(static_cast<float>(Width(r))),
          height(static_cast<float>(Height(r))),
          k(SceneryUnit(r)),
          rect(r) {}

    float X(float a) const { return left + a * width; }
    float Y(float b) const { return top + b * height; }

    SkyOrGround Sky(uint32_t topArgb, uint32_t bottomArgb) const {
        return {rect, ColourFromArgb(topArgb), ColourFromArgb(bottomArgb)};
    }
    // A ground or sea band from y down to the bottom edge; its top is y
    // truncated to a whole pixel.
    SkyOrGround Band(float y, uint32_t topArgb, uint32_t bottomArgb) const {
        return {{rect.left, static_cast<int32_t>(y), rect.right, rect.bottom},
                ColourFromArgb(topArgb), ColourFromArgb(bottomArgb)};
    }
    Sun SunAt(float a, float b, float radius, uint32_t argb) const {
        return {X(a), Y(b), radius * k, ColourFromArgb(argb)};
    }
    Cloud CloudAt(float a, float b, float w, float h) const { return {X(a), Y(b), w * k, h * k}; }
};

void Seaside(const Frame& f, std::vector<SceneryElement>& plan) {
    plan.push_back(f.Sky(0xFF96D6FF, 0xFFD6F4FF));
    plan.push_back(f.SunAt(0.8f, 0.2f, 70, 0xFFFFE05C));
    plan.push_back(f.CloudAt(0.24f, 0.18f, 260, 110));
    plan.push_back(f.CloudAt(0.55f, 0.3f, 200, 84));
    const float seaTop = f.Y(0.58f);
    plan.push_back(f.Band(seaTop, 0xFF40A8E0, 0xFF2678BE));

    // Seven rows, although only the first four lie on the window: the rows
    // are spaced by the whole height, not the sea's.
    WaveCrests crests{std::max(4 * f.k, 2.0f), {}};
    for (int j = 0; j <= 6; ++j) {
        const float y = seaTop + (0.06f + 0.11f * static_cast<float>(j)) * f.height;
        for (float x = 0.05f * f.width; x < 0.95f * f.width; x += 120 * f.k) {
            crests.arcs.push_back({f.left + x, y, 70 * f.k, 26 * f.k});
        }
    }
    plan.push_back(std::move(crests));
}

void Mountains(const Frame& f, std::vector<SceneryElement>& plan) {
    plan.push_back(f.Sky(0xFFA8DCFF, 0xFFE2F6FF));
    plan.push_back(f.SunAt(0.18f, 0.18f, 64, 0xFFFFE260));
    plan.push_back(f.CloudAt(0.62f, 0.16f, 240, 100));
    // The second mountain stands over the first; its peak lies above the top
    // edge and the clip cuts its tip off.
    const float baseY = f.Y(0.72f);
    plan.push_back(Mountain{f.X(0.32f), baseY, 0.55f * f.width, 0.62f * f.height,
                            ColourFromArgb(0xFF78B084)});
    plan.push_back(Mountain{f.X(0.66f), baseY, 0.62f * f.width, 0.74f * f.height,
                            ColourFromArgb(0xFF609C74)});
    plan.push_back(f.Band(baseY, 0xFF96D47A, 0xFF7ABE68));
    plan.push_back(Tree{f.X(0.14f), f.Y(0.94f), 0.9f * f.k});
    plan.push_back(Tree{f.X(0.86f), f.Y(0.96f), f.k});
}

void Park(const Frame& f, std::vector<SceneryElement>& plan) {
    const float groundY = f.Y(0.66f);
    plan.push_back(f.Sky(0xFFB0E0FF, 0xFFE6F6FF));
    plan.push_back(f.SunAt(0.82f, 0.17f, 62, 0xFFFFE260));
    plan.push_back(f.CloudAt(0.22f, 0.16f, 240, 100));
    plan.push_back(f.CloudAt(0.52f, 0.24f, 190, 80));
    plan.push_back(f.Band(groundY, 0xFF9AD678, 0xFF78BC64));
    plan.push_back(Tree{f.X(0.2f), groundY + 0.2f * f.height, 1.15f * f.k});
    plan.push_back(Tree{f.X(0.78f), groundY + 0.24f * f.height, 1.25f * f.k});
    // Nine flowers at hashed places; those hashed below the bottom edge are
    // clipped away.
    constexpr float kOffset = 25.9796f;
    for (int i = 0; i <= 8; ++i) {
        const float a = 0.08f + 0.84f * Hash01(3 * i + 1, kOffset);
        const float b = 0.16f + 0.7f * Hash01(3 * i + 2, kOffset);
        plan.push_back(Flower{f.X(a), groundY + b * f.height, 34 * f.k, kParkPetals[i % 4]});
    }
}

void Garden(const Frame& f, std::vector<SceneryElement>& plan) {
    const float groundY = f.Y(0.8f);
    plan.push_back(f.Sky(0xFF96CEFA, 0xFFE0F4FF));
    plan.push_back(f.SunAt(0.16f, 0.16f, 74, 0xFFFFDE58));
    plan.push_back(f.CloudAt(0.44f, 0.14f, 300, 120));
    plan.push_back(f.CloudAt(0.74f, 0.26f, 220, 92));
    plan.push_back(f.CloudAt(0.2f, 0.36f, 180, 76));
    plan.push_back(f.Band(groundY, 0xFF9ED87C, 0xFF7EC068));
    // Eight flowers in two staggered lines.
    constexpr float kOffset = 38.9694f;
    for (int i = 0; i <= 7; ++i) {
        const float a = 0.06f + 0.88f * Hash01(5 * i + 1, kOffset);
        const float b = 0.06f + 0.1f * static_cast<float>(i % 2);
        plan.push_back(Flower{f.X(a), groundY + b * f.height, 30 * f.k, kGardenPetals[i % 4]});
    }
}

void FlowerField(const Frame& f, std::vector<SceneryElement>& plan) {
    const float groundY = f.Y(0.52f);
    plan.push_back(f.Sky(0xFFB4E2FF, 0xFFE8F8FF));
    plan.push_back(f.SunAt(0.8f, 0.18f, 66, 0xFFFFE05C));
    plan.push_back(f.CloudAt(0.26f, 0.16f, 240, 100));
    plan.push_back(f.Band(groundY, 0xFFA2DC80, 0xFF78BE66));
    // Four rows of growing flowers, odd rows shifted right; the last two lie
    // below the bottom edge.
    for (int j = 0; j <= 3; ++j) {
        const int n = j + 6;
        const float size = static_cast<float>(28 + 8 * j) * f.k;
        const float y = groundY + (0.14f + 0.2f * static_cast<float>(j)) * f.height;
        const float shift = (j % 2 == 1) ? 20 * f.k : 0.0f;
        for (int i = 0; i < n; ++i) {
            const float a = (static_cast<float>(i) + 0.5f) / static_cast<float>(n);
            plan.push_back(Flower{f.X(a) + shift, y, size, kFieldPetals[(i + j) % 5]});
        }
    }
}

BoxF CircleBox(float cx, float cy, float radius) {
    return {cx - radius, cy - radius, 2 * radius, 2 * radius};
}

}  // namespace

SceneryTheme SceneryThemeFromValue(uint32_t value) {
    return value <= 3 ? static_cast<SceneryTheme>(value) : SceneryTheme::FlowerField;
}

float SceneryUnit(const Rect& rect) {
    return static_cast<float>(std::min(Width(rect), Height(rect))) / 750.0f;
}

float Hash01(int32_t n, float offset) {
    const float angle = static_cast<float>(n) * 78.233f + offset;
    // The sine goes through double and is rounded once to float: that is the
    // correctly rounded float sine on every C library, whereas float sines
    // differ in their last bit between libraries, and the hash magnifies
    // that bit into whole pixels.
    const float sine = static_cast<float>(std::sin(static_cast<double>(angle)));
    const float v = sine * 43758.547f;
    return v - std::floor(v);
}

GradientShape SkyOrGroundGradient(const Rect& rect) {
    const float left = static_cast<float>(rect.left);
    return {{left, static_cast<float>(rect.top) - 1}, {left, static_cast<float>(rect.bottom) + 1}};
}

SunShape SunGeometry(float cx, float cy, float radius) {
    SunShape sun;
    sun.rayPenWidth = std::max(0.14f * radius, 2.0f);
    for (int i = 0; i < 12; ++i) {
        const float angle = static_cast<float>(i) * 0.5235988f;  // 30 degrees
        const float c = std::cos(angle);
        const float s = std::sin(angle);
        sun.rays[i] = {{cx + 1.15f * radius * c, cy + 1.15f * radius * s},
                       {cx + 1.45f * radius * c, cy + 1.45f * radius * s}};
    }
    sun.disc = CircleBox(cx, cy, radius);
    return sun;
}

std::array<BoxF, 4> CloudEllipses(float cx, float cy, float w, float h) {
    return {{
        {cx - 0.5f * w, cy - 0.1f * h, 0.55f * w, 0.75f * h},
        {cx - 0.18f * w, cy - 0.55f * h, 0.58f * w, 1.05f * h},
        {cx + 0.06f * w, cy - 0.3f * h, 0.5f * w, 0.85f * h},
        {cx - 0.5f * w, cy + 0.05f * h, w, 0.55f * h},
    }};
}

FlowerShape FlowerGeometry(float cx, float cy, float s) {
    return {{cx - 0.1f * s, cy, 0.2f * s, 1.4f * s},
            {-0.36f * s, -0.98f * s, 0.72f * s, 0.92f * s},
            CircleBox(cx, cy, 0.34f * s)};
}

TreeShape TreeGeometry(float x, float groundY, float q) {
    const float top = groundY - 80 * q;
    const float f = 78 * q;
    return {{x - 11 * q, top, 22 * q, 80 * q},
            {x - f, top - 1.1f * f, 2 * f, 2 * f},
            {{
                {x - 0.7f * f, top - 1.7f * f, 1.4f * f, 1.4f * f},
                {x - 1.15f * f, top - 0.7f * f, 1.2f * f, 1.2f * f},
                {x + 0.05f * f, top - 0.7f * f, 1.2f * f, 1.2f * f},
            }}};
}

MountainShape MountainGeometry(float px, float by, float bw, float h) {
    const float peakY = by - h;
    return {{{{px, peakY}, {px - bw / 2, by}, {px + bw / 2, by}}},
            {{{px, peakY},
              {px - 0.18f * bw, peakY + 0.28f * h},
              {px, peakY + 0.168f * h},
              {px + 0.18f * bw, peakY + 0.28f * h}}}};
}

std::vector<SceneryElement> SceneryPlan(const Rect& rect, uint32_t theme) {
    const Frame frame(rect);
    std::vector<SceneryElement> plan;
    switch (SceneryThemeFromValue(theme)) {
        case SceneryTheme::Seaside: Seaside(frame, plan); break;
        case SceneryTheme::Mountains: Mountains(frame, plan); break;
        case SceneryTheme::Park: Park(frame, plan); break;
        case SceneryTheme::Garden: Garden(frame, plan); break;
        case SceneryTheme::FlowerField: FlowerField(frame, plan); break;
    }
    return plan;
}
