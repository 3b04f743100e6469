// The landscape painters. The shapes come from scenery_layout; this file
// only turns them into fills and lines.
#include "render/scenery.h"

#include <variant>

namespace {

uint32_t Opaque(Colour colour) { return ArgbOf(colour); }

void DrawWaveCrests(Canvas& canvas, const WaveCrests& crests) {
    const Pen pen{kWaveColour, crests.penWidth, true};
    // The lower rows lie below the window and would be clipped away; they
    // are not drawn at all. Besides saving the work, that keeps Wine's GDI+
    // alive on 3840 x 2160 and 5120 x 1440 monitors, where it dies drawing
    // one of those hidden crests.
    const BoxF clip = ClipBounds(canvas);
    for (const BoxF& arc : crests.arcs) {
        // The arc's box grown by the pen and its round caps.
        const float reach = crests.penWidth;
        if (arc.x - reach >= clip.x + clip.width || arc.x + arc.width + reach <= clip.x ||
            arc.y - reach >= clip.y + clip.height || arc.y + arc.height + reach <= clip.y) {
            continue;
        }
        StrokeArc(canvas, arc, kWaveStartDegrees, kWaveSweepDegrees, pen);
    }
}

// One painter per element kind of a theme's plan.
struct ElementPainter {
    Canvas& canvas;

    void operator()(const SkyOrGround& e) const { DrawSkyOrGround(canvas, e.rect, e.top, e.bottom); }
    void operator()(const Sun& e) const { DrawSun(canvas, e.cx, e.cy, e.radius, e.colour); }
    void operator()(const Cloud& e) const { DrawCloud(canvas, e.cx, e.cy, e.width, e.height); }
    void operator()(const WaveCrests& e) const { DrawWaveCrests(canvas, e); }
    void operator()(const Mountain& e) const {
        DrawMountain(canvas, e.peakX, e.baseY, e.baseWidth, e.height, e.colour);
    }
    void operator()(const Tree& e) const { DrawTree(canvas, e.x, e.groundY, e.scale); }
    void operator()(const Flower& e) const { DrawFlower(canvas, e.cx, e.cy, e.size, e.petal); }
};

}  // namespace

void DrawScenery(Canvas& canvas, const Rect& rect, uint32_t theme) {
    SaveState(canvas);
    ClipTo(canvas, rect);
    const ElementPainter painter{canvas};
    for (const SceneryElement& element : SceneryPlan(rect, theme)) std::visit(painter, element);
    RestoreState(canvas);
}

void DrawSkyOrGround(Canvas& canvas, const Rect& rect, Colour top, Colour bottom) {
    const GradientShape gradient = SkyOrGroundGradient(rect);
    FillGradient(canvas, rect, gradient.from, gradient.to, Opaque(top), Opaque(bottom));
}

void DrawSun(Canvas& canvas, float cx, float cy, float radius, Colour colour) {
    const SunShape sun = SunGeometry(cx, cy, radius);
    const Pen pen{ArgbOf(colour, kSunRayAlpha), sun.rayPenWidth, true};
    for (const LineF& ray : sun.rays) StrokeLine(canvas, ray, pen);
    FillEllipse(canvas, sun.disc, Opaque(colour));
}

void DrawCloud(Canvas& canvas, float cx, float cy, float width, float height) {
    // Each ellipse is blended on its own, so the overlaps come out denser.
    for (const BoxF& ellipse : CloudEllipses(cx, cy, width, height)) FillEllipse(canvas, ellipse, kCloudColour);
}

void DrawMountain(Canvas& canvas, float peakX, float baseY, float baseWidth, float height, Colour colour) {
    const MountainShape mountain = MountainGeometry(peakX, baseY, baseWidth, height);
    FillPolygon(canvas, mountain.body.data(), 3, Opaque(colour));
    FillPolygon(canvas, mountain.snowCap.data(), 4, kSnowColour);
}

void DrawTree(Canvas& canvas, float x, float groundY, float scale) {
    const TreeShape tree = TreeGeometry(x, groundY, scale);
    FillBox(canvas, tree.trunk, kTrunkColour);
    FillEllipse(canvas, tree.crown, kCrownColour);
    for (const BoxF& clump : tree.leaves) FillEllipse(canvas, clump, kLeavesColour);
}

void DrawFlower(Canvas& canvas, float cx, float cy, float size, Colour petal) {
    const FlowerShape flower = FlowerGeometry(cx, cy, size);
    FillBox(canvas, flower.stem, kStemColour);
    // Each petal is the same ellipse in the blossom's own frame, turned
    // about the middle of the blossom.
    for (int i = 0; i < kPetalCount; ++i) {
        SaveState(canvas);
        Translate(canvas, cx, cy);
        Rotate(canvas, kPetalTurnDegrees * static_cast<float>(i));
        FillEllipse(canvas, flower.petal, Opaque(petal));
        RestoreState(canvas);
    }
    FillEllipse(canvas, flower.centre, kFlowerCentreColour);
}
