// The landscape painters in GDI+. The shapes come from scenery_layout; this
// file only makes the brushes and pens and fills. GDI+ results are not
// checked: a failed call keeps its status in the wrapper and painting goes on.
#include "render/scenery_win.h"

#include <variant>

namespace {

Gdiplus::Color Opaque(ColourRef colour) { return Gdiplus::Color(ArgbFromColourRef(colour)); }

Gdiplus::RectF ToRectF(const BoxF& box) { return {box.x, box.y, box.width, box.height}; }

Gdiplus::PointF ToPointF(const PointF& point) { return {point.x, point.y}; }

void FillBox(Gdiplus::Graphics& graphics, const Gdiplus::Brush& brush, const BoxF& box) {
    graphics.FillEllipse(&brush, ToRectF(box));
}

void DrawWaveCrests(Gdiplus::Graphics& graphics, const WaveCrests& crests) {
    Gdiplus::Pen pen(Gdiplus::Color(kWaveColour), crests.penWidth);
    pen.SetLineCap(Gdiplus::LineCapRound, Gdiplus::LineCapRound, Gdiplus::DashCapFlat);
    // The lower rows lie below the window and would be clipped away; they
    // are not drawn at all. Besides saving the work, that keeps Wine's GDI+
    // alive on 3840 x 2160 and 5120 x 1440 monitors, where it dies drawing
    // one of those hidden crests.
    Gdiplus::RectF clip;
    graphics.GetClipBounds(&clip);
    for (const BoxF& arc : crests.arcs) {
        Gdiplus::RectF drawn = ToRectF(arc);
        drawn.Inflate(crests.penWidth, crests.penWidth);  // the pen and its round caps
        if (!drawn.IntersectsWith(clip)) continue;
        graphics.DrawArc(&pen, ToRectF(arc), kWaveStartDegrees, kWaveSweepDegrees);
    }
}

// One painter per element kind of a theme's plan.
struct ElementPainter {
    Gdiplus::Graphics& graphics;

    void operator()(const SkyOrGround& e) const { DrawSkyOrGround(graphics, e.rect, e.top, e.bottom); }
    void operator()(const Sun& e) const { DrawSun(graphics, e.cx, e.cy, e.radius, e.colour); }
    void operator()(const Cloud& e) const { DrawCloud(graphics, e.cx, e.cy, e.width, e.height); }
    void operator()(const WaveCrests& e) const { DrawWaveCrests(graphics, e); }
    void operator()(const Mountain& e) const {
        DrawMountain(graphics, e.peakX, e.baseY, e.baseWidth, e.height, e.colour);
    }
    void operator()(const Tree& e) const { DrawTree(graphics, e.x, e.groundY, e.scale); }
    void operator()(const Flower& e) const { DrawFlower(graphics, e.cx, e.cy, e.size, e.petal); }
};

}  // namespace

void DrawScenery(Gdiplus::Graphics& graphics, const Rect& rect, uint32_t theme) {
    const Gdiplus::GraphicsState state = graphics.Save();
    graphics.SetClip(Gdiplus::Rect(rect.left, rect.top, Width(rect), Height(rect)),
                     Gdiplus::CombineModeReplace);
    const ElementPainter painter{graphics};
    for (const SceneryElement& element : SceneryPlan(rect, theme)) std::visit(painter, element);
    graphics.Restore(state);
}

void DrawSkyOrGround(Gdiplus::Graphics& graphics, const Rect& rect, ColourRef top, ColourRef bottom) {
    const GradientShape gradient = SkyOrGroundGradient(rect);
    Gdiplus::LinearGradientBrush brush(ToPointF(gradient.from), ToPointF(gradient.to), Opaque(top),
                                       Opaque(bottom));
    brush.SetWrapMode(Gdiplus::WrapModeTile);
    graphics.FillRectangle(&brush, Gdiplus::Rect(rect.left, rect.top, Width(rect), Height(rect)));
}

void DrawSun(Gdiplus::Graphics& graphics, float cx, float cy, float radius, ColourRef colour) {
    const SunShape sun = SunGeometry(cx, cy, radius);
    Gdiplus::Pen pen(Gdiplus::Color(ArgbFromColourRef(colour, kSunRayAlpha)), sun.rayPenWidth);
    pen.SetLineCap(Gdiplus::LineCapRound, Gdiplus::LineCapRound, Gdiplus::DashCapFlat);
    for (const LineF& ray : sun.rays) graphics.DrawLine(&pen, ToPointF(ray.from), ToPointF(ray.to));
    Gdiplus::SolidBrush brush(Opaque(colour));
    FillBox(graphics, brush, sun.disc);
}

void DrawCloud(Gdiplus::Graphics& graphics, float cx, float cy, float width, float height) {
    // Each ellipse is blended on its own, so the overlaps come out denser.
    Gdiplus::SolidBrush brush{Gdiplus::Color(kCloudColour)};
    for (const BoxF& ellipse : CloudEllipses(cx, cy, width, height)) FillBox(graphics, brush, ellipse);
}

void DrawMountain(Gdiplus::Graphics& graphics, float peakX, float baseY, float baseWidth,
                  float height, ColourRef colour) {
    const MountainShape mountain = MountainGeometry(peakX, baseY, baseWidth, height);
    Gdiplus::PointF body[3];
    for (int i = 0; i < 3; ++i) body[i] = ToPointF(mountain.body[i]);
    Gdiplus::SolidBrush rock(Opaque(colour));
    graphics.FillPolygon(&rock, body, 3);

    Gdiplus::PointF cap[4];
    for (int i = 0; i < 4; ++i) cap[i] = ToPointF(mountain.snowCap[i]);
    Gdiplus::SolidBrush snow{Gdiplus::Color(kSnowColour)};
    graphics.FillPolygon(&snow, cap, 4, Gdiplus::FillModeAlternate);
}

void DrawTree(Gdiplus::Graphics& graphics, float x, float groundY, float scale) {
    const TreeShape tree = TreeGeometry(x, groundY, scale);
    Gdiplus::SolidBrush trunk{Gdiplus::Color(kTrunkColour)};
    graphics.FillRectangle(&trunk, ToRectF(tree.trunk));
    Gdiplus::SolidBrush crown{Gdiplus::Color(kCrownColour)};
    FillBox(graphics, crown, tree.crown);
    Gdiplus::SolidBrush leaves{Gdiplus::Color(kLeavesColour)};
    for (const BoxF& clump : tree.leaves) FillBox(graphics, leaves, clump);
}

void DrawFlower(Gdiplus::Graphics& graphics, float cx, float cy, float size, ColourRef petal) {
    const FlowerShape flower = FlowerGeometry(cx, cy, size);
    Gdiplus::SolidBrush stem{Gdiplus::Color(kStemColour)};
    graphics.FillRectangle(&stem, ToRectF(flower.stem));

    // Each petal is the same ellipse in the blossom's own frame, turned
    // about the middle of the blossom.
    Gdiplus::SolidBrush petals(Opaque(petal));
    for (int i = 0; i < kPetalCount; ++i) {
        const Gdiplus::GraphicsState state = graphics.Save();
        graphics.TranslateTransform(cx, cy);
        graphics.RotateTransform(kPetalTurnDegrees * static_cast<float>(i));
        FillBox(graphics, petals, flower.petal);
        graphics.Restore(state);
    }
    Gdiplus::SolidBrush centre{Gdiplus::Color(kFlowerCentreColour)};
    FillBox(graphics, centre, flower.centre);
}
