// Presses as a child makes them: on the penguin (tapped, held, released,
// lost), on bubbles and on buttons, with the fake clock and frame ticks
// driving the long press and the stream of blown bubbles.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "play/display_records.h"
#include "play/sound_bank.h"
#include "play/play_field.h"
#include "play/pointer_input.h"
#include "play/sound_bank.h"
#include "tests/printers.h"
#include "tests/unit/fake_platform.h"

namespace {

constexpr Point kOnPenguin{1742, 850};

class PointerInput : public ::testing::Test {
protected:
    static void SetUpTestSuite() { BuildSoundBank(); }
    void SetUp() override { ResetWorld(7), LayoutPlayField(); }

    static void Tick(int count = 1) {  // frame ticks, 33 ms apart
        for (int i = 0; i < count; ++i) g_fake.now += 33, AdvanceFrame();
    }
    static long Blown() {
        return std::count_if(g_playField.bubbles.begin(), g_playField.bubbles.end(),
                             [](const Bubble& b) { return b.fromPenguin; });
    }
    static bool Chirped() {
        return std::count(g_fake.played.begin(), g_fake.played.end(), g_soundBank.blowSound.data()) == 1;
    }
    static void Press(bool touch = false) { g_fake.leftButtonDown = !touch, PointerDown(kOnPenguin, touch); }
    static void Release() { g_fake.leftButtonDown = false, PointerUp(); }
};

TEST_F(PointerInput, HoldingThePenguinBlowsAStreamUntilReleased) {
    Press();
    EXPECT_EQ(g_playField.pressStartTick, g_fake.now);
    EXPECT_EQ(g_fake.capture, g_homeWindow) << "the release must reach us wherever the mouse goes";
    EXPECT_FALSE(g_fake.invalidated.empty()) << "the hint balloon hides while pressed";
    Tick(9);  // 297 ms
    EXPECT_TRUE(!g_playField.blowing && Blown() == 0);
    Tick();  // 330 ms: a puff of two plain bubbles and the chirp
    EXPECT_TRUE(g_playField.blowing && Blown() == 2 && Chirped());
    for (const Bubble& b : g_playField.bubbles) EXPECT_FALSE(b.fromPenguin && b.gold);
    // The stream's first bubble four ticks after the puff, then two every seven.
    Tick(3);
    EXPECT_EQ(Blown(), 2);
    Tick();
    EXPECT_EQ(Blown(), 3);
    Tick(21);
    EXPECT_EQ(Blown(), 9);
    for (const Bubble& b : g_playField.bubbles) {
        if (b.fromPenguin) EXPECT_NEAR(b.x, g_playField.mouthX, 90 + 25 * 1.8) << "from the mouth, swayed";
    }
    Press();  // pressing again while blowing starts afresh
    EXPECT_TRUE(g_playField.blownOnce && !g_playField.blowing && g_fake.capture == g_homeWindow);
    g_fake.invalidated.clear();
    Release();
    EXPECT_TRUE(g_playField.pressStartTick == 0 && g_fake.capture == nullptr && !g_fake.invalidated.empty());
    Press();
    g_fake.capture = FakeWindow(9);  // another window took the capture
    Release();
    EXPECT_EQ(g_fake.capture, FakeWindow(9)) << "not ours to release";
}

TEST_F(PointerInput, HoldsEndWithTheirOwnButtonOrFinger) {
    const struct {
        const char* name;
        bool touch, mouseButtonDown, releasedAt200, blows;
    } cases[] = {
        {"mouse held", false, true, false, true},
        {"mouse tapped", false, true, true, false},
        {"mouse released where no window saw it", false, false, false, false},
        {"touch tapped", true, false, true, false},
        {"touch, whatever the mouse says", true, false, false, true},
    };
    for (const auto& c : cases) {
        SetUp();
        Press(c.touch);
        EXPECT_EQ(g_fake.capture, c.touch ? nullptr : g_homeWindow) << c.name << ": only the mouse is captured";
        g_fake.leftButtonDown = c.mouseButtonDown;
        Tick(6);
        if (c.releasedAt200) Release();
        Tick(20);
        EXPECT_EQ(g_playField.blowing, c.blows) << c.name;
        EXPECT_EQ(Blown() > 0, c.blows) << c.name;
        EXPECT_EQ(Chirped(), c.blows) << c.name;
        EXPECT_FALSE(g_playField.blownOnce) << c.name << ": the hint stays";
    }
    PointerUp();  // any lifted finger ends the last case's touch hold
    EXPECT_TRUE(!g_playField.blowing && g_playField.blownOnce);
}

TEST_F(PointerInput, EveryTwelfthBlownBubbleIsGoldAndALostOneIsOwed) {
    Press();
    Tick(10);
    g_playField.bubbles.clear();
    std::vector<bool> stream;  // gold of each stream bubble, in order
    while (stream.size() < 36) {
        Tick();
        for (const Bubble& b : g_playField.bubbles) b.fromPenguin ? stream.push_back(b.gold) : void();
        g_playField.bubbles.clear();
    }
    EXPECT_TRUE(stream[11] && stream[23] && stream[35]);

    // The 48th cannot be made among 160 bubbles: the next bubble is gold.
    g_playField.bubbles.assign(kMaxBubbles, Bubble{100, 500, 20, -1});
    g_playField.ambientAccumulator = -1000;  // no ambient bubble meanwhile
    while (g_playField.blowCount < 48) Tick();
    g_playField.bubbles.clear();
    g_playField.ambientAccumulator = 1;
    Tick();  // an ambient bubble, no stream bubble (credit 1 of 3.5)
    ASSERT_EQ(g_playField.bubbles.size(), 1u);
    EXPECT_TRUE(g_playField.bubbles[0].gold && !g_playField.bubbles[0].fromPenguin);
    g_playField.nextBubbleGold = true;
    Release();
    EXPECT_FALSE(g_playField.nextBubbleGold) << "a release forgets the owed gold bubble";
}

TEST_F(PointerInput, BlownBubblesStartAboveThePenguinAcrossTheirSpread) {
    // At twice the size: the puff 140 either side of the mouth, the stream
    // 180, both with their tops 48 above the penguin box, give or take 16.
    g_dpiScale = 2;
    LayoutPlayField();
    const float mouth = g_playField.mouthX, top = static_cast<float>(g_playField.penguinBox.top) - 48;
    float puff[2] = {0, 0}, stream[2] = {0, 0};  // the furthest left and right of the mouth
    for (int hold = 0; hold < 200; ++hold) {
        PointerDown({static_cast<int32_t>(mouth), g_playField.penguinBox.bottom - 100}, true);
        g_fake.now += 300;
        for (int tick = 0; tick < 8; ++tick) {  // the puff, then two of the stream
            HoldTick();
            float* reach = tick == 0 ? puff : stream;
            for (const Bubble& b : g_playField.bubbles) {
                reach[0] = std::min(reach[0], b.x - mouth), reach[1] = std::max(reach[1], b.x - mouth);
                EXPECT_NEAR(b.y - (b.gold ? b.radius / 0.88f : b.radius), top, 16.001f);
            }
            g_playField.bubbles.clear();
        }
    }
    EXPECT_TRUE(puff[0] >= -140 && puff[0] < -136 && puff[1] <= 140 && puff[1] > 136) << puff[0] << " " << puff[1];
    EXPECT_TRUE(stream[0] >= -180 && stream[0] < -175 && stream[1] <= 180 && stream[1] > 175)
        << stream[0] << " " << stream[1];
}

TEST_F(PointerInput, TheNewestBubbleUnderThePressPopsButButtonsComeFirst) {
    g_playField.bubbles = {Bubble{1742, 850, 30, -1, 0, 0, 0, 10}, Bubble{1752, 850, 30, -1, 0, 0, 0, 99}};
    PointerDown(kOnPenguin, false);
    ASSERT_EQ(g_playField.bubbles.size(), 1u);
    EXPECT_EQ(g_playField.bubbles[0].red, 10) << "the newer one popped";
    EXPECT_TRUE(g_playField.score == 1 && g_playField.pressStartTick == 0) << "the penguin was not pressed";
    EXPECT_FALSE(g_fake.invalidated.empty());

    g_playField.bubbles = {Bubble{1700, 1000, 30, -1}};  // over the finish button
    PointerDown({1700, 1000}, true);
    EXPECT_TRUE(g_fake.endPlayCalls == 1 && g_playField.bubbles.size() == 1);

    g_fake.invalidated.clear();
    PointerDown({28, 1052}, false);  // the sound button's corner counts
    EXPECT_FALSE(g_soundEnabled);
    ASSERT_EQ(g_fake.invalidated.size(), 1u);
    EXPECT_EQ(g_fake.invalidated[0].client, (Rect{22, 962, 118, 1058}));
    PointerDown({112, 968}, false);
    EXPECT_TRUE(g_soundEnabled);

    PointerDown({900, 500}, false);  // the bare landscape
    EXPECT_TRUE(g_playField.pressStartTick == 0 && g_fake.capture == nullptr) << "only the penguin is held";
}

TEST_F(PointerInput, PenguinHitIsTheDrawnPictureWithoutItsSideMargins) {
    // No pictures: the 240 x 240 stand-in, x 1622..1862 less 14.4 a side, y 714..954.
    const struct {
        Point point;
        bool hit;
    } cases[] = {{{1636, 800}, false}, {{1637, 800}, true}, {{1847, 800}, true}, {{1848, 800}, false},
                 {{1742, 713}, false}, {{1742, 714}, true}, {{1742, 954}, true}, {{1742, 955}, false}};
    for (const auto& c : cases) EXPECT_EQ(PenguinHit(c.point), c.hit) << c.point.x << ", " << c.point.y;
    // A box 250 tall: the stand-in 250 wide from x = 975, its margins 15.
    g_playField.penguinBox = {1000, 0, 1200, 250};
    for (const auto& [x, hit] : {std::pair{989, false}, {990, true}, {1210, true}, {1211, false}}) {
        EXPECT_EQ(PenguinHit({x, 250}), hit) << x;
    }
    LayoutPlayField();
    // A narrow standing and a wide blowing picture: the hit follows the one on show.
    g_fake.poseSizes = {{PosePictureKind::Idle, {100, 200}}, {PosePictureKind::Blow, {200, 200}}};
    EXPECT_FALSE(PenguinHit({1642, 800}));
    g_playField.blowing = true;
    EXPECT_TRUE(PenguinHit({1642, 800}));
    g_playField.penguinBox = {};  // before the first layout
    EXPECT_FALSE(PenguinHit({0, 0}));
}

}  // namespace
