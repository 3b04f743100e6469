// How long the play field's hot paths take on this machine: one frame tick
// at its worst (every list at its cap while the penguin is held), the dirty
// region at its worst, and building the sound bank at start-up. Built with
// optimisation; run by `./puffino bench`.
#include <benchmark/benchmark.h>

#include <algorithm>

#include <chrono>

#include "play/dirty_region.h"
#include "play/play_field.h"
#include "play/pointer_input.h"
#include "play/random.h"
#include "play/sound_bank.h"
#include "tests/unit/fake_platform.h"

namespace {

// The fastest of the repetitions (--benchmark_repetitions=N): the machine is
// shared, and other work only ever adds time.
double Fastest(const std::vector<double>& times) { return *std::min_element(times.begin(), times.end()); }

// A full scene on one 1920 x 1080 home monitor, the penguin held by a touch
// for a second: already blowing, or (blowing false) about to start, so that
// nothing is thinned and both collections see every list full.
PlayField FullScene(bool blowing) {
    ResetWorld(12345);
    LayoutPlayField();
    PlayField& field = g_playField;
    for (std::size_t i = 0; i < kMaxBubbles; ++i) {
        Bubble b{RandomRange(0, 1920), RandomRange(100, 1080), RandomRange(18, 44), -RandomRange(1.1f, 2.4f),
                 RandomRange(0, 6.28f), 0.05f, 1.2f, 180, 226, 255, i % 10 == 0, i % 2 == 0};
        field.bubbles.push_back(b);
    }
    for (std::size_t i = 0; i < kMaxRings; ++i) {
        field.rings.push_back({RandomRange(0, 1920), RandomRange(0, 1080), 4, 50, 0, 1000, 255, 255, 255});
    }
    for (std::size_t i = 0; i < kMaxParticles; ++i) {
        field.particles.push_back(
            {RandomRange(0, 1920), RandomRange(0, 1080), 1, -1, 0, 1000, 4, 255, 120, 160});
    }
    field.pressStartTick = g_fake.now - 1000;
    field.pressIsTouch = field.touchHeld = true;
    field.blowing = blowing;
    field.praiseTimeLeft = 50;
    return field;
}

// Every tick starts from the full scene again (a tick while blowing thins
// it); only the tick itself is timed.
void AdvanceFrameAtTheCaps(benchmark::State& state) {
    const PlayField scene = FullScene(state.range(0) != 0);
    for (auto _ : state) {
        g_playField = scene;
        g_fake.invalidated.clear();
        const auto start = std::chrono::steady_clock::now();
        AdvanceFrame();
        const auto end = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(g_playField.bubbles.data());
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
    state.counters["invalidations"] = static_cast<double>(g_fake.invalidated.size());
}
BENCHMARK(AdvanceFrameAtTheCaps)->ArgName("blowing")->Arg(1)->Arg(0)->UseManualTime()
    ->Unit(benchmark::kMicrosecond)->ComputeStatistics("min", Fastest);

// Specks two pixels apart on a row: none touches another.
Rect Speck(int32_t i, int32_t row) { return {i * 2, row * 4, i * 2 + 1, row * 4 + 1}; }

// The region filling up with separate rectangles, each scanning every one
// stored before it, until the 777th collapses all of them into one.
void AddDirtyRectUpToTheCollapse(benchmark::State& state) {
    for (auto _ : state) {
        DirtyRegion region;
        for (int32_t i = 0; i <= kMaxDirtyRects; ++i) AddDirtyRect(region, Speck(i, 0));
        benchmark::DoNotOptimize(region.count);
    }
    state.SetItemsProcessed(state.iterations() * (kMaxDirtyRects + 1));
}
BENCHMARK(AddDirtyRectUpToTheCollapse)->Unit(benchmark::kMicrosecond)->ComputeStatistics("min", Fastest);

// One rectangle swallowing half of a full region, one stored rectangle at a
// time, each found past the other half, which it never touches.
void AddDirtyRectSwallowingHalf(benchmark::State& state) {
    DirtyRegion full;
    constexpr int32_t kHalf = kMaxDirtyRects / 2;
    for (int32_t i = 0; i < kMaxDirtyRects; ++i) AddDirtyRect(full, Speck(i % kHalf, i / kHalf));
    const Rect secondRow{0, 3, kMaxDirtyRects, 6};
    for (auto _ : state) {
        DirtyRegion region = full;
        AddDirtyRect(region, secondRow);
        benchmark::DoNotOptimize(region.count);
    }
}
BENCHMARK(AddDirtyRectSwallowingHalf)->Unit(benchmark::kMicrosecond)->ComputeStatistics("min", Fastest);

void BuildTheSoundBank(benchmark::State& state) {
    for (auto _ : state) {
        BuildSoundBank();
        benchmark::DoNotOptimize(g_soundBank.cheerSound.data());
    }
}
BENCHMARK(BuildTheSoundBank)->Unit(benchmark::kMillisecond)->ComputeStatistics("min", Fastest);

}  // namespace
