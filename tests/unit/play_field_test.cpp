// The home monitor's layout, the penguin's picture choice, and the
// repaint bookkeeping: how rectangles merge, what is collected and which
// window gets what.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <tuple>
#include <vector>

#include "play/display_records.h"
#include "play/dirty_region.h"
#include "play/play_field.h"
#include "play/screen_areas.h"
#include "play/pose_placement.h"
#include "tests/printers.h"
#include "tests/unit/fake_platform.h"

namespace {

TEST(Layout, ButtonsAndPenguinOnTheHomeMonitor) {
    const struct {
        float scale;
        bool noWindows;
        Rect home, finish, sound, penguin;
    } cases[] = {
        {1.0f, false, {0, 0, 1920, 1080}, {1592, 968, 1892, 1052}, {28, 968, 112, 1052}, {1637, 714, 1847, 954}},
        // 315 wide in theory; both halves truncate to 157.
        {1.5f, false, {0, 0, 1920, 1080}, {1428, 912, 1878, 1038}, {42, 912, 168, 1038}, {1496, 531, 1810, 891}},
        {1.0f, true, {0, 0, 1280, 1024}, {952, 912, 1252, 996}, {28, 912, 112, 996}, {997, 658, 1207, 898}},
    };
    ResetWorld();
    for (const auto& c : cases) {  // each a re-layout of the last, as after a DPI change
        g_dpiScale = c.scale;
        if (c.noWindows) g_displayWindows.clear(), g_virtualWidth = 1280, g_virtualHeight = 1024;
        LayoutPlayField();
        const auto& buttons = g_playField.buttons;
        ASSERT_EQ(buttons.size(), 2u);
        EXPECT_TRUE(buttons[0].kind == kFinishButton && buttons[1].kind == kSoundButton);
        EXPECT_TRUE(g_playField.homeRect == c.home && buttons[0].rect == c.finish && buttons[1].rect == c.sound);
        EXPECT_EQ(g_playField.penguinBox, c.penguin) << c.scale;
    }
    // The home window need not be the first; without one the first is home.
    ResetWorld();
    g_displayWindows.insert(g_displayWindows.begin(), g_displayWindows[0]);
    g_displayWindows[0].home = false;
    g_displayWindows[1].playRect = {1920, 200, 2420, 600};
    LayoutPlayField();
    EXPECT_EQ(g_playField.penguinBox, (Rect{2137, 234, 2347, 474}));
    EXPECT_EQ(PraiseAnchor(), (Point{2170, 368})) << "42 % down the home monitor";
    EXPECT_EQ(HintBalloonArea(), (Rect{1920, 204, 2177, 504})) << "kept on the home monitor";
    EXPECT_EQ(ScorePanelArea(), (Rect{1920, 200, 2420, 390})) << "520 x 190 at the top right, on the home monitor";
    EXPECT_EQ(InstructionPillArea(), (Rect{1920, 200, 2420, 320})) << "760 x 120 at the top left, likewise";
    g_displayWindows[1].home = false;
    g_virtualWidth = 2420;  // the virtual screen is home only without windows
    LayoutPlayField();
    EXPECT_EQ(g_playField.homeRect, (Rect{0, 0, 1920, 1080}));
    EXPECT_TRUE(ScorePanelArea() == (Rect{1400, 0, 1920, 190}) && InstructionPillArea() == (Rect{0, 0, 760, 120}));
}

TEST(Layout, ThePraiseAnchorIsTheWholePartOf42PercentDown) {
    ResetWorld();
    int32_t whole = 0, hundredths = 0;  // 0.42 x height, kept exactly
    for (int32_t height = 1; height <= 20000; ++height) {
        hundredths += 42;
        if (hundredths >= 100) hundredths -= 100, ++whole;
        g_playField.homeRect = {-1281, 300, 1280, 300 + height};
        ASSERT_EQ(PraiseAnchor(), (Point{0, 300 + whole})) << height;
    }
    for (const auto& [height, drop] : {std::pair{1080, 453}, {1200, 504}, {2400, 1008}, {50, 21}}) {
        g_playField.homeRect = {0, 0, 1920, height};
        EXPECT_EQ(PraiseAnchor().y, drop) << height;
    }
}

TEST(FrameTick, ClocksAndCountdownsMoveOneTickAtATime) {
    ResetWorld();
    LayoutPlayField();
    g_playField.ambientAccumulator = -1000;  // no ambient bubbles meanwhile
    g_playField.celebrateTimeLeft = 84;
    g_playField.praiseTimeLeft = 66;
    for (int tick = 1; tick <= 90; ++tick) {
        AdvanceFrame();
        ASSERT_EQ(g_playField.celebrateTimeLeft, std::max(84 - tick, 0)) << tick;
        ASSERT_EQ(g_playField.praiseTimeLeft, std::max(66 - tick, 0)) << tick;
    }
    EXPECT_NEAR(g_playField.celebratePhase, 84 * 0.13f, 1e-3f);
    EXPECT_NEAR(g_playField.animClock, 90 * 0.05f, 1e-3f);
    EXPECT_EQ(g_playField.blowPhase, 0) << "only while blowing";
    g_playField.blowing = true;
    AdvanceFrame();
    EXPECT_FLOAT_EQ(g_playField.blowPhase, 0.14f);
}

TEST(PosePlacement, FallbacksSizesAndTheMouth) {
    using P = PosePictureKind;
    ResetWorld();
    LayoutPlayField();  // no pictures: a 240 x 240 stand-in
    EXPECT_FLOAT_EQ(g_playField.mouthX, 1742 + 0.22f * 240);
    EXPECT_EQ(SelectPosePicture(kPoseBlowing), std::nullopt);
    g_fake.poseSizes = {{P::Celebrate, {300, 600}}, {P::Cheer, {300, 600}}};
    EXPECT_TRUE(SelectPosePicture(kPoseBlowing) == P::Cheer && SelectPosePicture(kPoseCelebrating) == P::Celebrate);
    g_fake.poseSizes[P::Blow] = {200, 100};
    g_fake.poseSizes[P::Idle] = {0, 0};  // an unreadable size counts as 1 x 1
    EXPECT_TRUE(SelectPosePicture(kPoseBlowing) == P::Blow && SelectPosePicture(kPoseStanding) == P::Idle);
    EXPECT_FLOAT_EQ(PlacePosePicture(P::Idle, 500, 900, 240, 0).width, 240);
    const PoseRect tall = PlacePosePicture(P::Cheer, 500, 900, 240, 5);
    EXPECT_TRUE(tall.x == 440 && tall.y == 665 && tall.width == 120 && tall.height == 240);
    EXPECT_FLOAT_EQ(PlacePosePicture(P::Cheer, 500, 900, 30, 0).height, 40);
    LayoutPlayField();  // the wide blowing picture: 480 x 240
    EXPECT_FLOAT_EQ(g_playField.mouthX, 1742 - 240 + 0.72f * 480);
}

std::vector<Rect> Stored(const DirtyRegion& region) {
    std::vector<Rect> rects(region.rects.begin(), region.rects.begin() + region.count);
    std::sort(rects.begin(), rects.end(),
              [](const Rect& a, const Rect& b) { return std::tie(a.left, a.top) < std::tie(b.left, b.top); });
    return rects;
}

TEST(DirtyRegion, MergesWhatTouchesOrOverlapsAndCollapsesWhenFull) {
    const struct { const char* what; std::vector<Rect> added, held; } cases[] = {
        {"an empty one", {{0, 0, 10, 10}, {5, 5, 5, 20}, {9, 9, 2, 2}}, {{0, 0, 10, 10}}},
        {"edges touching", {{0, 0, 10, 10}, {10, 0, 20, 10}}, {{0, 0, 20, 10}}},
        {"corners touching", {{0, 0, 10, 10}, {10, 10, 20, 20}}, {{0, 0, 20, 20}}},
        {"a pixel apart", {{0, 0, 10, 10}, {11, 0, 20, 10}, {0, 11, 10, 20}},
         {{0, 0, 10, 10}, {0, 11, 10, 20}, {11, 0, 20, 10}}},
        {"one inside another", {{0, 0, 100, 100}, {10, 10, 20, 20}, {30, 30, 40, 40}}, {{0, 0, 100, 100}}},
        {"one around two", {{10, 10, 20, 20}, {30, 30, 40, 40}, {0, 0, 100, 100}}, {{0, 0, 100, 100}}},
        {"a bridge", {{0, 0, 10, 10}, {30, 0, 40, 10}, {10, 0, 30, 10}}, {{0, 0, 40, 10}}},
        // The merge with the second grows left and down onto the first, already passed.
        {"a grown merge", {{0, 0, 10, 11}, {5, 20, 30, 30}, {20, 11, 25, 20}}, {{0, 0, 30, 30}}},
        {"the ends of the plane", {{INT32_MIN, 0, INT32_MIN + 1, 1}, {INT32_MAX - 1, 0, INT32_MAX, 1}},
         {{INT32_MIN, 0, INT32_MIN + 1, 1}, {INT32_MAX - 1, 0, INT32_MAX, 1}}},
    };
    for (const auto& c : cases) {
        DirtyRegion region;
        for (const Rect& r : c.added) AddDirtyRect(region, r);
        EXPECT_EQ(Stored(region), c.held) << c.what;
    }
    DirtyRegion full;
    for (int32_t i = 0; i <= kMaxDirtyRects; ++i) AddDirtyRect(full, {3 * i, 0, 3 * i + 1, 1});
    EXPECT_EQ(Stored(full), (std::vector<Rect>{{0, 0, 3 * 776 + 1, 1}})) << "the 777th speck";
}

TEST(DirtyRegion, CollectsWhatMovesOrComesAndGoes) {
    ResetWorld();
    LayoutPlayField();
    const auto collected = [] {
        DirtyRegion region;
        CollectDynamicDirty(region);
        return Stored(region);
    };
    EXPECT_EQ(collected(), (std::vector<Rect>{{1017, 570, 1871, 984}}));  // the penguin and its hint
    g_playField.pressStartTick = 5;  // no hint while pressed
    g_playField.praiseTimeLeft = 1;
    EXPECT_EQ(collected(), (std::vector<Rect>{{440, 303, 1480, 603}, {1613, 570, 1871, 978}}));

    // A tick repaints where a bubble was and where it is.
    const Bubble bubble{300, 500, 20, -60, 0, 0, 0, 1, 2, 3, false, false};
    g_playField.bubbles = {bubble};
    AdvanceFrame();
    Bubble moved = bubble;
    moved.y -= 60;
    for (const Rect& r : {BubbleBounds(bubble), BubbleBounds(moved)}) {
        EXPECT_TRUE(std::any_of(g_fake.invalidated.begin(), g_fake.invalidated.end(),
                                [&](const Invalidation& i) { return i.client == r; }));
    }
}

TEST(DirtyRegion, EachWindowGetsItsPartInItsClientCoordinates) {
    ResetWorld();
    g_displayWindows.push_back(g_displayWindows[0]);
    g_displayWindows[1].playRect = {1920, 0, 3200, 1024};
    g_displayWindows[1].window = FakeWindow(2);
    g_displayWindows.push_back(g_displayWindows[1]);
    g_displayWindows[2].window = nullptr;  // a window that could not be made
    DirtyRegion region;
    AddDirtyRect(region, {1900, 1000, 1950, 1060});
    AddDirtyRect(region, {3300, 0, 3400, 10});  // off every monitor
    InvalidateDirty(region);
    ASSERT_EQ(g_fake.invalidated.size(), 2u);
    EXPECT_TRUE(g_fake.invalidated[0].window == FakeWindow(1) && g_fake.invalidated[1].window == FakeWindow(2));
    EXPECT_EQ(g_fake.invalidated[0].client, (Rect{1900, 1000, 1920, 1060}));
    EXPECT_EQ(g_fake.invalidated[1].client, (Rect{0, 1000, 30, 1024}));
}

}  // namespace
