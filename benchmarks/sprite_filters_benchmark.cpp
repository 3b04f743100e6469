// The clean-up filters over a penguin-like picture: the three in their
// load-time order at the sizes pose pictures come in (the time per pixel
// should stay flat: the filters are linear in the pixel count), and each
// filter alone on a 600 x 800 picture.
#include <benchmark/benchmark.h>

#include <algorithm>

#include <cmath>
#include <cstring>
#include <vector>

#include "assets/pose_picture_filters.h"

namespace {

// The fastest of the repetitions (--benchmark_repetitions=N): the machine is
// shared, and other work only ever adds time.
double Fastest(const std::vector<double>& times) { return *std::min_element(times.begin(), times.end()); }

// A cut-out penguin three quarters as wide as it is high: a navy body
// with a white belly inside a dark outline, one half-transparent ring of
// edge pixels, transparent all around, and specks of one to four pixels
// and a stray bubble left over from cutting it out.
std::vector<uint8_t> PenguinLikePicture(int32_t width, int32_t height) {
    std::vector<uint8_t> bytes(static_cast<size_t>(width) * height * 4, 0);
    const auto set = [&](int32_t x, int32_t y, uint32_t argb) {
        if (x >= 0 && y >= 0 && x < width && y < height) {
            std::memcpy(&bytes[(static_cast<size_t>(y) * width + x) * 4], &argb, 4);
        }
    };
    const float cx = width * 0.5f, cy = height * 0.55f, rx = width * 0.4f, ry = height * 0.42f;
    const float outline = std::max(2.0f, height / 130.0f);
    for (int32_t y = 0; y < height; ++y) {
        for (int32_t x = 0; x < width; ++x) {
            const float dx = (x - cx) / rx, dy = (y - cy) / ry;
            const float inside = (1 - std::sqrt(dx * dx + dy * dy)) * rx;  // in pixels
            if (inside < -1) continue;
            const bool belly = std::abs(dx) < 0.55f && dy > -0.2f;
            set(x, y, inside < 0 ? 0x6E1E222Au : inside < outline ? 0xFF1E222Au : belly ? 0xFFF8FAFAu : 0xFF32466Eu);
        }
    }
    for (int32_t i = 0; i < 12; ++i) {
        const int32_t x = (i * 97 + 13) % width, y = (i * 61 + 7) % (height / 8);
        for (int32_t d = 0; d < i % 4 + 1; ++d) set(x + d, y, 0xFF1E222Au);
    }
    const float bx = width * 0.9f, by = height * 0.1f, br = width * 0.04f;
    for (int32_t y = 0; y < height / 5; ++y) {
        for (int32_t x = width * 4 / 5; x < width; ++x) {
            if (std::abs(std::hypot(x - bx, y - by) - br) < 1.5f) set(x, y, 0xC8B4E2FFu);
        }
    }
    return bytes;
}

using Filter = void (*)(const PicturePixels&);

void Prepare(const PicturePixels& pixels) {
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

void PreparePosePictureFilters(benchmark::State& state) {
    RunFilter(state, static_cast<int32_t>(state.range(0)), Prepare);
}
BENCHMARK(PreparePosePictureFilters)->ArgName("height")->Arg(240)->Arg(480)->Arg(800)->Arg(1600)
    ->Unit(benchmark::kMillisecond)->ComputeStatistics("min", Fastest)->Complexity(benchmark::oN);

void RemoveSpecksAt600x800(benchmark::State& state) { RunFilter(state, 800, RemoveSpecks); }
void SoftenOutlineAt600x800(benchmark::State& state) { RunFilter(state, 800, SoftenOutline); }
void BleedColoursAt600x800(benchmark::State& state) { RunFilter(state, 800, BleedColours); }
BENCHMARK(RemoveSpecksAt600x800)->Unit(benchmark::kMillisecond)->ComputeStatistics("min", Fastest);
BENCHMARK(SoftenOutlineAt600x800)->Unit(benchmark::kMillisecond)->ComputeStatistics("min", Fastest);
BENCHMARK(BleedColoursAt600x800)->Unit(benchmark::kMillisecond)->ComputeStatistics("min", Fastest);

}  // namespace
