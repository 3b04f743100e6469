// The play field's operating-system services in the Linux edition, over
// SDL. Each is a thin translation; nothing here decides anything.
#include <SDL.h>

#include "app/shell_linux.h"
#include "play/platform.h"
#include "play/window_handle_linux.h"

namespace {

WindowHandle g_captureWindow = nullptr;

}  // namespace

uint32_t TickCount() {
    // Milliseconds since SDL started, wrapping like the Windows counter.
    return static_cast<uint32_t>(SDL_GetTicks64());
}

bool LeftButtonDown() {
    // Asked of the display server, so a release outside every window counts.
    return (SDL_GetGlobalMouseState(nullptr, nullptr) & SDL_BUTTON_LMASK) != 0;
}

void CaptureMouse(WindowHandle window) {
    g_captureWindow = window;
    SDL_CaptureMouse(SDL_TRUE);
}

WindowHandle MouseCaptureWindow() { return g_captureWindow; }

void ReleaseMouseCapture() {
    g_captureWindow = nullptr;
    SDL_CaptureMouse(SDL_FALSE);
}

void PlayWavImage(const uint8_t* image) { PlaySoundImage(image); }

void InvalidateClientRect(WindowHandle window, const Rect& client) { AddWindowDirt(window, client); }
