// A key watcher for the end-to-end tests: installs its own low-level
// keyboard hook and prints every key event that reaches it, one line each
// ("down 65", "up 65"), after a first line "ready". Started before Puffino,
// its hook sits behind Puffino's keyboard guard in the hook chain, so it
// sees exactly what the guard passes on. Runs until it is killed.
#include <windows.h>

#include <cstdio>

namespace {

HHOOK g_hook = nullptr;

LRESULT CALLBACK Watch(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION) {
        const auto& event = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(lParam);
        std::printf("%s %lu\n", (event.flags & LLKHF_UP) ? "up" : "down", event.vkCode);
        std::fflush(stdout);
    }
    return CallNextHookEx(g_hook, code, wParam, lParam);
}

}  // namespace

int wmain() {
    g_hook = SetWindowsHookExW(WH_KEYBOARD_LL, Watch, GetModuleHandleW(nullptr), 0);
    if (!g_hook) return 3;
    std::printf("ready\n");
    std::fflush(stdout);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}
