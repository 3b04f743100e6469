// The keyboard guard's hook: installed at start-up, removed when play ends.
#include "app/keyboard_guard_win.h"

#include "app/shell.h"

HHOOK g_keyboardHook = nullptr;

LRESULT CALLBACK KeyboardGuardProc(int code, WPARAM wParam, LPARAM lParam) {
    // The shortcut rules join with the keyboard guard; until then every key
    // passes.
    return CallNextHookEx(g_keyboardHook, code, wParam, lParam);
}

void InstallKeyboardGuard() {
    if (!g_blockShortcuts || g_keyboardHook) return;
    g_keyboardHook = SetWindowsHookExW(WH_KEYBOARD_LL, KeyboardGuardProc, GetModuleHandleW(nullptr), 0);
}

void RemoveKeyboardGuard() {
    if (!g_keyboardHook) return;
    UnhookWindowsHookEx(g_keyboardHook);
    g_keyboardHook = nullptr;
}
