// A frame composed rectangle by rectangle, as the Linux edition paints the
// merged region of a tick, has the same pixels as one composed whole: no
// seams where a bubble, a label or the penguin crosses a rectangle's edge,
// and nothing of the rectangle before carried into the next.
#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "render/compose_frame_linux.h"
#include "render/window_buffers_linux.h"
#include "tests/pictures/scene_pictures.h"
#include "tests/pictures/scenes.h"

namespace {

const Scene& BusyScene() {
    for (const Scene& scene : Scenes()) {
        if (scene.name == "frame-two-windows") return scene;
    }
    throw std::logic_error("no busy scene");
}

// Uneven cuts that cross the bubbles, the penguin and the labels.
std::vector<Rect> Tiles(int32_t width, int32_t height) {
    const int32_t xs[] = {0, 97, 230, 231, 401, 555, width};
    const int32_t ys[] = {0, 61, 188, 300, 301, height};
    std::vector<Rect> tiles;
    for (int32_t row = 0; row + 1 < 6; ++row) {
        for (int32_t column = 0; column + 1 < 7; ++column) {
            const Rect tile{xs[column], ys[row], std::min(xs[column + 1], width), std::min(ys[row + 1], height)};
            if (!IsEmpty(tile)) tiles.push_back(tile);
        }
    }
    return tiles;
}

bool SamePixels(cairo_surface_t* a, cairo_surface_t* b, int32_t width, int32_t height) {
    cairo_surface_flush(a);
    cairo_surface_flush(b);
    for (int32_t y = 0; y < height; ++y) {
        const auto* rowA = reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(a) +
                                                             y * cairo_image_surface_get_stride(a));
        const auto* rowB = reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(b) +
                                                             y * cairo_image_surface_get_stride(b));
        for (int32_t x = 0; x < width; ++x) {
            if ((rowA[x] & 0xFFFFFF) != (rowB[x] & 0xFFFFFF)) {
                ADD_FAILURE() << "first difference at (" << x << "," << y << ")";
                return false;
            }
        }
    }
    return true;
}

}  // namespace

TEST(ComposeRects, TileByTileEqualsTheWholeFrame) {
    const Scene& scene = BusyScene();
    ReportPoseSizes();
    StageScene(scene);
    MakeWindowBuffers(scene.plainBackground);
    for (const DisplayWindow& window : g_displayWindows) {
        const Rect whole{0, 0, window.width, window.height};
        ComposeRects(FrameSurface(window), window, &whole, 1);
        // Black to begin with: whatever a tile leaves unpainted shows.
        cairo_surface_t* tiled = cairo_image_surface_create(CAIRO_FORMAT_RGB24, window.width, window.height);
        const std::vector<Rect> tiles = Tiles(window.width, window.height);
        ComposeRects(tiled, window, tiles.data(), static_cast<int>(tiles.size()));
        EXPECT_TRUE(SamePixels(FrameSurface(window), tiled, window.width, window.height)) << "window " << window.home;
        cairo_surface_destroy(tiled);
    }
    ReleaseWindowBuffers();
}
