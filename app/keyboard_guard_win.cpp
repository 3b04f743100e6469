// The keyboard guard's hook: reads the event and the modifier keys, applies
// the guard's rules and posts the keys it reports to the home window.
// Installed at start-up, removed when play ends.
#include "app/keyboard_guard_win.h"

#include "app/host.h"
#include "app/host_platform.h"
#include "app/keyboard_guard.h"
#include "play/window_handle_win.h"

HHOOK g_keyboardHook = nullptr;

namespace {

bool Held(int virtualKey) { return (GetAsyncKeyState(virtualKey) & 0x8000) != 0; }

GuardKey KeyOf(DWORD virtualKey) {
    switch (virtualKey) {
    case VK_TAB: return GuardKey::kTab;
    case VK_ESCAPE: return GuardKey::kEscape;
    case VK_SNAPSHOT: return GuardKey::kPrintScreen;
    case VK_LWIN: return GuardKey::kLeftWindows;
    case VK_RWIN: return GuardKey::kRightWindows;
    case VK_APPS: return GuardKey::kMenu;
    case VK_F1: return GuardKey::kF1;
    case VK_F4: return GuardKey::kF4;
    default: return GuardKey::kOther;
    }
}

GuardedKey ReadKey(int code, WPARAM wParam, const KBDLLHOOKSTRUCT& event) {
    GuardedKey key;
    key.key = KeyOf(event.vkCode);
    key.press = code == HC_ACTION && (wParam == WM_KEYDOWN || wParam == WM_SYSKEYDOWN);
    key.flaggedUp = (event.flags & LLKHF_UP) != 0;
    key.extended = (event.flags & LLKHF_EXTENDED) != 0;
    // Windows marks Alt in the event's flags; Wine never sets LLKHF_ALTDOWN
    // and shows a held Alt only through the asynchronous key state, so both
    // are asked.
    key.altDown = (event.flags & LLKHF_ALTDOWN) || Held(VK_MENU) || Held(VK_LMENU) || Held(VK_RMENU);
    key.ctrlDown = Held(VK_CONTROL);
    key.shiftDown = Held(VK_SHIFT);
    key.winDown = Held(VK_LWIN) || Held(VK_RWIN);
    key.targetPresent = g_shortcutTarget != nullptr;
    return key;
}

}  // namespace

LRESULT CALLBACK KeyboardGuardProc(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION) {
        const auto& event = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(lParam);
        const GuardDecision decision = DecideGuardedKey(ReadKey(code, wParam, event));
        // Only a post that got through swallows a reported key; a failed one
        // leaves the key to the block rules (Alt+F4 then reaches the system).
        if (decision.report &&
            PostMessageW(NativeWindow(g_shortcutTarget), WM_GUARDED_KEY, static_cast<WPARAM>(event.vkCode), 0)) {
            return 1;
        }
        if (decision.swallow) return 1;
    }
    return CallNextHookEx(g_keyboardHook, code, wParam, lParam);
}

void InstallKeyboardGuard() {
    if (!g_blockShortcuts || g_keyboardHook) return;
    // A failure leaves the hook null: play runs unguarded.
    g_keyboardHook = SetWindowsHookExW(WH_KEYBOARD_LL, KeyboardGuardProc, GetModuleHandleW(nullptr), 0);
}

void RemoveKeyboardGuard() {
    if (!g_keyboardHook) return;
    UnhookWindowsHookEx(g_keyboardHook);
    g_keyboardHook = nullptr;
}
