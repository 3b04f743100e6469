// Painting in the Linux edition: the rectangles invalidated since the last
// paint are gathered per window, as Windows gathers an update region, then
// composed into the frame buffer and copied to the window's surface.
#include <SDL.h>
#include <cairo.h>

#include <map>

#include "app/display_windows.h"
#include "app/linux_shell.h"
#include "render/frame_buffers.h"

namespace {

// Per window, the box around everything invalidated since its last paint
// (a paint covers that box, like the Windows paint rectangle).
std::map<WindowHandle, Rect> g_dirt;

// Copies a client rectangle of the frame buffer to the screen.
void Present(DisplayWindow& window, const Rect& box) {
    SDL_Surface* screen = SDL_GetWindowSurface(window.hwnd);
    if (!screen) return;  // no surface now: the next expose repaints
    cairo_surface_t* frame = window.frameSurface;
    // The frame is 32-bit xRGB, SDL's RGB888; the blit converts for any
    // other screen format.
    SDL_Surface* source = SDL_CreateRGBSurfaceWithFormatFrom(
        cairo_image_surface_get_data(frame), window.width, window.height, 32,
        cairo_image_surface_get_stride(frame), SDL_PIXELFORMAT_RGB888);
    if (!source) return;
    SDL_SetSurfaceBlendMode(source, SDL_BLENDMODE_NONE);
    SDL_Rect rect{box.left, box.top, Width(box), Height(box)};
    SDL_Rect target = rect;
    SDL_BlitSurface(source, &rect, screen, &target);
    SDL_FreeSurface(source);
    SDL_UpdateWindowSurfaceRects(window.hwnd, &rect, 1);
}

}  // namespace

void AddWindowDirt(WindowHandle window, const Rect& client) {
    if (!window || IsEmpty(client)) return;
    const auto found = g_dirt.find(window);
    g_dirt[window] = found == g_dirt.end() ? client : Union(found->second, client);
}

void ForgetWindowDirt(WindowHandle window) { g_dirt.erase(window); }

void PaintWindows() {
    // Taken first: composing may not add to it, but a window without a
    // record (mid-rebuild) is validated all the same.
    std::map<WindowHandle, Rect> dirt;
    dirt.swap(g_dirt);
    for (const auto& [handle, box] : dirt) {
        DisplayWindow* window = FindDisplayWindow(handle);
        if (!window || !window->frameSurface) continue;
        const Rect clipped = Intersection(box, {0, 0, window->width, window->height});
        if (IsEmpty(clipped)) continue;
        ComposeFrame(*window, clipped);
        Present(*window, clipped);
    }
}
