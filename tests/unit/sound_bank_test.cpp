// The six synthesized sounds, byte for byte: their sizes and rates, and their
// SHA-256 pinned once from the reviewed synthesis (measured when pinned:
// the cheer's notes at 784, 988, 1175 and 1568 Hz, the chirp rising from
// about 1400 Hz to 2350 Hz), so any change to a pitch, an envelope or the
// header shows.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <random>
#include <string>

#include "play/random.h"
#include "play/sound_bank.h"
#include "tests/unit/fake_platform.h"

namespace {

std::string Sha256(const WavImage& data) {
    static constexpr uint32_t kRound[64] = {
        0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
        0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
        0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
        0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
        0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
        0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
        0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
        0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};
    std::array<uint32_t, 8> h = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                 0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    WavImage m = data;
    m.push_back(0x80);
    while (m.size() % 64 != 56) m.push_back(0);
    for (int i = 7; i >= 0; --i) m.push_back(static_cast<uint8_t>(uint64_t{data.size()} * 8 >> (8 * i)));
    const auto rotr = [](uint32_t x, int n) { return x >> n | x << (32 - n); };
    for (size_t block = 0; block < m.size(); block += 64) {
        uint32_t w[64];
        for (int i = 0; i < 16; ++i) {
            w[i] = uint32_t{m[block + 4 * i]} << 24 | m[block + 4 * i + 1] << 16 | m[block + 4 * i + 2] << 8 |
                   m[block + 4 * i + 3];
        }
        for (int i = 16; i < 64; ++i) {
            const uint32_t s0 = rotr(w[i - 15], 7) ^ rotr(w[i - 15], 18) ^ w[i - 15] >> 3;
            const uint32_t s1 = rotr(w[i - 2], 17) ^ rotr(w[i - 2], 19) ^ w[i - 2] >> 10;
            w[i] = w[i - 16] + s0 + w[i - 7] + s1;
        }
        auto [a, b, c, d, e, f, g, k] = h;
        for (int i = 0; i < 64; ++i) {
            const uint32_t t1 = k + (rotr(e, 6) ^ rotr(e, 11) ^ rotr(e, 25)) + ((e & f) ^ (~e & g)) + kRound[i] + w[i];
            const uint32_t t2 = (rotr(a, 2) ^ rotr(a, 13) ^ rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
            k = g, g = f, f = e, e = d + t1, d = c, c = b, b = a, a = t1 + t2;
        }
        const std::array<uint32_t, 8> add = {a, b, c, d, e, f, g, k};
        for (int i = 0; i < 8; ++i) h[i] += add[i];
    }
    std::string hex;
    for (uint32_t word : h) {
        char part[9];
        std::snprintf(part, sizeof part, "%08x", word);
        hex += part;
    }
    return hex;
}

uint32_t Field(const WavImage& image, size_t offset) {
    return image[offset] | image[offset + 1] << 8 | image[offset + 2] << 16 | image[offset + 3] << 24;
}

TEST(SoundBank, TheSixImagesAreExactlyTheReviewedSounds) {
    EXPECT_EQ(Sha256({'a', 'b', 'c'}), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
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
        const char* sha256;
    } cases[] = {
        {"pop 1500", g_soundBank.popSounds[0], 44100, 3969,
         "71a057de4f0e9aef2f7bf6b80d0a5f179688156b6d92c65d2671c9e1901b9bf9"},
        {"pop 1250", g_soundBank.popSounds[1], 44100, 3969,
         "3d1cad5315966a38b359c0ddd7efcc5a6b58a2d13c8ffad561fa1abbf4c15656"},
        {"pop 1750", g_soundBank.popSounds[2], 44100, 3969,
         "20cf177164a3c7a20decbffcd0d900fce5df8e59949df9b3f53316910eabdf45"},
        {"pop 1050", g_soundBank.popSounds[3], 44100, 3969,
         "41c27d94110af7080efbb7c863ccd0aa92060e1bea359025451453db8e65e494"},
        {"chirp", g_soundBank.blowSound, 22050, 1984,
         "bbb70507c786075e0179897e6d839d0e6214d511480c8325ccf0e1f4499afe2f"},
        {"cheer", g_soundBank.cheerSound, 22050, 2425 + 2425 + 2425 + 5733,
         "a105624d304487aebd6db12f7692ccb363dffcbe7ac5a2c0102d2de5f08c8bb3"},
    };
    for (const auto& c : cases) {
        ASSERT_EQ(c.image.size(), 44 + 2 * c.samples) << c.name;
        EXPECT_TRUE(Field(c.image, 24) == c.rate && Field(c.image, 40) == 2 * c.samples) << c.name;
        EXPECT_EQ(Sha256(c.image), c.sha256) << c.name;
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
