// Popping as it adds up over a run: score, best score, which praise shows
// for how long, the celebration, the cheer, the spacing of pop sounds, and
// the synthesized sounds themselves.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "app/shell.h"
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
    for (int pop = 1; pop <= 13; ++pop) Pop();
    EXPECT_TRUE(g_bestScore == 13 && OneOf(kRecordWords) && g_playField.praiseBig);
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

uint32_t Field(const WavImage& image, size_t offset, int bytes) {
    uint32_t value = 0;
    for (int i = bytes - 1; i >= 0; --i) value = value << 8 | image[offset + i];
    return value;
}
std::string Tag(const WavImage& image, size_t offset) { return {image.begin() + offset, image.begin() + offset + 4}; }
int16_t Sample(const WavImage& image, size_t i) { return static_cast<int16_t>(Field(image, 44 + 2 * i, 2)); }

TEST(SoundBank, ImagesAreCanonicalMonoWavFilesAtTheirLevels) {
    SeedRandom(77);
    std::mt19937 shared(77);
    BuildSoundBank();
    EXPECT_EQ(RandomUnit(), static_cast<float>(shared() >> 8) * 5.9604645e-8f) << "the shared source is untouched";
    ASSERT_EQ(g_soundBank.popSounds.size(), 4u);
    const struct {
        const WavImage& image;
        size_t bytes;
        uint32_t rate;
        int peakLow, peakHigh;
    } cases[] = {
        {g_soundBank.popSounds[0], 7982, 44100, 15000, 28475},  // at most (0.88 + 0.7) x 0.55
        {g_soundBank.popSounds[3], 7982, 44100, 15000, 28475},
        {g_soundBank.blowSound, 4012, 22050, 3000, 3932},    // at most 0.12
        {g_soundBank.cheerSound, 26060, 22050, 5000, 7078},  // at most 0.24 x 0.9
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        ASSERT_EQ(c.image.size(), c.bytes);
        EXPECT_TRUE(Tag(c.image, 0) == "RIFF" && Tag(c.image, 8) == "WAVE" && Tag(c.image, 12) == "fmt " &&
                    Tag(c.image, 36) == "data");
        EXPECT_TRUE(Field(c.image, 4, 4) == c.bytes - 8 && Field(c.image, 40, 4) == c.bytes - 44);
        EXPECT_TRUE(Field(c.image, 16, 4) == 16 && Field(c.image, 20, 2) == 1 && Field(c.image, 22, 2) == 1);
        EXPECT_TRUE(Field(c.image, 24, 4) == c.rate && Field(c.image, 28, 4) == 2 * c.rate);
        EXPECT_TRUE(Field(c.image, 32, 2) == 2 && Field(c.image, 34, 2) == 16);
        int low = 0, high = 0;
        for (size_t i = 0; i < (c.bytes - 44) / 2; ++i) {
            low = std::min<int>(low, Sample(c.image, i));
            high = std::max<int>(high, Sample(c.image, i));
        }
        EXPECT_TRUE(low >= -c.peakHigh && high <= c.peakHigh) << low << ".." << high;
        EXPECT_GE(std::max(-low, high), c.peakLow);
    }
    // The envelopes start from silence: the chirp and every cheer note.
    EXPECT_EQ(Sample(g_soundBank.blowSound, 0), 0);
    for (size_t start : {0, 2425, 4850, 7275}) EXPECT_EQ(Sample(g_soundBank.cheerSound, start), 0) << start;
}

TEST(SoundBank, PopsAreTheSameInEveryRunAndEmptyImagesNeverPlay) {
    BuildSoundBank();
    const std::vector<WavImage> first = g_soundBank.popSounds;
    BuildSoundBank();
    EXPECT_EQ(g_soundBank.popSounds, first) << "a rebuild starts from an empty list, with the same noise";
    for (size_t i = 1; i < first.size(); ++i) EXPECT_NE(first[i], first[i - 1]);
    ResetWorld();
    const WavImage silent = MakeWav({}, 22050);
    EXPECT_TRUE(silent.size() == 44 && Field(silent, 40, 4) == 0);
    PlayMemorySound(WavImage{});
    PlayMemorySound(silent);
    EXPECT_EQ(g_fake.played, std::vector<const uint8_t*>{silent.data()});
}

}  // namespace
