// The tests' eyes and hands inside a Wine session, printing JSON (numbers
// in decimal): windows (every top-level "PuffinoWindow"), post HWND MSG WP LP,
// notopmost HWND (the styles right after), resources PID (memory and live GDI
// objects), post-on-capture HWND MSG WP LP ("waiting", then posts once the window's
// thread takes the mouse capture, handling a press), watch-keys ("ready",
// then "down 65", "up 65"... for every key that reaches its low-level hook:
// started before Puffino, it sits behind the keyboard guard).
#include <windows.h>
#include <psapi.h>
#include <winternl.h>

#include <cstdio>
#include <cwchar>
#include <string>
#include <vector>

namespace {

BOOL CALLBACK ListWindow(HWND hwnd, LPARAM listed) {
    wchar_t className[128] = {};
    GetClassNameW(hwnd, className, 128);
    if (std::wcscmp(className, L"PuffinoWindow") != 0) return TRUE;
    char title[128] = {};  // Puffino's title holds no quote or backslash
    GetWindowTextA(hwnd, title, 128);
    RECT rect{};
    GetWindowRect(hwnd, &rect);
    DWORD pid = 0;
    GetWindowThreadProcessId(hwnd, &pid);
    std::printf("%s{\"hwnd\": %llu, \"pid\": %lu, \"title\": \"%s\", \"style\": %lu, \"exstyle\": %lu, "
                "\"rect\": [%ld, %ld, %ld, %ld], \"visible\": %s, \"foreground\": %s}",
                (*reinterpret_cast<int*>(listed))++ ? ",\n " : "",
                static_cast<unsigned long long>(reinterpret_cast<uintptr_t>(hwnd)), pid, title,
                static_cast<unsigned long>(GetWindowLongW(hwnd, GWL_STYLE)),
                static_cast<unsigned long>(GetWindowLongW(hwnd, GWL_EXSTYLE)), rect.left, rect.top, rect.right,
                rect.bottom, IsWindowVisible(hwnd) ? "true" : "false", GetForegroundWindow() == hwnd ? "true" : "false");
    return TRUE;
}

int Windows() {
    int listed = 0;
    std::printf("[");
    EnumWindows(ListWindow, reinterpret_cast<LPARAM>(&listed));
    std::printf("]\n");
    return 0;
}

HWND HandleArg(const wchar_t* text) {
    return reinterpret_cast<HWND>(static_cast<uintptr_t>(std::wcstoull(text, nullptr, 10)));
}

// Posts argv[3..5] as message, wParam and lParam.
BOOL PostArgs(HWND hwnd, wchar_t** argv) {
    return PostMessageW(hwnd, static_cast<UINT>(std::wcstoul(argv[3], nullptr, 10)),
                        static_cast<WPARAM>(std::wcstoull(argv[4], nullptr, 10)),
                        static_cast<LPARAM>(std::wcstoll(argv[5], nullptr, 10)));
}

int Report(BOOL ok) {
    std::printf("{\"posted\": %s}\n", ok ? "true" : "false");
    return ok ? 0 : 3;
}

int NotTopmost(wchar_t** argv) {
    const HWND hwnd = HandleArg(argv[2]);
    const BOOL ok = SetWindowPos(hwnd, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    // The styles at once, before the window's owner can put the flag back.
    std::printf("{\"done\": %s, \"exstyle\": %lu}\n", ok ? "true" : "false",
                static_cast<unsigned long>(GetWindowLongW(hwnd, GWL_EXSTYLE)));
    return ok ? 0 : 3;
}

// Live GDI objects of another process. Wine answers 0 to GetGuiResources,
// but keeps the process's GDI handle table in it, from its PEB (offset 0xF8
// on x64): 0x10000 entries of 24 bytes, one in use has a non-zero type byte
// (offset 12). Stock objects count too: a constant share.
long GdiObjects(HANDLE process) {
    PROCESS_BASIC_INFORMATION basic{};
    if (NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr) != 0) return -1;
    uintptr_t table = 0;
    const auto* tableField = reinterpret_cast<const char*>(basic.PebBaseAddress) + 0xF8;
    if (!ReadProcessMemory(process, tableField, &table, sizeof table, nullptr) || table == 0) return -1;
    constexpr size_t kEntries = 0x10000, kEntrySize = 24;
    std::vector<unsigned char> entries(kEntries * kEntrySize);
    if (!ReadProcessMemory(process, reinterpret_cast<const void*>(table), entries.data(), entries.size(), nullptr))
        return -1;
    long live = 0;
    for (size_t i = 0; i < kEntries; ++i) live += entries[i * kEntrySize + 12] != 0;
    return live;
}

int Resources(wchar_t** argv) {
    const auto pid = static_cast<DWORD>(std::wcstoul(argv[2], nullptr, 10));
    HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, pid);
    if (!process) return 3;
    PROCESS_MEMORY_COUNTERS_EX memory{};
    memory.cb = sizeof memory;
    GetProcessMemoryInfo(process, reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory), sizeof memory);
    // Wine reports no private bytes; the committed pages stand in for them.
    std::printf("{\"gdi\": %ld, \"committed\": %llu}\n", GdiObjects(process),
                static_cast<unsigned long long>(memory.PagefileUsage));
    CloseHandle(process);
    return 0;
}

int PostOnCapture(wchar_t** argv) {
    const HWND hwnd = HandleArg(argv[2]);
    const DWORD thread = GetWindowThreadProcessId(hwnd, nullptr);
    std::printf("waiting\n");
    std::fflush(stdout);
    const DWORD start = GetTickCount();
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    while (!(GetGUIThreadInfo(thread, &info) && info.hwndCapture)) {
        if (GetTickCount() - start > 30000) return 4;
        Sleep(1);
    }
    return Report(PostArgs(hwnd, argv));
}

HHOOK g_hook = nullptr;

LRESULT CALLBACK WatchKey(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION) {
        const auto& event = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(lParam);
        std::printf("%s %lu\n", (event.flags & LLKHF_UP) ? "up" : "down", event.vkCode);
        std::fflush(stdout);
    }
    return CallNextHookEx(g_hook, code, wParam, lParam);
}

int WatchKeys() {
    g_hook = SetWindowsHookExW(WH_KEYBOARD_LL, WatchKey, GetModuleHandleW(nullptr), 0);
    if (!g_hook) return 3;
    std::printf("ready\n");
    std::fflush(stdout);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    // Coordinates in physical pixels, as Puffino sees them.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    const std::wstring command = argc > 1 ? argv[1] : L"";
    if (command == L"windows") return Windows();
    if (command == L"post" && argc == 6) return Report(PostArgs(HandleArg(argv[2]), argv));
    if (command == L"notopmost" && argc == 3) return NotTopmost(argv);
    if (command == L"resources" && argc == 3) return Resources(argv);
    if (command == L"post-on-capture" && argc == 6) return PostOnCapture(argv);
    if (command == L"watch-keys") return WatchKeys();
    std::fprintf(stderr, "usage: see probe_win.cpp\n");
    return 2;
}
