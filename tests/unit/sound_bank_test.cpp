// The six synthesized sounds, byte for byte: their sizes and rates, and their
// fingerprints pinned from the reviewed synthesis (measured when pinned:
// the cheer's notes at 784, 988, 1175 and 1568 Hz, the chirp rising from
// about 1400 Hz to 2350 Hz), so any change to a pitch, an envelope or the
// header shows.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "play/random.h"
#include "play/sound_bank.h"
#include "tests/unit/fake_platform.h"

namespace {

// FNV-1a, 64 bits: enough to show any change of the bytes.
uint64_t Fingerprint(const WavImage& data) {
    uint64_t hash = 0xCBF29CE484222325u;
    for (uint8_t byte : data) hash = (hash ^ byte) * 0x100000001B3u;
    return hash;
}

uint32_t Field(const WavImage& image, size_t offset) {
    return image[offset] | image[offset + 1] << 8 | image[offset + 2] << 16 | image[offset + 3] << 24;
}

TEST(SoundBank, TheSixImagesAreExactlyTheReviewedSounds) {
    EXPECT_EQ(Fingerprint({'a'}), 0xAF63DC4C8601EC8Cu);
    SeedRandom(77);
    std::mt19937 shared(77);
    BuildSoundBank();
    BuildSoundBank();  // a rebuild starts from an empty list and makes the same noise
    EXPECT_EQ(RandomUnit(), static_cast<float>(shared() >> 8) * 5.9604645e-8f) << "the shared source is untouched";
    ASSERT_EQ(g_soundBank.popSounds.size(), 4u);
    const struct {
        const char* name;
        const WavImage& image;
        uint32_t rate, samples;
        uint64_t fingerprint;
    } cases[] = {
        {"pop 1500", g_soundBank.popSounds[0], 44100, 3969, 0xDF1DBFB04C354EF7u},
        {"pop 1250", g_soundBank.popSounds[1], 44100, 3969, 0xD0536AB433DF031Cu},
        {"pop 1750", g_soundBank.popSounds[2], 44100, 3969, 0x25236DAA949A209Du},
        {"pop 1050", g_soundBank.popSounds[3], 44100, 3969, 0xD36BA98D9D5E709Du},
        {"chirp", g_soundBank.blowSound, 22050, 1984, 0x788AF1FA9C18F119u},
        {"cheer", g_soundBank.cheerSound, 22050, 2425 + 2425 + 2425 + 5733, 0x0D469FA0312094EAu},
    };
    for (const auto& c : cases) {
        ASSERT_EQ(c.image.size(), 44 + 2 * c.samples) << c.name;
        EXPECT_TRUE(Field(c.image, 24) == c.rate && Field(c.image, 40) == 2 * c.samples) << c.name;
        EXPECT_EQ(Fingerprint(c.image), c.fingerprint) << c.name;
    }
}

TEST(SoundBank, EmptyImagesNeverPlay) {
    ResetWorld();
    const WavImage silent = MakeWav({}, 22050);
    EXPECT_TRUE(silent.size() == 44 && Field(silent, 40) == 0 && Field(silent, 4) == 36);
    PlayMemorySound(WavImage{});
    PlayMemorySound(silent);
    EXPECT_EQ(g_fake.played, std::vector<const uint8_t*>{silent.data()});
}

}  // namespace
