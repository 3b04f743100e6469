// The keyboard guard of the Linux edition: while play runs, Puffino holds
// the keyboard (on X11 through its own connection to the server, see
// x11_desktop_linux.cpp; on Wayland through SDL's grab, which asks the
// compositor to inhibit its shortcuts), so the desktop's shortcuts reach
// nothing else, and every key event goes through the guard's rules. Alt+F4
// ends play.
#include <SDL.h>

#include "app/display_windows.h"
#include "app/keyboard_guard.h"
#include "app/linux_shell.h"
#include "app/shell.h"

namespace {

bool g_guardInstalled = false;

// The guard's rules speak in the Windows program's key codes; SDL's names
// for the keys they name are translated, every other key is ordinary.
uint32_t GuardCodeOf(SDL_Keycode key) {
    switch (key) {
    case SDLK_TAB: return guard_keys::kTab;
    case SDLK_ESCAPE: return guard_keys::kEscape;
    case SDLK_PRINTSCREEN: return guard_keys::kSnapshot;
    case SDLK_LGUI: return guard_keys::kLeftWin;
    case SDLK_RGUI: return guard_keys::kRightWin;
    case SDLK_APPLICATION: return guard_keys::kApps;
    case SDLK_F1: return guard_keys::kF1;
    case SDLK_F4: return guard_keys::kF4;
    default: return 0;
    }
}

DesktopKey ReadKey(const SDL_KeyboardEvent& event) {
    const Uint16 mod = event.keysym.mod;
    DesktopKey key;
    key.guardCode = GuardCodeOf(event.keysym.sym);
    key.down = event.type == SDL_KEYDOWN;
    key.alt = (mod & KMOD_ALT) != 0;
    key.ctrl = (mod & KMOD_CTRL) != 0;
    key.shift = (mod & KMOD_SHIFT) != 0;
    key.gui = (mod & KMOD_GUI) != 0;
    return key;
}

GuardedKey ToGuardedKey(const DesktopKey& key) {
    GuardedKey guarded;
    guarded.altDown = key.alt;
    // Alt turns a key press into a system key press, as on Windows.
    guarded.message = key.down ? (key.alt ? guard_keys::kSysKeyDown : guard_keys::kKeyDown)
                               : (key.alt ? guard_keys::kSysKeyUp : guard_keys::kKeyUp);
    guarded.vkCode = key.guardCode;
    guarded.ctrlDown = key.ctrl;
    guarded.shiftDown = key.shift;
    guarded.winDown = key.gui;
    guarded.targetPresent = g_shortcutTarget != nullptr;
    return guarded;
}

bool IsAltF4(const DesktopKey& key) { return key.down && key.guardCode == guard_keys::kF4 && key.alt; }

}  // namespace

void InstallKeyboardGuard() {
    if (!g_blockShortcuts) return;
    g_guardInstalled = true;
    GrabKeyboardFor(g_mainWindow);
}

void GrabKeyboardFor(WindowHandle window) {
    if (!g_guardInstalled || !window) return;
    // On X11 the keyboard is held for the home window, whichever window
    // has the focus; a grab the server refuses is asked for again on the
    // next topmost tick, and play runs unguarded until then.
    if (X11DesktopOpen()) {
        HoldX11Keyboard(g_mainWindow);
        return;
    }
    // SDL holds the grab for the window with the focus only, so whichever
    // display window gets the focus asks for it. SDL ignores a request for
    // a window it already marks as grabbed, though the grab waited for the
    // focus: the mark is cleared so that this one counts.
    SDL_SetWindowKeyboardGrab(window, SDL_FALSE);
    SDL_SetWindowKeyboardGrab(window, SDL_TRUE);
}

void RenewKeyboardGuard() {
    // Only the X server's grab can be taken again without a gap.
    if (g_guardInstalled && g_mainWindow && X11DesktopOpen()) HoldX11Keyboard(g_mainWindow);
}

void RemoveKeyboardGuard() {
    if (!g_guardInstalled) return;
    g_guardInstalled = false;
    ReleaseX11Keyboard();
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.hwnd) SDL_SetWindowKeyboardGrab(window.hwnd, SDL_FALSE);
    }
}

void HandleKeyEvent(const SDL_Event& event) { HandleGuardedKey(ReadKey(event.key)); }

void HandleGuardedKey(const DesktopKey& key) {
    if (!g_guardInstalled) {
        // Unguarded, the keys are the desktop's; where no window manager
        // turns Alt+F4 into a close request, it closes play here, as the
        // system's Alt+F4 closes the Windows program.
        if (IsAltF4(key)) PostQuit();
        return;
    }
    const GuardDecision decision = DecideGuardedKey(ToGuardedKey(key));
    // A reported key reaches the home window; only Alt+F4 does anything
    // there. Whatever else the grab holds back does nothing at all.
    if (decision.report && key.guardCode == guard_keys::kF4) EndPlay();
}
