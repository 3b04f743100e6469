// The two off-screen buffers of every display window, as cairo image
// surfaces in the layout of an X11 window surface (32-bit xRGB), so that a
// repainted rectangle reaches the screen as plain row copies.
#include <cairo.h>

#include "render/frame_buffers.h"
#include "render/window_buffers_linux.h"

namespace {

void ReleaseSurface(cairo_surface_t*& surface) {
    if (surface) cairo_surface_destroy(surface);
    surface = nullptr;
}

}  // namespace

void CreateWindowBuffers(DisplayWindow& window) {
    ReleaseWindowBuffers(window);
    if (!window.window || window.width < 1 || window.height < 1) return;
    // A surface that cannot be made is an error surface; painting checks
    // the status and skips the window.
    window.buffers = std::make_shared<WindowBuffers>();
    window.buffers->frameSurface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, window.width, window.height);
    window.buffers->scenerySurface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, window.width, window.height);
}

void ReleaseWindowBuffers(DisplayWindow& window) {
    if (!window.buffers) return;
    ReleaseSurface(window.buffers->frameSurface);
    ReleaseSurface(window.buffers->scenerySurface);
    window.buffers.reset();
}
