// How long the play field's hot paths take on this machine: one frame tick
// at its worst (every list at its cap while the penguin is held and
// blowing), and building the sound bank at start-up. Built with
// optimisation; run by `./puffino bench`.
#include <benchmark/benchmark.h>

#include "play/play_field.h"
#include "play/pointer_input.h"
#include "play/random.h"
#include "play/sound_bank.h"
#include "tests/unit/fake_platform.h"

namespace {

// A full scene on one 1920 x 1080 home monitor, the penguin held by a touch
// and already blowing.
PlayField FullScene() {
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
        field.particles.push_back({RandomRange(0, 1920), RandomRange(0, 1080), 1, -1, 0, 1000, 4, 255, 120, 160});
    }
    field.pressStartTick = g_fake.now - 1000;
    field.pressIsTouch = field.touchHeld = field.blowing = true;
    field.praiseTimeLeft = 50;
    return field;
}

void AdvanceFrameAtTheCaps(benchmark::State& state) {
    const PlayField scene = FullScene();
    for (auto _ : state) {
        state.PauseTiming();
        g_playField = scene;
        g_fake.invalidated.clear();
        state.ResumeTiming();
        AdvanceFrame();
        benchmark::DoNotOptimize(g_playField.bubbles.data());
    }
    state.counters["invalidations"] = static_cast<double>(g_fake.invalidated.size());
}
BENCHMARK(AdvanceFrameAtTheCaps)->Unit(benchmark::kMicrosecond);

void BuildTheSoundBank(benchmark::State& state) {
    for (auto _ : state) {
        BuildSoundBank();
        benchmark::DoNotOptimize(g_soundBank.cheerSound.data());
    }
}
BENCHMARK(BuildTheSoundBank)->Unit(benchmark::kMillisecond);

}  // namespace

