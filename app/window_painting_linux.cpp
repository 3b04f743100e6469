// Painting in the Linux edition: the rectangles invalidated since the last
// paint are gathered per window as a small merged region, as Windows gathers
// an update region; each is composed and exactly those are shown. Where the
// window's surface is laid out as the frame buffer, the frame is composed
// straight into its pixels and reaches the X server without another copy.
#include <SDL.h>
#include <cairo.h>

#include <map>

#include "app/shell_linux.h"
#include "play/dirty_region.h"
#include "play/display_records.h"
#include "play/window_handle_linux.h"
#include "render/compose_frame_linux.h"
#include "render/window_buffers_linux.h"

namespace {

// Per window, everything invalidated since its last paint, merged where
// rectangles touch (in client coordinates).
std::map<WindowHandle, DirtyRegion> g_dirt;

// Per window, the surface pixels last composed into: a surface SDL made
// anew holds nothing of the frame yet.
std::map<WindowHandle, const void*> g_composedInto;

// The window's surface takes the frame's own layout (xRGB, 32 bits, the
// window's size), so cairo may draw into it.
bool TakesFrameLayout(const SDL_Surface& screen, const DisplayWindow& window) {
    return screen.format->format == SDL_PIXELFORMAT_RGB888 && !SDL_MUSTLOCK(&screen) && screen.w == window.width &&
           screen.h == window.height;
}

// The frame buffer, rectangle by rectangle, blitted to a surface of
// another layout (SDL converts).
void BlitFromFrame(const DisplayWindow& window, SDL_Surface* screen, const SDL_Rect* rects, int count) {
    cairo_surface_t* frame = FrameSurface(window);
    SDL_Surface* source = SDL_CreateRGBSurfaceWithFormatFrom(
        cairo_image_surface_get_data(frame), window.width, window.height, 32, cairo_image_surface_get_stride(frame),
        SDL_PIXELFORMAT_RGB888);
    if (!source) return;
    SDL_SetSurfaceBlendMode(source, SDL_BLENDMODE_NONE);
    for (int i = 0; i < count; ++i) {
        SDL_Rect sourceRect = rects[i], target = rects[i];
        SDL_BlitSurface(source, &sourceRect, screen, &target);
    }
    SDL_FreeSurface(source);
}

void PaintWindow(const DisplayWindow& window, DirtyRegion& region) {
    SDL_Surface* screen = SDL_GetWindowSurface(NativeWindow(window.window));
    if (!screen) return;  // no surface now: the next expose repaints
    const Rect client{0, 0, window.width, window.height};
    const bool inPlace = TakesFrameLayout(*screen, window);
    if (inPlace && g_composedInto[window.window] != screen->pixels) {
        region.rects[0] = client;
        region.count = 1;
        g_composedInto[window.window] = screen->pixels;
    }
    int count = 0;
    for (int32_t i = 0; i < region.count; ++i) {
        const Rect part = Intersection(region.rects[i], client);
        if (!IsEmpty(part)) region.rects[count++] = part;
    }
    if (count == 0) return;
    cairo_surface_t* target =
        inPlace ? cairo_image_surface_create_for_data(static_cast<unsigned char*>(screen->pixels), CAIRO_FORMAT_RGB24,
                                                      screen->w, screen->h, screen->pitch)
                : cairo_surface_reference(FrameSurface(window));
    ComposeRects(target, window, region.rects.data(), count);
    cairo_surface_destroy(target);
    SDL_Rect shown[kMaxDirtyRects];
    for (int i = 0; i < count; ++i) {
        const Rect& r = region.rects[i];
        shown[i] = {r.left, r.top, Width(r), Height(r)};
    }
    if (!inPlace) BlitFromFrame(window, screen, shown, count);
    SDL_UpdateWindowSurfaceRects(NativeWindow(window.window), shown, count);
}

}  // namespace

void AddWindowDirt(WindowHandle window, const Rect& client) {
    if (window) AddDirtyRect(g_dirt[window], client);
}

void ForgetWindowDirt(WindowHandle window) {
    g_dirt.erase(window);
    g_composedInto.erase(window);
}

void PaintWindows() {
    // Each region is emptied once painted and kept for the next tick; a
    // window without a record (mid-rebuild) is validated all the same.
    for (auto& [handle, region] : g_dirt) {
        const DisplayWindow* window = FindDisplayWindow(handle);
        if (window && FrameSurface(*window)) PaintWindow(*window, region);
        region.count = 0;
    }
}
