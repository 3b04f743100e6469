// Speck removal, outline softening and colour bleeding over a plain pixel
// buffer. Every filter reads what it decides on from the picture as it was
// when the filter started (labels, an alpha snapshot, known flags), so the
// result never depends on the scan order.
#include "assets/sprite_filters.h"

#include <algorithm>
#include <vector>

namespace {

// Byte offsets inside a pixel, in memory order.
constexpr int kBlue = 0;
constexpr int kGreen = 1;
constexpr int kRed = 2;
constexpr int kAlpha = 3;

// Scratch flags and labels are indexed row-major: i = y * width + x.
size_t PixelCount(const SpritePixels& pixels) {
    return static_cast<size_t>(pixels.width) * static_cast<size_t>(pixels.height);
}

uint8_t* PixelAt(const SpritePixels& pixels, int32_t x, int32_t y) {
    return pixels.bits + y * pixels.stride + static_cast<ptrdiff_t>(x) * 4;
}

uint8_t* PixelAt(const SpritePixels& pixels, size_t index) {
    const size_t width = static_cast<size_t>(pixels.width);
    return PixelAt(pixels, static_cast<int32_t>(index % width), static_cast<int32_t>(index / width));
}

// Calls visit(neighbourIndex) for each of the up to eight neighbours of
// pixel (x, y) that lie inside the picture, row by row, left to right.
template <typename Visit>
void ForEachNeighbour(const SpritePixels& pixels, int32_t x, int32_t y, Visit visit) {
    for (int32_t ny = y - 1; ny <= y + 1; ++ny) {
        if (ny < 0 || ny >= pixels.height) continue;
        for (int32_t nx = x - 1; nx <= x + 1; ++nx) {
            if (nx < 0 || nx >= pixels.width || (nx == x && ny == y)) continue;
            visit(static_cast<size_t>(ny) * static_cast<size_t>(pixels.width) +
                  static_cast<size_t>(nx));
        }
    }
}

template <typename Visit>
void ForEachNeighbour(const SpritePixels& pixels, size_t index, Visit visit) {
    const size_t width = static_cast<size_t>(pixels.width);
    ForEachNeighbour(pixels, static_cast<int32_t>(index % width),
                     static_cast<int32_t>(index / width), visit);
}

bool IsVisible(const SpritePixels& pixels, size_t index) {
    return PixelAt(pixels, index)[kAlpha] >= kVisibleAlpha;
}

}  // namespace

void RemoveSpecks(const SpritePixels& pixels) {
    if (pixels.width < 3 || pixels.height < 3) return;
    const size_t count = PixelCount(pixels);

    // Flood-fill every blob once, remembering its pixels.
    std::vector<uint32_t> labels(count, 0);
    std::vector<std::vector<size_t>> components;
    std::vector<size_t> stack;
    stack.reserve(1024);
    for (size_t start = 0; start < count; ++start) {
        if (labels[start] != 0 || !IsVisible(pixels, start)) continue;
        const uint32_t label = static_cast<uint32_t>(components.size() + 1);
        std::vector<size_t>& component = components.emplace_back();
        labels[start] = label;
        stack.push_back(start);
        while (!stack.empty()) {
            const size_t at = stack.back();
            stack.pop_back();
            component.push_back(at);
            ForEachNeighbour(pixels, at, [&](size_t next) {
                if (labels[next] == 0 && IsVisible(pixels, next)) {
                    labels[next] = label;
                    stack.push_back(next);
                }
            });
        }
    }

    // A blob survives only if it is big in absolute terms, for the picture's
    // size, and next to the main drawing: a bubble drawn apart from the
    // penguin is a speck too when it is under a fortieth of the penguin.
    size_t largest = 0;
    for (const std::vector<size_t>& component : components) {
        largest = std::max(largest, component.size());
    }
    const size_t minArea = std::max<size_t>(count / 16000, 24);
    const size_t threshold = std::max(minArea, largest / 40);
    for (const std::vector<size_t>& component : components) {
        if (component.size() >= threshold) continue;
        for (const size_t index : component) std::fill_n(PixelAt(pixels, index), 4, uint8_t{0});
    }
}

void SoftenOutline(const SpritePixels& pixels) {
    if (pixels.width < 2 || pixels.height < 2) return;
    const size_t count = PixelCount(pixels);

    std::vector<uint8_t> alpha(count);
    for (size_t i = 0; i < count; ++i) alpha[i] = PixelAt(pixels, i)[kAlpha];

    for (size_t i = 0; i < count; ++i) {
        uint8_t* pixel = PixelAt(pixels, i);
        const bool darkOutline = alpha[i] >= 200 && pixel[kBlue] < 50 && pixel[kGreen] < 50 &&
                                 pixel[kRed] < 50;
        if (!darkOutline) continue;
        // Open sides: neighbours beyond the picture's border count as open.
        int open = 8;
        ForEachNeighbour(pixels, i, [&](size_t next) {
            if (alpha[next] >= 24) --open;
        });
        if (open >= 3) {
            pixel[kAlpha] = 150;
        } else if (open >= 1) {
            pixel[kAlpha] = 200;
        }
    }
}

void BleedColours(const SpritePixels& pixels) {
    if (pixels.width < 3 || pixels.height < 3) return;
    const size_t count = PixelCount(pixels);

    std::vector<uint8_t> known(count);
    for (size_t i = 0; i < count; ++i) known[i] = IsVisible(pixels, i) ? 1 : 0;
    std::vector<uint8_t> filled(count);

    // Four rings around the drawing are enough for the bilinear filter at
    // any scale the penguin is drawn at; a pixel coloured in one pass is a
    // source only from the next pass on.
    for (int pass = 0; pass < 4; ++pass) {
        std::fill(filled.begin(), filled.end(), uint8_t{0});
        bool changed = false;
        for (size_t i = 0; i < count; ++i) {
            if (known[i]) continue;
            unsigned sum[3] = {0, 0, 0};
            unsigned sources = 0;
            ForEachNeighbour(pixels, i, [&](size_t next) {
                if (!known[next]) return;
                const uint8_t* source = PixelAt(pixels, next);
                for (int channel = kBlue; channel <= kRed; ++channel) sum[channel] += source[channel];
                ++sources;
            });
            if (sources == 0) continue;
            uint8_t* pixel = PixelAt(pixels, i);
            for (int channel = kBlue; channel <= kRed; ++channel) {
                pixel[channel] = static_cast<uint8_t>(sum[channel] / sources);
            }
            filled[i] = 1;
            changed = true;
        }
        if (!changed) break;
        for (size_t i = 0; i < count; ++i) known[i] |= filled[i];
    }
}
