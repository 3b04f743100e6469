// The penguin drawn by Wine's GDI+ from the shipped pose pictures into
// off-screen bitmaps: its opacity, the graphics state it leaves behind, where
// its feet land and that it stays inside its paint area, with pictures of it
// over a landscape to look at.
#include <numbers>

#include "app/display_windows.h"
#include "assets/penguin_images_win.h"
#include "play/play_field.h"
#include "play/screen_areas.h"
#include "render/penguin_sprite_win.h"
#include "render/pose_drawing_win.h"
#include "render/pose_placement.h"
#include "render/scenery_win.h"
#include "tests/wine/gdiplus_test_support_win.h"

// The play field's record: this program links the penguin's drawing only.
PlayField g_playField;

namespace {

// The pose pictures the build puts beside Puffino.exe, one folder above this
// program, loaded through the program's own loader.
class ShippedPenguin : public GdiplusTest {
protected:
    void SetUp() override {
        GdiplusTest::SetUp();
        LoadPenguinImages(JoinPath(JoinPath(ParentFolder(ExecutableFolder()), L"assets"), L"penguin"));
    }
    void TearDown() override {
        ReleasePenguinImages();
        GdiplusTest::TearDown();
    }
};

TEST_F(ShippedPenguin, OpacityScalesAlphaOnlyAndTheGraphicsStateIsKept) {
    Canvas full(300, 300), half(300, 300), faint(300, 300);
    DrawPoseImage(full.graphics, {150, 280, 240, 0, kPoseStanding, 1});
    DrawPoseImage(half.graphics, {150, 280, 240, 0, kPoseStanding, 0.5f});
    DrawPoseImage(faint.graphics, {150, 280, 240, 0, kPoseStanding, 0.001f});
    const std::vector<uint32_t> a = full.Pixels(), b = half.Pixels();
    int inked = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        const int alpha = static_cast<int>(a[i] >> 24);
        inked += alpha > 0;
        ASSERT_NEAR(static_cast<int>(b[i] >> 24), alpha / 2.0, 1) << "pixel " << i;
        if (alpha == 255) {
            ASSERT_EQ(b[i] & 0xFFFFFF, a[i] & 0xFFFFFF) << "pixel " << i;
        }
    }
    EXPECT_GT(inked, 20000);
    EXPECT_EQ(InkOf(faint.bitmap).right, -1) << "nothing at all at an opacity of 0.001";

    Gdiplus::Graphics& g = faint.graphics;
    g.SetInterpolationMode(Gdiplus::InterpolationModeNearestNeighbor);
    g.SetPixelOffsetMode(Gdiplus::PixelOffsetModeNone);
    g.SetCompositingQuality(Gdiplus::CompositingQualityHighSpeed);
    g.TranslateTransform(-30, 12);
    g.ScaleTransform(0.5f, 2);
    for (const float opacity : {1.0f, 0.5f, 0.0f}) {
        DrawPoseImage(g, {50, 90, 60, 0, kPoseBlowing, opacity});
        Gdiplus::Matrix matrix;
        Gdiplus::REAL m[6];
        g.GetTransform(&matrix);
        matrix.GetElements(m);
        EXPECT_TRUE(m[0] == 0.5f && m[1] == 0 && m[2] == 0 && m[3] == 2 && m[4] == -30 && m[5] == 12) << opacity;
        EXPECT_TRUE(g.GetInterpolationMode() == Gdiplus::InterpolationModeNearestNeighbor &&
                    g.GetPixelOffsetMode() == Gdiplus::PixelOffsetModeNone &&
                    g.GetCompositingQuality() == Gdiplus::CompositingQualityHighSpeed &&
                    g.GetSmoothingMode() == Gdiplus::SmoothingModeAntiAlias)
            << opacity;
    }
}

// The penguin at rest, blowing at the bottom of its wobble, and at the top
// of a celebration hop: where its feet are, that it stays inside the area
// the repaint covers, and a picture of each over a landscape.
TEST_F(ShippedPenguin, RestsBlowsAndHopsInsideItsPaintArea) {
    const float top = std::numbers::pi_v<float> / 4, topOfWobble = std::numbers::pi_v<float> / 6;
    const struct {
        const wchar_t* picture;
        bool blowing;
        float animClock, blowPhase, celebrateTimeLeft, celebratePhase;
        float lift;  // of the feet above the box's bottom
    } cases[] = {
        {L"penguin-rest.png", false, 0, 0, 0, 0, 0},
        {L"penguin-blowing.png", true, top, topOfWobble, 0, 0, -7},
        {L"penguin-hop.png", false, top, 0, 60, 4.5f * 0.85f, 91.2f},
    };
    int restingFeet = 0;
    for (const auto& c : cases) {
        g_dpiScale = 1;
        g_playField = PlayField{};
        g_playField.penguinBox = {95, 150, 305, 390};
        g_playField.blowing = c.blowing;
        g_playField.animClock = c.animClock;
        g_playField.blowPhase = c.blowPhase;
        g_playField.celebrateTimeLeft = c.celebrateTimeLeft;
        g_playField.celebratePhase = c.celebratePhase;
        Canvas alone(400, 430), scene(400, 430);
        DrawPenguin(alone.graphics);
        const Rect ink = InkOf(alone.bitmap), area = PenguinPaintArea();
        if (c.lift == 0) restingFeet = ink.bottom;  // the art stands a little above its bottom edge
        SCOPED_TRACE(std::filesystem::path(c.picture).string());
        EXPECT_NEAR(restingFeet - ink.bottom, c.lift, 2);
        EXPECT_TRUE(ink.left >= area.left && ink.top >= area.top && ink.right <= area.right &&
                    ink.bottom <= area.bottom);

        DrawScenery(scene.graphics, {0, 0, 400, 430}, 2);
        DrawPenguin(scene.graphics);
        EXPECT_TRUE(scene.SaveAs(c.picture));
    }
}

}  // namespace
