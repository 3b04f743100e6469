// Popping as it adds up over a run: score, best score, which praise shows
// for how long, the celebration, the cheer and the spacing of pop sounds.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "play/sound_bank.h"
#include "play/play_field.h"
#include "play/random.h"
#include "play/scoring.h"
#include "play/sound_bank.h"
#include "settings/high_score.h"
#include "tests/unit/fake_platform.h"

namespace {

class Scoring : public ::testing::Test {
protected:
    static void SetUpTestSuite() { BuildSoundBank(); }
    void SetUp() override { ResetWorld(3); }

    // Pops a new bubble gapMs after the last pop.
    static void Pop(bool gold = false, uint32_t gapMs = 50) {
        g_fake.now += gapMs;
        g_playField.bubbles.push_back(Bubble{400, 400, 20, -1, 0, 0, 0, 10, 20, 30, gold, false});
        PopBubble(g_playField.bubbles.size() - 1);
    }
    static long Cheers() { return std::count(g_fake.played.begin(), g_fake.played.end(), g_soundBank.cheerSound.data()); }
    static long PopSounds() { return static_cast<long>(g_fake.played.size()) - Cheers(); }
    template <size_t N>
    static bool OneOf(const std::wstring_view (&words)[N]) {
        return std::find(std::begin(words), std::end(words), g_playField.praiseText) != std::end(words);
    }
};

TEST_F(Scoring, FirstRunPraisesEveryTenPointsButAnnouncesNoRecord) {
    for (int pop = 1; pop <= 9; ++pop) {
        Pop();
        EXPECT_TRUE(g_bestScore == pop && g_playField.praiseTimeLeft == 0) << pop;
    }
    Pop();
    EXPECT_EQ(g_playField.praiseText, L"すごい！");
    EXPECT_TRUE(g_playField.praiseTimeLeft == 66 && g_playField.praiseDuration == 66 && !g_playField.praiseBig);
    EXPECT_TRUE(Cheers() == 1 && PopSounds() == 10 && g_playField.celebrateTimeLeft == 0);
    for (const auto& [score, word] : {std::pair{20, L"じょうず！"}, {60, L"いいね！"}, {70, L"すごい！"}}) {
        while (g_playField.score < score) Pop();
        EXPECT_EQ(g_playField.praiseText, word) << score;
    }
}

TEST_F(Scoring, SecondRunAnnouncesTheRecordOnce) {
    g_bestScore = 12;
    for (int pop = 1; pop <= 12; ++pop) Pop();
    EXPECT_TRUE(g_playField.celebrateTimeLeft == 0 && !g_playField.praiseBig) << "equalling the best is no record";
    Pop();
    EXPECT_TRUE(g_bestScore == 13 && OneOf(kRecordWords) && g_playField.praiseBig && g_playField.praiseBonus == 0);
    EXPECT_TRUE(g_playField.praiseTimeLeft == 84 && g_playField.celebrateTimeLeft == 84);
    EXPECT_EQ(Cheers(), 2);  // the milestone at 10, the record
    g_playField.praiseTimeLeft = 0;
    Pop();
    EXPECT_TRUE(g_bestScore == 14 && g_playField.praiseTimeLeft == 0);
}

TEST_F(Scoring, PraiseRules) {
    // Score 8, gold: 13 with "+5"; the milestone at 10 is jumped over.
    for (int pop = 1; pop <= 8; ++pop) Pop();
    Pop(true);
    EXPECT_TRUE(g_playField.score == 13 && OneOf(kGoldWords) && g_playField.praiseBonus == 5);
    EXPECT_TRUE(g_playField.praiseTimeLeft == 78 && g_playField.praiseBig);

    // Best 9, score 9: the record praise is replaced at once by the milestone,
    // the celebration goes on, the cheer starts twice.
    SetUp();
    g_bestScore = g_playField.score = 9;
    Pop();
    EXPECT_TRUE(g_playField.praiseText == L"すごい！" && g_playField.praiseTimeLeft == 66);
    EXPECT_TRUE(g_playField.celebrateTimeLeft == 84 && Cheers() == 2);

    // Blowing: no milestone and a soft effect; gold still praised, full burst.
    SetUp();
    g_playField.blowing = true;
    g_playField.score = 19;
    Pop();
    EXPECT_TRUE(g_playField.score == 20 && g_playField.praiseTimeLeft == 0);
    EXPECT_TRUE(g_playField.rings.size() == 1 && g_playField.particles.size() <= 2);
    g_playField.rings.clear();
    Pop(true, 25);
    EXPECT_TRUE(g_playField.praiseBonus == 5 && g_playField.rings.size() == 2);
    EXPECT_EQ(PopSounds(), 1) << "a gold pop's sound waits only 20 ms";
}

TEST_F(Scoring, EveryWordOfTheRecordAndGoldListsComesUp) {
    std::set<std::wstring> record, gold;
    for (uint32_t seed = 1; seed <= 60; ++seed) {
        ResetWorld(seed);
        g_bestScore = g_playField.score = 1;
        Pop();
        record.insert(g_playField.praiseText);
        Pop(true);
        gold.insert(g_playField.praiseText);
    }
    EXPECT_EQ(record, (std::set<std::wstring>{L"さいこうきろく！", L"きろくこうしん！", L"すごいね！", L"やったね！"}));
    EXPECT_EQ(gold, (std::set<std::wstring>{L"はやい！", L"キラキラ！", L"キャッチ！", L"すばらしい！", L"ぴったり！"}));
}

TEST_F(Scoring, PopSoundsAreSpacedOut) {
    const struct {
        const char* name;
        bool blowing;
        std::vector<uint32_t> gapsMs;
        long sounds;
    } cases[] = {
        {"15 ms apart", false, {1000, 15}, 1},
        {"20 ms apart", false, {1000, 20}, 2},
        {"soft, 150 ms apart: every 4th", true, {150, 150, 150, 150, 150, 150, 150, 150}, 2},
        {"soft, 30 ms apart: too soon after the 4th", true, {1000, 30, 30, 30, 30, 30, 30, 30}, 1},
    };
    for (const auto& c : cases) {
        SetUp();
        g_playField.blowing = c.blowing;
        for (uint32_t gap : c.gapsMs) Pop(false, gap);
        EXPECT_EQ(PopSounds(), c.sounds) << c.name;
    }
    // Any of the four pops.
    SetUp();
    for (int pop = 0; pop < 40; ++pop) Pop(false, 1000);
    std::set<const uint8_t*> pops(g_fake.played.begin(), g_fake.played.end());
    pops.erase(g_soundBank.cheerSound.data());
    EXPECT_EQ(pops.size(), 4u);
    // Sound off: silence, and the gates stand still.
    SetUp();
    g_soundEnabled = false;
    g_playField.blowing = true;
    for (int pop = 0; pop < 8; ++pop) Pop();
    g_playField.blowing = false;
    g_bestScore = 1;
    Pop(true);
    EXPECT_TRUE(g_fake.played.empty() && g_playField.lastPopSoundTick == 0 && g_playField.softPopCount == 0);
}

TEST_F(Scoring, APositionPastTheEndPopsNothing) {
    g_playField.bubbles.resize(1);
    PopBubble(1);
    EXPECT_TRUE(g_playField.bubbles.size() == 1 && g_playField.score == 0 && g_playField.rings.empty());
}

}  // namespace
