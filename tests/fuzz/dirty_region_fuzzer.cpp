// Any sequence of dirty rectangles, anywhere in the 32-bit plane: the region
// never holds more than its 776 rectangles, never an empty one, never two
// that touch (they would have merged), and still covers every rectangle
// added, with nothing outside their bounding box.
#include <algorithm>
#include <climits>
#include <vector>

#include "play/dirty_region.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

bool Contains(const Rect& outer, const Rect& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

// Grown by one pixel, a overlaps b. In 64 bits: edges may sit at the limits.
bool Touch(const Rect& a, const Rect& b) {
    return int64_t{a.left} - 1 < b.right && int64_t{a.right} + 1 > b.left && int64_t{a.top} - 1 < b.bottom &&
           int64_t{a.bottom} + 1 > b.top;
}

Rect Bound(const Rect& a, const Rect& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

// A coordinate anywhere, often at or next to the limits of 32 bits.
int32_t AnyCoordinate(FuzzInput& input) {
    constexpr int32_t kEdges[] = {INT32_MIN, INT32_MIN + 1, -1, 0, 1, INT32_MAX - 1, INT32_MAX};
    const uint8_t pick = input.Byte();
    return pick < 7 * 16 ? kEdges[pick % 7] : static_cast<int32_t>(input.U32());
}

// The rectangles one step of the input adds.
std::vector<Rect> NextRects(FuzzInput& input) {
    std::vector<Rect> rects;
    switch (input.Byte() % 4) {
        case 0: {  // one on a monitor-sized plane, possibly empty or inverted
            const int32_t left = input.IntIn(-100, 4000), top = input.IntIn(-100, 4000);
            rects.push_back({left, top, left + input.IntIn(-8, 600), top + input.IntIn(-8, 600)});
            break;
        }
        case 1:  // one anywhere
            rects.push_back({AnyCoordinate(input), AnyCoordinate(input), AnyCoordinate(input),
                             AnyCoordinate(input)});
            break;
        case 2: {  // a row of separate specks: enough of them fill the region
            const int32_t x = input.IntIn(-100, 4000), y = input.IntIn(-100, 4000);
            const int32_t count = input.IntIn(1, 1000), step = input.IntIn(1, 4);
            for (int32_t i = 0; i < count; ++i) rects.push_back({x + i * step, y, x + i * step + 1, y + 1});
            break;
        }
        default: {  // a grid of specks with a rectangle to join some of them
            const int32_t columns = input.IntIn(1, 40), rows = input.IntIn(1, 40);
            for (int32_t i = 0; i < columns * rows; ++i) {
                const int32_t x = (i % columns) * 3, y = (i / columns) * 3;
                rects.push_back({x, y, x + 1, y + 1});
            }
            const int32_t left = input.IntIn(0, 120), top = input.IntIn(0, 120);
            rects.push_back({left, top, left + input.IntIn(1, 8), top + input.IntIn(1, 8)});
            break;
        }
    }
    return rects;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    DirtyRegion region;
    bool anyAdded = false;
    Rect bounds;  // of every non-empty rectangle added
    for (int step = 0; step < 16 && !input.Empty(); ++step) {
        const std::vector<Rect> added = NextRects(input);
        for (const Rect& r : added) {
            AddDirtyRect(region, r);
            if (IsEmpty(r)) continue;
            bounds = anyAdded ? Bound(bounds, r) : r;
            anyAdded = true;
        }

        FUZZ_CHECK(region.count >= 0 && region.count <= kMaxDirtyRects);
        FUZZ_CHECK((region.count == 0) == !anyAdded);
        Rect stored = region.count > 0 ? region.rects[0] : Rect{};
        for (int32_t i = 0; i < region.count; ++i) {
            FUZZ_CHECK(!IsEmpty(region.rects[i]));
            stored = Bound(stored, region.rects[i]);
            for (int32_t j = i + 1; j < region.count; ++j) {
                FUZZ_CHECK(!Touch(region.rects[i], region.rects[j]));
            }
        }
        if (anyAdded) FUZZ_CHECK(stored == bounds);
        // Stored rectangles only ever grow, so checking this step's
        // rectangles is enough.
        for (const Rect& r : added) {
            if (IsEmpty(r)) continue;
            FUZZ_CHECK(std::any_of(region.rects.begin(), region.rects.begin() + region.count,
                                   [&](const Rect& s) { return Contains(s, r); }));
        }
    }
    return 0;
}
