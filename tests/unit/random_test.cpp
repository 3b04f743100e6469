// The shared random source: what each draw consumes and the ranges it keeps
// to.
#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <set>

#include "play/random.h"

namespace {

TEST(Random, WhatEachDrawConsumes) {
    SeedRandom(42);
    std::mt19937 reference(42);
    EXPECT_EQ(RandomInt(0, 0), 0);
    reference();  // a range of one still takes one output
    EXPECT_EQ(RandomUnit(), static_cast<float>(reference() >> 8) * 5.9604645e-8f);
    const float unit = static_cast<float>(reference() >> 8) * 5.9604645e-8f;
    // The span is a float difference: 2.4f - 1.1f is 1.3000001f.
    EXPECT_EQ(RandomRange(1.1f, 2.4f), unit * 1.3000001f + 1.1f);
}

TEST(Random, DrawsStayInRangeAndReachEveryValue) {
    SeedRandom(7);
    const struct { int32_t lo, hi; } ranges[] = {{0, 4}, {-5, 5}, {-3, -1}, {0, 5}, {INT_MAX - 2, INT_MAX}};
    for (const auto& r : ranges) {
        std::set<int32_t> seen;
        for (int i = 0; i < 2000; ++i) seen.insert(RandomInt(r.lo, r.hi));
        EXPECT_TRUE(*seen.begin() == r.lo && *seen.rbegin() == r.hi) << r.lo << ".." << r.hi;
        EXPECT_EQ(static_cast<int64_t>(seen.size()), int64_t{r.hi} - r.lo + 1) << r.lo << ".." << r.hi;
    }
    for (int i = 0; i < 100000; ++i) ASSERT_LT(RandomUnit(), 1.0f);
}

}  // namespace
