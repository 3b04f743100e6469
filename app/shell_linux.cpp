// The end of play in the Linux edition: shared by the finish button and
// Alt+F4.
#include <SDL.h>

#include "app/display_windows.h"
#include "app/linux_shell.h"
#include "app/shell.h"
#include "play/pointer_input.h"

void EndPlay() {
    // The finish button and Alt+F4 can both arrive in one burst.
    if (g_playEnded) return;
    g_playEnded = true;

    StopTimers();
    // The guard goes before the windows do, so that the desktop's shortcuts
    // work again as soon as the windows disappear.
    RemoveKeyboardGuard();
    g_shortcutTarget = nullptr;
    CancelPress();  // gives the pointer capture back
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.hwnd) SDL_HideWindow(window.hwnd);
    }
    DestroyDisplayWindows();
    g_mainWindow = nullptr;
    PostQuit();
}
