// The shared random source: the engine's standard parameters, what each draw
// consumes, and the ranges it keeps to.
#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <set>

#include "play/random.h"

namespace {

TEST(Random, EngineHasTheStandardParameters) {
    SeedRandom(5489);
    // RandomInt over the full range returns lo + the raw output.
    uint32_t output = 0;
    for (int i = 0; i < 10000; ++i) output = static_cast<uint32_t>(RandomInt(INT_MIN, INT_MAX)) ^ 0x80000000u;
    EXPECT_EQ(output, 4123659995u);
}

TEST(Random, EachDrawConsumesWhatItShould) {
    SeedRandom(42);
    std::mt19937 reference(42);
    EXPECT_EQ(RandomInt(0, 0), 0);
    reference();  // a range of one still takes one output
    EXPECT_EQ(RandomUnit(), static_cast<float>(reference() >> 8) * 5.9604645e-8f);
    const float unit = static_cast<float>(reference() >> 8) * 5.9604645e-8f;
    // The span is a float difference: 2.4f - 1.1f is 1.3000001f.
    EXPECT_EQ(RandomRange(1.1f, 2.4f), unit * 1.3000001f + 1.1f);
}

TEST(Random, IntStaysInRangeAndReachesEveryValue) {
    SeedRandom(7);
    const struct { int32_t lo, hi; } ranges[] = {{0, 4}, {-5, 5}, {-3, -1}, {0, 5}, {INT_MAX - 2, INT_MAX}};
    for (const auto& r : ranges) {
        std::set<int32_t> seen;
        for (int i = 0; i < 2000; ++i) {
            const int32_t v = RandomInt(r.lo, r.hi);
            ASSERT_GE(v, r.lo);
            ASSERT_LE(v, r.hi);
            seen.insert(v);
        }
        EXPECT_EQ(static_cast<int64_t>(seen.size()), int64_t{r.hi} - r.lo + 1) << r.lo << ".." << r.hi;
    }
}

TEST(Random, UnitIsNeverOne) {
    SeedRandom(11);
    for (int i = 0; i < 100000; ++i) ASSERT_LT(RandomUnit(), 1.0f);
}

}  // namespace
