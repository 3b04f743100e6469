// The three clean-up filters on any picture up to 48 x 48 with padded rows:
// nothing outside the pixels is written, and each filter keeps its promises
// about alpha and colour.
//  - Speck removal erases whole blobs (corner contact connects) and only
//    those: every erased blob is smaller than every kept one, and a kept
//    blob has at least 24 pixels.
//  - Outline softening changes no colour, only lowers the alpha of opaque
//    dark pixels to 150 or 200, and only next to transparency or the border.
//  - Colour bleeding changes no alpha and no visible pixel, colours only
//    invisible pixels within four steps of the drawing, and only with
//    colours between those of the drawing.
#include <algorithm>
#include <numeric>
#include <vector>

#include "assets/pose_picture_filters.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

constexpr uint8_t kCanary = 0xC5;

struct Picture {
    int32_t width = 0, height = 0;
    ptrdiff_t stride = 0;
    std::vector<uint8_t> bytes;

    PicturePixels Pixels() { return {bytes.data(), width, height, stride}; }
    const uint8_t* At(int32_t x, int32_t y) const { return &bytes[static_cast<size_t>(y * stride + x * 4)]; }
    uint8_t Alpha(int32_t x, int32_t y) const { return At(x, y)[3]; }
    bool Visible(int32_t x, int32_t y) const { return Alpha(x, y) >= kVisibleAlpha; }
    bool Inside(int32_t x, int32_t y) const { return x >= 0 && y >= 0 && x < width && y < height; }
};

// A picture from the input: raw pixels, or two bits a pixel from a palette
// of four colours the input also chooses (blobs and outlines come easily
// that way). Row padding holds a canary.
Picture ReadPicture(FuzzInput& input) {
    Picture p;
    p.width = input.IntIn(1, 48);
    p.height = input.IntIn(1, 48);
    p.stride = (p.width + input.IntIn(0, 3)) * 4;
    p.bytes.assign(static_cast<size_t>(p.stride * p.height), kCanary);
    const bool paletted = input.Bool();
    uint8_t palette[4][4] = {};
    if (paletted) {
        for (auto& colour : palette) {
            for (uint8_t& channel : colour) channel = input.Byte();
        }
    }
    uint8_t bits = 0;
    for (int32_t i = 0; i < p.width * p.height; ++i) {
        uint8_t* pixel = &p.bytes[static_cast<size_t>((i / p.width) * p.stride + (i % p.width) * 4)];
        if (paletted) {
            if (i % 4 == 0) bits = input.Byte();
            std::copy_n(palette[(bits >> (i % 4 * 2)) & 3], 4, pixel);
        } else {
            for (int c = 0; c < 4; ++c) pixel[c] = input.Byte();
        }
    }
    return p;
}

void CheckPadding(const Picture& p) {
    for (int32_t y = 0; y < p.height; ++y) {
        for (ptrdiff_t b = p.width * 4; b < p.stride; ++b) FUZZ_CHECK(p.bytes[y * p.stride + b] == kCanary);
    }
}

bool Same(const uint8_t* a, const uint8_t* b, int channels) { return std::equal(a, a + channels, b); }

// Blob of each visible pixel (corner contact connects), as the root of a
// union-find, and the blob sizes.
struct Blobs {
    std::vector<int32_t> parent, size;
    int32_t Root(int32_t i) {
        while (parent[i] != i) i = parent[i] = parent[parent[i]];
        return i;
    }
};

Blobs FindBlobs(const Picture& p) {
    const int32_t count = p.width * p.height;
    Blobs blobs{std::vector<int32_t>(count), std::vector<int32_t>(count, 1)};
    std::iota(blobs.parent.begin(), blobs.parent.end(), 0);
    for (int32_t y = 0; y < p.height; ++y) {
        for (int32_t x = 0; x < p.width; ++x) {
            if (!p.Visible(x, y)) continue;
            // The neighbours already passed: left, and the row above.
            const int32_t near[4][2] = {{x - 1, y}, {x - 1, y - 1}, {x, y - 1}, {x + 1, y - 1}};
            for (const auto& n : near) {
                if (!p.Inside(n[0], n[1]) || !p.Visible(n[0], n[1])) continue;
                const int32_t a = blobs.Root(y * p.width + x), b = blobs.Root(n[1] * p.width + n[0]);
                if (a == b) continue;
                blobs.parent[b] = a;
                blobs.size[a] += blobs.size[b];
            }
        }
    }
    return blobs;
}

