// The clean-up filters over a penguin-like picture: the three in their
// load-time order at the sizes pose pictures come in (the time per pixel
// should stay flat: the filters are linear in the pixel count), and each
// filter alone on a 600 x 800 picture.
#include <benchmark/benchmark.h>

#include <algorithm>

#include <cmath>
#include <vector>

#include "assets/sprite_filters.h"

namespace {

// The fastest of the repetitions (--benchmark_repetitions=N): the machine is
// shared, and other work only ever adds time.
double Fastest(const std::vector<double>& times) { return *std::min_element(times.begin(), times.end()); }

struct Colour {
    uint8_t blue, green, red, alpha;  // memory order
};

// A cut-out penguin three quarters as wide as it is high: a dark outline
// round a navy body with a white belly and orange feet, one half-transparent
// ring of edge pixels, transparent all around, and a few specks and a small
// stray bubble left over from cutting it out.
std::vector<uint8_t> PenguinLikePicture(int32_t width, int32_t height) {
    std::vector<uint8_t> bytes(static_cast<size_t>(width) * height * 4, 0);
    const auto set = [&](int32_t x, int32_t y, Colour c) {
        if (x < 0 || y < 0 || x >= width || y >= height) return;
        uint8_t* p = &bytes[(static_cast<size_t>(y) * width + x) * 4];
        p[0] = c.blue, p[1] = c.green, p[2] = c.red, p[3] = c.alpha;
    };
    const float w = static_cast<float>(width), h = static_cast<float>(height);
    const float outline = std::max(2.0f, h / 130);
    // Distance inside an ellipse, in pixels along the shorter axis (< 0 out).
    const auto inside = [](float x, float y, float cx, float cy, float rx, float ry) {
        const float dx = (x - cx) / rx, dy = (y - cy) / ry;
        return (1 - std::sqrt(dx * dx + dy * dy)) * std::min(rx, ry);
    };
    for (int32_t y = 0; y < height; ++y) {
        for (int32_t x = 0; x < width; ++x) {
            const float fx = static_cast<float>(x), fy = static_cast<float>(y);
            const float body = std::max(inside(fx, fy, w * 0.5f, h * 0.55f, w * 0.40f, h * 0.38f),
                                        inside(fx, fy, w * 0.5f, h * 0.25f, w * 0.28f, h * 0.20f));
            const float foot = std::max(inside(fx, fy, w * 0.35f, h * 0.93f, w * 0.12f, h * 0.04f),
                                        inside(fx, fy, w * 0.65f, h * 0.93f, w * 0.12f, h * 0.04f));
            const float belly = inside(fx, fy, w * 0.5f, h * 0.60f, w * 0.26f, h * 0.28f);
            const float edge = std::max(body, foot);
            if (edge < -1) continue;
            if (edge < 0) {
                set(x, y, {40, 34, 30, 110});  // the anti-aliased rim
            } else if (edge < outline) {
                set(x, y, {40, 34, 30, 255});
            } else if (foot > body) {
                set(x, y, {40, 150, 250, 255});
            } else if (belly > 0) {
                set(x, y, {250, 250, 248, 255});
            } else {
                set(x, y, {110, 70, 50, 255});
            }
        }
    }
    // Specks: single pixels and small clumps, and a bubble drawn apart.
    for (int32_t i = 0; i < 12; ++i) {
        const int32_t x = (i * 97 + 13) % width, y = (i * 61 + 7) % (height / 8);
        for (int32_t d = 0; d < i % 4 + 1; ++d) set(x + d, y, {40, 34, 30, 255});
    }
    const float bx = w * 0.9f, by = h * 0.1f, br = w * 0.04f;
    for (int32_t y = static_cast<int32_t>(by - br - 1); y <= by + br + 1; ++y) {
        for (int32_t x = static_cast<int32_t>(bx - br - 1); x <= bx + br + 1; ++x) {
            if (std::abs(std::hypot(x - bx, y - by) - br) < 1.5f) set(x, y, {255, 226, 180, 200});
        }
    }
    return bytes;
}

using Filter = void (*)(const SpritePixels&);

void Prepare(const SpritePixels& pixels) {
    RemoveSpecks(pixels);
    SoftenOutline(pixels);
    BleedColours(pixels);
}

void RunFilter(benchmark::State& state, int32_t height, Filter filter) {
    const int32_t width = height * 3 / 4;
    const std::vector<uint8_t> original = PenguinLikePicture(width, height);
    std::vector<uint8_t> bytes;
    for (auto _ : state) {
        state.PauseTiming();
        bytes = original;
        state.ResumeTiming();
        filter({bytes.data(), width, height, static_cast<ptrdiff_t>(width) * 4});
        benchmark::DoNotOptimize(bytes.data());
    }
    state.SetComplexityN(static_cast<int64_t>(width) * height);
    state.counters["pixels"] = static_cast<double>(width) * height;
}

void PrepareSpriteFilters(benchmark::State& state) {
    RunFilter(state, static_cast<int32_t>(state.range(0)), Prepare);
}
BENCHMARK(PrepareSpriteFilters)->ArgName("height")->Arg(240)->Arg(480)->Arg(800)->Arg(1600)
    ->Unit(benchmark::kMillisecond)->ComputeStatistics("min", Fastest)->Complexity(benchmark::oN);

void RemoveSpecksAt600x800(benchmark::State& state) { RunFilter(state, 800, RemoveSpecks); }
void SoftenOutlineAt600x800(benchmark::State& state) { RunFilter(state, 800, SoftenOutline); }
void BleedColoursAt600x800(benchmark::State& state) { RunFilter(state, 800, BleedColours); }
BENCHMARK(RemoveSpecksAt600x800)->Unit(benchmark::kMillisecond)->ComputeStatistics("min", Fastest);
BENCHMARK(SoftenOutlineAt600x800)->Unit(benchmark::kMillisecond)->ComputeStatistics("min", Fastest);
BENCHMARK(BleedColoursAt600x800)->Unit(benchmark::kMillisecond)->ComputeStatistics("min", Fastest);

}  // namespace
