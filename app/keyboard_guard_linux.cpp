// The keyboard guard of the Linux edition: while play runs, Puffino holds
// the keyboard (on X11 through its own connection to the server, see
// x11_desktop_linux.cpp; on Wayland through SDL's grab, which asks the
// compositor to inhibit its shortcuts), so the desktop's shortcuts reach
// nothing else, and every key event goes through the guard's rules. Alt+F4
// ends play.
#include <SDL.h>

#include "app/host.h"
#include "app/host_platform.h"
#include "app/keyboard_guard.h"
#include "app/shell_linux.h"
#include "play/platform.h"
#include "play/window_handle_linux.h"

namespace {

bool g_guardInstalled = false;

// SDL's names for the keys the guard's rules name; every other key is an
// ordinary one.
GuardKey KeyOf(SDL_Keycode key) {
    switch (key) {
    case SDLK_TAB: return GuardKey::kTab;
    case SDLK_ESCAPE: return GuardKey::kEscape;
    case SDLK_PRINTSCREEN: return GuardKey::kPrintScreen;
    case SDLK_LGUI: return GuardKey::kLeftWindows;
    case SDLK_RGUI: return GuardKey::kRightWindows;
    case SDLK_APPLICATION: return GuardKey::kMenu;
    case SDLK_F1: return GuardKey::kF1;
    case SDLK_F4: return GuardKey::kF4;
    default: return GuardKey::kOther;
    }
}

GuardedKey ReadKey(const SDL_KeyboardEvent& event) {
    const Uint16 mod = event.keysym.mod;
    GuardedKey key;
    key.key = KeyOf(event.keysym.sym);
    key.press = event.type == SDL_KEYDOWN;
    key.altDown = (mod & KMOD_ALT) != 0;
    key.ctrlDown = (mod & KMOD_CTRL) != 0;
    key.shiftDown = (mod & KMOD_SHIFT) != 0;
    key.winDown = (mod & KMOD_GUI) != 0;
    return key;
}

bool IsAltF4(const GuardedKey& key) { return key.press && key.key == GuardKey::kF4 && key.altDown; }

}  // namespace

void InstallKeyboardGuard() {
    if (!g_blockShortcuts) return;
    g_guardInstalled = true;
    GrabKeyboardFor(g_homeWindow);
}

void GrabKeyboardFor(WindowHandle window) {
    if (!g_guardInstalled || !window) return;
    // On X11 the keyboard is held for the home window, whichever window
    // has the focus; a grab the server refuses is asked for again on the
    // next topmost tick, and play runs unguarded until then.
    if (X11DesktopOpen()) {
        HoldX11Keyboard(g_homeWindow);
        return;
    }
    SDL_Window* native = NativeWindow(window);
    // SDL holds the grab for the window with the focus only, so whichever
    // display window gets the focus asks for it. SDL ignores a request for
    // a window it already marks as grabbed, though the grab waited for the
    // focus: the mark is cleared so that this one counts.
    SDL_SetWindowKeyboardGrab(native, SDL_FALSE);
    SDL_SetWindowKeyboardGrab(native, SDL_TRUE);
}

void RenewKeyboardGuard() {
    // Only the X server's grab can be taken again without a gap.
    if (g_guardInstalled && g_homeWindow && X11DesktopOpen()) HoldX11Keyboard(g_homeWindow);
}

void RemoveKeyboardGuard() {
    if (!g_guardInstalled) return;
    g_guardInstalled = false;
    ReleaseX11Keyboard();
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.window) SDL_SetWindowKeyboardGrab(NativeWindow(window.window), SDL_FALSE);
    }
}

void HandleKeyEvent(const SDL_Event& event) { HandleGuardedKey(ReadKey(event.key)); }

void HandleGuardedKey(GuardedKey key) {
    if (!g_guardInstalled) {
        // Unguarded, the keys are the desktop's; where no window manager
        // turns Alt+F4 into a close request, it closes play here, as the
        // system's Alt+F4 closes the Windows program.
        if (IsAltF4(key)) PostQuit();
        return;
    }
    key.targetPresent = g_shortcutTarget != nullptr;
    const GuardDecision decision = DecideGuardedKey(key);
    // A reported key reaches the home window; only Alt+F4 does anything
    // there. Whatever else the grab holds back does nothing at all.
    if (decision.report && key.key == GuardKey::kF4) EndPlay();
}
