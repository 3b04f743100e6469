// The keyboard guard of the Linux edition: while play runs, the home window
// holds the keyboard (an X11 keyboard grab; on Wayland the compositor's
// shortcut inhibition), so the desktop's shortcuts reach nothing else, and
// every key event goes through the guard's rules. Alt+F4 ends play.
#include <SDL.h>

#include "app/display_windows.h"
#include "app/keyboard_guard.h"
#include "app/linux_shell.h"
#include "app/shell.h"

namespace {

bool g_guardInstalled = false;

// The guard's rules speak in Windows key codes; the keys they name are
// translated, every other key counts as an ordinary one.
uint32_t GuardKeyCode(SDL_Keycode key) {
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

GuardedKey ReadKey(const SDL_KeyboardEvent& event) {
    const Uint16 mod = event.keysym.mod;
    GuardedKey key;
    key.altDown = (mod & KMOD_ALT) != 0;
    // Alt turns a key press into a system key press, as on Windows.
    const bool down = event.type == SDL_KEYDOWN;
    key.message = down ? (key.altDown ? guard_keys::kSysKeyDown : guard_keys::kKeyDown)
                       : (key.altDown ? guard_keys::kSysKeyUp : guard_keys::kKeyUp);
    key.vkCode = GuardKeyCode(event.keysym.sym);
    key.ctrlDown = (mod & KMOD_CTRL) != 0;
    key.shiftDown = (mod & KMOD_SHIFT) != 0;
    key.winDown = (mod & KMOD_GUI) != 0;
    key.targetPresent = g_shortcutTarget != nullptr;
    return key;
}

bool IsAltF4(const SDL_KeyboardEvent& event) {
    return event.type == SDL_KEYDOWN && event.keysym.sym == SDLK_F4 && (event.keysym.mod & KMOD_ALT);
}

}  // namespace

void InstallKeyboardGuard() {
    if (!g_blockShortcuts) return;
    g_guardInstalled = true;
    GrabKeyboardFor(g_mainWindow);
}

void GrabKeyboardFor(WindowHandle window) {
    // SDL holds the grab for the window with the focus only; whichever
    // display window a window manager focuses asks for it. A grab the
    // display server refuses leaves play running unguarded. SDL ignores a
    // request for a window it already marks as grabbed, though the grab
    // waited for the focus: the mark is cleared so that this one counts.
    if (!g_guardInstalled || !window) return;
    SDL_SetWindowKeyboardGrab(window, SDL_FALSE);
    SDL_SetWindowKeyboardGrab(window, SDL_TRUE);
}

void RemoveKeyboardGuard() {
    if (!g_guardInstalled) return;
    g_guardInstalled = false;
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.hwnd) SDL_SetWindowKeyboardGrab(window.hwnd, SDL_FALSE);
    }
}

void HandleKeyEvent(const SDL_Event& event) {
    if (!g_guardInstalled) {
        // Unguarded, the keys are the desktop's; with no window manager to
        // turn Alt+F4 into a close request, it closes play here, as the
        // system's Alt+F4 closes the Windows program.
        if (IsAltF4(event.key)) PostQuit();
        return;
    }
    const GuardDecision decision = DecideGuardedKey(ReadKey(event.key));
    // A reported key reaches the home window; only Alt+F4 does anything
    // there. Whatever else the grab holds back does nothing at all.
    if (decision.report && event.key.keysym.sym == SDLK_F4) EndPlay();
}
