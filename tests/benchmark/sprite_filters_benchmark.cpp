// The three clean-up filters over a penguin-like picture at the sizes the
// pose pictures come in: the time per pixel should stay flat as the picture
// grows (the filters are linear in the pixel count).
#include <benchmark/benchmark.h>

#include <vector>

#include "assets/sprite_filters.h"

namespace {

// An outlined disc filling most of a w x h picture, with a few specks.
std::vector<uint8_t> PenguinLikePicture(int32_t width, int32_t height) {
    std::vector<uint8_t> bytes(static_cast<size_t>(width) * height * 4, 0);
    const float cx = width / 2.0f, cy = height / 2.0f, r = 0.45f * static_cast<float>(width);
    for (int32_t y = 0; y < height; ++y) {
        for (int32_t x = 0; x < width; ++x) {
            const float dx = static_cast<float>(x) - cx, dy = (static_cast<float>(y) - cy) * 0.9f;
            const float d2 = dx * dx + dy * dy;
            uint8_t* p = &bytes[(static_cast<size_t>(y) * width + x) * 4];
            if (d2 < (r - 8) * (r - 8)) {
                p[0] = 143, p[1] = 90, p[2] = 61, p[3] = 255;  // body
            } else if (d2 < r * r || (x % 97 == 5 && y % 89 == 7)) {
                p[0] = 48, p[1] = 34, p[2] = 28, p[3] = 255;  // outline and specks
            }
        }
    }
    return bytes;
}

void BM_PrepareSpriteFilters(benchmark::State& state) {
    const int32_t height = static_cast<int32_t>(state.range(0));
    const int32_t width = height * 7 / 8;
    const std::vector<uint8_t> original = PenguinLikePicture(width, height);
    std::vector<uint8_t> bytes;
    for (auto _ : state) {
        state.PauseTiming();
        bytes = original;
        state.ResumeTiming();
        const SpritePixels pixels{bytes.data(), width, height, static_cast<ptrdiff_t>(width) * 4};
        RemoveSpecks(pixels);
        SoftenOutline(pixels);
        BleedColours(pixels);
        benchmark::DoNotOptimize(bytes.data());
    }
    state.SetComplexityN(static_cast<int64_t>(width) * height);
    state.counters["pixels"] = static_cast<double>(width) * height;
}
BENCHMARK(BM_PrepareSpriteFilters)->Arg(240)->Arg(480)->Arg(960)->Arg(1920)
    ->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

}  // namespace
