// The penguin drawn by Wine's GDI+ from the shipped pose pictures into
// off-screen bitmaps: where its ink lands, its opacity, the graphics state
// it leaves behind, and pictures of it over a landscape to look at.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "app/display_windows.h"
#include "assets/asset_paths.h"
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

// GDI+ and the pose pictures the build puts beside Puffino.exe, one folder
// above this program, loaded through the program's own loader.
class ShippedPenguin : public ::testing::Environment {
public:
    void SetUp() override {
        Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&token_, &input, nullptr);
        LoadPenguinImages(JoinPath(JoinPath(ParentFolder(ExecutableFolder()), L"assets"), L"penguin"));
    }
    void TearDown() override {
        ReleasePenguinImages();
        Gdiplus::GdiplusShutdown(token_);
    }

private:
    ULONG_PTR token_ = 0;
};
const auto* const g_environment = ::testing::AddGlobalTestEnvironment(new ShippedPenguin);

// The bounding box of every pixel of a 32-bit ARGB bitmap that is not
// fully transparent.
Rect InkOf(Gdiplus::Bitmap& bitmap) {
    const int width = static_cast<int>(bitmap.GetWidth()), height = static_cast<int>(bitmap.GetHeight());
    Gdiplus::Rect whole(0, 0, width, height);
    Gdiplus::BitmapData data{};
    bitmap.LockBits(&whole, Gdiplus::ImageLockModeRead, PixelFormat32bppARGB, &data);
    Rect ink{width, height, -1, -1};
    for (int y = 0; y < height; ++y) {
        const auto* row = reinterpret_cast<const uint32_t*>(static_cast<const char*>(data.Scan0) + y * data.Stride);
        for (int x = 0; x < width; ++x) {
            if (row[x] >> 24 == 0) continue;
            ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1), std::max(ink.bottom, y + 1)};
        }
    }
    bitmap.UnlockBits(&data);
    return ink;
}

TEST(PoseDrawing, ThePictureIsScaledUniformlyIntoItsPlaceWhateverTheTransform) {
    for (const auto& [pose, image] : {std::pair{kPoseStanding, PoseImage::Idle}, std::pair{kPoseBlowing, PoseImage::Blow},
                                      std::pair{kPoseCelebrating, PoseImage::Celebrate}}) {
        auto* picture = static_cast<Gdiplus::Bitmap*>(PoseSlotImage(image));
        ASSERT_TRUE(picture);
        Canvas canvas(400, 400);
        canvas.graphics.TranslateTransform(-1000, -500);  // play-field coordinates, as a frame's
        DrawPoseImage(canvas.graphics, {1200, 860, 240, -7, pose, 1});

        // The picture's own ink, scaled into the placed rectangle.
        const PoseRect placed = PlacePoseImage(image, 200, 360, 240, -7);
        const float k = placed.height / static_cast<float>(picture->GetHeight());
        const Rect art = InkOf(*picture), ink = InkOf(canvas.bitmap);
        SCOPED_TRACE(pose);
        EXPECT_NEAR(ink.left, placed.x + k * art.left, 2);
        EXPECT_NEAR(ink.top, placed.y + k * art.top, 2);
        EXPECT_NEAR(ink.right, placed.x + k * art.right, 2);
        EXPECT_NEAR(ink.bottom, placed.y + k * art.bottom, 2);
    }
}

TEST(PoseDrawing, OpacityScalesAlphaOnly) {
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
}

TEST(PoseDrawing, LeavesTheQualityModesAndTransformAsItFoundThem) {
    Canvas canvas(100, 100);
    Gdiplus::Graphics& g = canvas.graphics;
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
TEST(Penguin, RestsBlowsAndHopsInsideItsPaintArea) {
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
