// Speck removal, outline softening and colour bleeding over a plain pixel
// buffer. Every filter reads what it decides on from the picture as it was
// when the filter started (blob marks, an alpha snapshot, known flags), so
// the result never depends on the scan order.
//
// The scratch arrays carry a one-pixel frame around the picture, so that the
// eight neighbours of any pixel are fixed offsets with no edge tests; the
// frame stands for the pixels beyond the border that do not exist.
#include "assets/pose_picture_filters.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

// Byte offsets inside a pixel, in memory order.
constexpr int kBlue = 0;
constexpr int kGreen = 1;
constexpr int kRed = 2;
constexpr int kAlpha = 3;

uint8_t* Row(const PicturePixels& pixels, int32_t y) { return pixels.bits + y * pixels.stride; }

// Scratch indexing over the picture and its frame: pixel (x, y) is at
// (y + 1) * width + (x + 1) with width = picture width + 2.
struct Framed {
    size_t width, height;
    explicit Framed(const PicturePixels& pixels)
        : width(static_cast<size_t>(pixels.width) + 2), height(static_cast<size_t>(pixels.height) + 2) {}
    size_t Count() const { return width * height; }
    size_t At(int32_t x, int32_t y) const {
        return (static_cast<size_t>(y) + 1) * width + static_cast<size_t>(x) + 1;
    }
    // Offsets of the eight neighbours: the row above, the sides, the row below.
    std::array<ptrdiff_t, 8> Neighbours() const {
        const ptrdiff_t w = static_cast<ptrdiff_t>(width);
        return {-w - 1, -w, -w + 1, -1, 1, w - 1, w, w + 1};
    }
};

// A scratch byte for every pixel and the frame: `visible` or `hidden` by
// the pixel's alpha, `frame` around the picture.
std::vector<uint8_t> VisibilityMap(const PicturePixels& pixels, const Framed& framed, uint8_t visible,
                                   uint8_t hidden, uint8_t frame) {
    std::vector<uint8_t> state(framed.Count(), frame);
    for (int32_t y = 0; y < pixels.height; ++y) {
        const uint8_t* row = Row(pixels, y);
        uint8_t* flags = &state[framed.At(0, y)];
        for (int32_t x = 0; x < pixels.width; ++x) {
            flags[x] = row[x * 4 + kAlpha] >= kVisibleAlpha ? visible : hidden;
        }
    }
    return state;
}

}  // namespace

void RemoveSpecks(const PicturePixels& pixels) {
    if (pixels.width < 3 || pixels.height < 3) return;
    const Framed framed(pixels);

    // A byte a pixel instead of a label: a blob is found once to be counted
    // and, only when it turns out to be a speck, a second time to be erased.
    enum : uint8_t { kVisible, kCounted, kErased, kNever };
    std::vector<uint8_t> state = VisibilityMap(pixels, framed, kVisible, kNever, kNever);

    // Flood-fills the blob around start from pixels in state `from`, moving
    // them to `to`; calls reached(index) for each. A row's run at a time:
    // the runs in the rows above and below that touch it, corners included,
    // wait on a stack that stays about as deep as the blob is high.
    const ptrdiff_t rowStep = static_cast<ptrdiff_t>(framed.width);
    std::vector<size_t> stack;
    stack.reserve(1024);
    const auto fill = [&](size_t start, uint8_t from, uint8_t to, auto reached) {
        stack.push_back(start);
        while (!stack.empty()) {
            const size_t seed = stack.back();
            stack.pop_back();
            if (state[seed] != from) continue;  // reached meanwhile by another run
            size_t left = seed, right = seed;
            while (state[left - 1] == from) --left;
            while (state[right + 1] == from) ++right;
            for (size_t at = left; at <= right; ++at) {
                state[at] = to;
                reached(at);
            }
            for (const ptrdiff_t step : {-rowStep, rowStep}) {
                bool inRun = false;
                for (size_t at = left - 1 + step; at <= right + 1 + step; ++at) {
                    const bool waiting = state[at] == from;
                    if (waiting && !inRun) stack.push_back(at);
                    inRun = waiting;
                }
            }
        }
    };

    struct Blob {
        size_t start, size;
    };
    std::vector<Blob> blobs;
    for (size_t start = 0; start < state.size(); ++start) {
        if (state[start] != kVisible) continue;
        size_t size = 0;
        fill(start, kVisible, kCounted, [&](size_t) { ++size; });
        blobs.push_back({start, size});
    }

    // A blob survives only if it is big in absolute terms, for the picture's
    // size, and next to the main drawing: a bubble drawn apart from the
    // penguin is a speck too when it is under a fortieth of the penguin.
    size_t largest = 0;
    for (const Blob& blob : blobs) largest = std::max(largest, blob.size);
    const size_t area = static_cast<size_t>(pixels.width) * static_cast<size_t>(pixels.height);
    const size_t threshold = std::max(std::max<size_t>(area / 16000, 24), largest / 40);
    for (const Blob& blob : blobs) {
        if (blob.size >= threshold) continue;
        fill(blob.start, kCounted, kErased, [&](size_t at) {
            const size_t x = at % framed.width - 1, y = at / framed.width - 1;
            std::fill_n(Row(pixels, static_cast<int32_t>(y)) + x * 4, 4, uint8_t{0});
        });
    }
}

