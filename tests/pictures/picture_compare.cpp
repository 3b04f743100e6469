// Reference-picture comparison over plain pixels.
#include "tests/pictures/picture_compare.h"

#include <algorithm>
#include <cstdlib>

namespace {

bool ChannelsClose(uint32_t a, uint32_t b) {
    for (int shift = 0; shift < 32; shift += 8) {
        const int32_t da = static_cast<int32_t>(a >> shift & 0xFF), db = static_cast<int32_t>(b >> shift & 0xFF);
        if (std::abs(da - db) > kChannelTolerance) return false;
    }
    return true;
}

// A pale grey of the pixel's brightness, so that the scene stays readable
// under the magenta marks.
uint32_t Faded(uint32_t argb) {
    const uint32_t grey = ((argb >> 16 & 0xFF) + (argb >> 8 & 0xFF) + (argb & 0xFF)) / 3;
    const uint32_t pale = 160 + grey * 95 / 255;
    return 0xFF000000 | pale << 16 | pale << 8 | pale;
}

}  // namespace

PictureDifference ComparePictures(const Picture& actual, const Picture& reference) {
    PictureDifference result;
    result.sameSize = actual.width == reference.width && actual.height == reference.height &&
                      actual.pixels.size() == reference.pixels.size();
    if (!result.sameSize) return result;
    result.map = {reference.width, reference.height, std::vector<uint32_t>(reference.pixels.size())};
    Rect& box = result.changedBox;
    box = {reference.width, reference.height, 0, 0};
    for (int32_t y = 0; y < reference.height; ++y) {
        for (int32_t x = 0; x < reference.width; ++x) {
            const size_t i = static_cast<size_t>(y) * reference.width + x;
            const bool close = ChannelsClose(actual.pixels[i], reference.pixels[i]);
            result.map.pixels[i] = close ? Faded(reference.pixels[i]) : 0xFFFF00FF;
            if (close) continue;
            ++result.changedPixels;
            box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                   std::max(box.bottom, y + 1)};
        }
    }
    if (result.changedPixels == 0) box = {0, 0, 0, 0};
    return result;
}