void CheckSpecks(const Picture& before, const Picture& after) {
    const bool skipped = before.width < 3 || before.height < 3;
    Blobs blobs = FindBlobs(before);
    int32_t smallestKept = INT32_MAX, largestErased = 0;
    for (int32_t y = 0; y < before.height; ++y) {
        for (int32_t x = 0; x < before.width; ++x) {
            const uint8_t zero[4] = {};
            const bool kept = Same(before.At(x, y), after.At(x, y), 4);
            FUZZ_CHECK(kept || (!skipped && before.Visible(x, y) && Same(after.At(x, y), zero, 4)));
            if (!before.Visible(x, y)) continue;
            const int32_t size = blobs.size[blobs.Root(y * before.width + x)];
            if (kept) {
                smallestKept = std::min(smallestKept, size);
            } else {
                largestErased = std::max(largestErased, size);
            }
        }
    }
    FUZZ_CHECK(largestErased < smallestKept);
    if (!skipped && smallestKept != INT32_MAX) FUZZ_CHECK(smallestKept >= 24);
}

void CheckOutline(const Picture& before, const Picture& after) {
    for (int32_t y = 0; y < before.height; ++y) {
        for (int32_t x = 0; x < before.width; ++x) {
            const uint8_t *was = before.At(x, y), *is = after.At(x, y);
            FUZZ_CHECK(Same(was, is, 3));
            if (was[3] == is[3]) continue;
            FUZZ_CHECK(before.width >= 2 && before.height >= 2);
            FUZZ_CHECK(was[3] >= 200 && was[0] < 50 && was[1] < 50 && was[2] < 50);
            FUZZ_CHECK((is[3] == 150 || is[3] == 200) && is[3] < was[3]);
            bool open = false;
            for (int32_t ny = y - 1; ny <= y + 1; ++ny) {
                for (int32_t nx = x - 1; nx <= x + 1; ++nx) {
                    open = open || !before.Inside(nx, ny) || before.Alpha(nx, ny) < 24;
                }
            }
            FUZZ_CHECK(open);
        }
    }
}

void CheckBleed(const Picture& before, const Picture& after) {
    uint8_t low[3] = {255, 255, 255}, high[3] = {0, 0, 0};
    for (int32_t y = 0; y < before.height; ++y) {
        for (int32_t x = 0; x < before.width; ++x) {
            if (!before.Visible(x, y)) continue;
            for (int c = 0; c < 3; ++c) {
                low[c] = std::min(low[c], before.At(x, y)[c]);
                high[c] = std::max(high[c], before.At(x, y)[c]);
            }
        }
    }
    for (int32_t y = 0; y < before.height; ++y) {
        for (int32_t x = 0; x < before.width; ++x) {
            const uint8_t *was = before.At(x, y), *is = after.At(x, y);
            FUZZ_CHECK(was[3] == is[3]);
            if (Same(was, is, 3)) continue;
            FUZZ_CHECK(before.width >= 3 && before.height >= 3 && !before.Visible(x, y));
            bool near = false;
            for (int32_t ny = y - 4; ny <= y + 4; ++ny) {
                for (int32_t nx = x - 4; nx <= x + 4; ++nx) {
                    near = near || (before.Inside(nx, ny) && before.Visible(nx, ny));
                }
            }
            FUZZ_CHECK(near);
            for (int c = 0; c < 3; ++c) FUZZ_CHECK(is[c] >= low[c] && is[c] <= high[c]);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const Picture original = ReadPicture(input);

    // Each filter on its own. (Chained in their load-time order, each one's
    // output is just another picture.)
    Picture step = original;
    RemoveSpecks(step.Pixels());
    CheckPadding(step);
    CheckSpecks(original, step);

    step = original;
    SoftenOutline(step.Pixels());
    CheckPadding(step);
    CheckOutline(original, step);

    step = original;
    BleedColours(step.Pixels());
    CheckPadding(step);
    CheckBleed(original, step);
    return 0;
}
