// The low-level keyboard hook that keeps system shortcuts away from the
// child while play runs and reports Alt+F4 to the home window.
#pragma once

#include <windows.h>

// Posted to g_shortcutTarget with the virtual-key code in wParam.
constexpr UINT WM_GUARDED_KEY = WM_APP + 1;

// The hook while installed, else null.
extern HHOOK g_keyboardHook;

// The WH_KEYBOARD_LL procedure; runs on the main thread inside GetMessageW.
LRESULT CALLBACK KeyboardGuardProc(int code, WPARAM wParam, LPARAM lParam);

// InstallKeyboardGuard (host_platform.h) sets the hook when shortcuts are
// to be blocked and it is not yet set; a failure leaves play unguarded.