void SoftenOutline(const PicturePixels& pixels) {
    if (pixels.width < 2 || pixels.height < 2) return;
    const Framed framed(pixels);
    const auto neighbours = framed.Neighbours();

    // The frame reads as alpha 0: beyond the border counts as open.
    std::vector<uint8_t> alpha(framed.Count(), 0);
    for (int32_t y = 0; y < pixels.height; ++y) {
        const uint8_t* row = Row(pixels, y);
        uint8_t* snapshot = &alpha[framed.At(0, y)];
        for (int32_t x = 0; x < pixels.width; ++x) snapshot[x] = row[x * 4 + kAlpha];
    }

    for (int32_t y = 0; y < pixels.height; ++y) {
        uint8_t* row = Row(pixels, y);
        for (int32_t x = 0; x < pixels.width; ++x) {
            uint8_t* pixel = row + x * 4;
            const size_t at = framed.At(x, y);
            const bool darkOutline = alpha[at] >= 200 && pixel[kBlue] < 50 && pixel[kGreen] < 50 &&
                                     pixel[kRed] < 50;
            if (!darkOutline) continue;
            int open = 0;
            for (const ptrdiff_t offset : neighbours) open += alpha[at + offset] < 24 ? 1 : 0;
            if (open >= 3) {
                pixel[kAlpha] = 150;
            } else if (open >= 1) {
                pixel[kAlpha] = 200;
            }
        }
    }
}

void BleedColours(const PicturePixels& pixels) {
    if (pixels.width < 3 || pixels.height < 3) return;
    const Framed framed(pixels);
    const auto neighbours = framed.Neighbours();

    // Known pixels are colour sources; an unknown one waits to be coloured
    // (queued once it has a known neighbour); the frame is neither.
    enum : uint8_t { kUnknown, kKnown, kQueued, kFrame };
    std::vector<uint8_t> state = VisibilityMap(pixels, framed, kKnown, kUnknown, kFrame);

    // A pass colours exactly the unknown pixels next to a known one: first
    // those around the drawing, then those around the ring coloured in the
    // pass before (every other unknown pixel had no known neighbour then and
    // has none now). So only the rings are visited, never the empty rest.
    struct Waiting {
        int32_t x, y;
        size_t at;
    };
    std::vector<Waiting> ring, nextRing;
    for (int32_t y = 0; y < pixels.height; ++y) {
        for (int32_t x = 0; x < pixels.width; ++x) {
            const size_t at = framed.At(x, y);
            if (state[at] != kUnknown) continue;
            for (const ptrdiff_t offset : neighbours) {
                if (state[at + offset] != kKnown) continue;
                state[at] = kQueued;
                ring.push_back({x, y, at});
                break;
            }
        }
    }

    // Four rings around the drawing are enough for the bilinear filter at
    // any scale the penguin is drawn at; a pixel coloured in one pass is a
    // source only from the next pass on.
    for (int pass = 0; pass < 4 && !ring.empty(); ++pass) {
        for (const Waiting& w : ring) {
            unsigned sum[3] = {0, 0, 0};
            unsigned sources = 0;
            for (int32_t dy = -1; dy <= 1; ++dy) {
                const uint8_t* flags = &state[w.at + static_cast<ptrdiff_t>(framed.width) * dy];
                for (int32_t dx = -1; dx <= 1; ++dx) {
                    if (flags[dx] != kKnown) continue;  // known: inside the picture
                    const uint8_t* source = Row(pixels, w.y + dy) + (w.x + dx) * 4;
                    for (int channel = kBlue; channel <= kRed; ++channel) sum[channel] += source[channel];
                    ++sources;
                }
            }
            uint8_t* pixel = Row(pixels, w.y) + w.x * 4;
            for (int channel = kBlue; channel <= kRed; ++channel) {
                pixel[channel] = static_cast<uint8_t>(sum[channel] / sources);
            }
        }
        for (const Waiting& w : ring) state[w.at] = kKnown;
        nextRing.clear();
        for (const Waiting& w : ring) {
            for (int32_t dy = -1; dy <= 1; ++dy) {
                for (int32_t dx = -1; dx <= 1; ++dx) {
                    const size_t at = w.at + static_cast<ptrdiff_t>(framed.width) * dy + dx;
                    if (state[at] != kUnknown) continue;
                    state[at] = kQueued;
                    nextRing.push_back({w.x + dx, w.y + dy, at});
                }
            }
        }
        ring.swap(nextRing);
    }
}
