// The tests' eyes and hands inside a Wine session: lists Puffino's windows
// as the system sees them, and posts messages.
// Output is one JSON document on stdout.
//   probe windows               every top-level "PuffinoWindow"
//   probe post HWND MSG WP LP   PostMessageW (numbers in decimal)
//   probe notopmost HWND        takes the window out of the topmost band,
//                               then reports its extended styles
//   probe resources PID         the process's memory and live GDI objects
//   probe dpichanged HWND DPI LEFT TOP RIGHT BOTTOM
//                               posts WM_DPICHANGED with that suggested
//                               rectangle, written into the window's process
//   probe post-on-capture HWND MSG WP LP
//                               prints "waiting", then posts the message the
//                               moment the window's thread takes the mouse
//                               capture (a press it is handling)
#include <windows.h>
#include <psapi.h>
#include <winternl.h>

#include <cstdio>
#include <cwchar>
#include <string>
#include <vector>

namespace {

std::string Utf8(const std::wstring& text) {
    std::string out;
    for (wchar_t c : text) {
        if (c == L'"' || c == L'\\') out += '\\';
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else {
            char buffer[8] = {};
            const int n = WideCharToMultiByte(CP_UTF8, 0, &c, 1, buffer, sizeof buffer, nullptr, nullptr);
            out.append(buffer, n);
        }
    }
    return out;
}

std::string RectJson(const RECT& r) {
    char buffer[96];
    std::snprintf(buffer, sizeof buffer, "[%ld, %ld, %ld, %ld]", r.left, r.top, r.right, r.bottom);
    return buffer;
}

struct Found {
    std::vector<std::string> items;
};

BOOL CALLBACK ListWindow(HWND hwnd, LPARAM data) {
    auto& found = *reinterpret_cast<Found*>(data);
    wchar_t className[128] = {};
    GetClassNameW(hwnd, className, 128);
    if (std::wcscmp(className, L"PuffinoWindow") != 0) return TRUE;
    wchar_t title[128] = {};
    GetWindowTextW(hwnd, title, 128);
    RECT rect{};
    GetWindowRect(hwnd, &rect);
    DWORD pid = 0;
    GetWindowThreadProcessId(hwnd, &pid);
    char buffer[512];
    std::snprintf(buffer, sizeof buffer,
                  "{\"hwnd\": %llu, \"pid\": %lu, \"title\": \"%s\", \"style\": %lu, \"exstyle\": %lu, "
                  "\"rect\": %s, \"visible\": %s, \"foreground\": %s}",
                  static_cast<unsigned long long>(reinterpret_cast<uintptr_t>(hwnd)), pid,
                  Utf8(title).c_str(), static_cast<unsigned long>(GetWindowLongW(hwnd, GWL_STYLE)),
                  static_cast<unsigned long>(GetWindowLongW(hwnd, GWL_EXSTYLE)), RectJson(rect).c_str(),
                  IsWindowVisible(hwnd) ? "true" : "false",
                  GetForegroundWindow() == hwnd ? "true" : "false");
    found.items.push_back(buffer);
    return TRUE;
}

void PrintArray(const std::vector<std::string>& items) {
    std::printf("[");
    for (size_t i = 0; i < items.size(); ++i) std::printf("%s%s", i ? ",\n " : "", items[i].c_str());
    std::printf("]\n");
}

int Windows() {
    Found found;
    EnumWindows(ListWindow, reinterpret_cast<LPARAM>(&found));
    PrintArray(found.items);
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

int Post(wchar_t** argv) {
    const BOOL ok = PostArgs(HandleArg(argv[2]), argv);
    std::printf("{\"posted\": %s}\n", ok ? "true" : "false");
    return ok ? 0 : 3;
}

int NotTopmost(wchar_t** argv) {
    const HWND hwnd = HandleArg(argv[2]);
    const BOOL ok = SetWindowPos(hwnd, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    // The styles right afterwards, before the window's owner can put the
    // flag back.
    std::printf("{\"done\": %s, \"exstyle\": %lu}\n", ok ? "true" : "false",
                static_cast<unsigned long>(GetWindowLongW(hwnd, GWL_EXSTYLE)));
    return ok ? 0 : 3;
}

// Live GDI objects of another process. Windows answers GetGuiResources;
// Wine answers 0 there, but keeps every process's GDI handle table in that
// process, reachable from its PEB (offset 0xF8 on x64): 0x10000 entries of
// 24 bytes, an entry in use has a non-zero type byte (offset 12). Stock
// objects count too: a constant share.
long GdiObjects(HANDLE process) {
    const DWORD reported = GetGuiResources(process, GR_GDIOBJECTS);
    if (reported != 0) return static_cast<long>(reported);
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
    std::printf("{\"gdi\": %ld, \"private_bytes\": %llu, \"committed\": %llu, \"working_set\": %llu}\n",
                GdiObjects(process), static_cast<unsigned long long>(memory.PrivateUsage),
                static_cast<unsigned long long>(memory.PagefileUsage),
                static_cast<unsigned long long>(memory.WorkingSetSize));
    CloseHandle(process);
    return 0;
}

int DpiChanged(wchar_t** argv) {
    const HWND hwnd = HandleArg(argv[2]);
    const UINT dpi = static_cast<UINT>(std::wcstoul(argv[3], nullptr, 10));
    const RECT suggested{std::wcstol(argv[4], nullptr, 10), std::wcstol(argv[5], nullptr, 10),
                         std::wcstol(argv[6], nullptr, 10), std::wcstol(argv[7], nullptr, 10)};
    // The message carries a pointer that the receiver reads in its own
    // address space, so the rectangle goes there; its few bytes stay until
    // that process ends.
    DWORD pid = 0;
    GetWindowThreadProcessId(hwnd, &pid);
    HANDLE process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, pid);
    void* remote = process ? VirtualAllocEx(process, nullptr, sizeof suggested, MEM_COMMIT | MEM_RESERVE,
                                            PAGE_READWRITE)
                           : nullptr;
    const BOOL ok = remote && WriteProcessMemory(process, remote, &suggested, sizeof suggested, nullptr) &&
                    PostMessageW(hwnd, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(remote));
    if (process) CloseHandle(process);
    std::printf("{\"posted\": %s}\n", ok ? "true" : "false");
    return ok ? 0 : 3;
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
    const BOOL ok = PostArgs(hwnd, argv);
    std::printf("{\"posted\": %s, \"waited\": %lu}\n", ok ? "true" : "false", GetTickCount() - start);
    return ok ? 0 : 3;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    // Coordinates in physical pixels, as Puffino sees them.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    const std::wstring command = argc > 1 ? argv[1] : L"";
    if (command == L"windows") return Windows();
    if (command == L"post" && argc == 6) return Post(argv);
    if (command == L"notopmost" && argc == 3) return NotTopmost(argv);
    if (command == L"resources" && argc == 3) return Resources(argv);
    if (command == L"dpichanged" && argc == 8) return DpiChanged(argv);
    if (command == L"post-on-capture" && argc == 6) return PostOnCapture(argv);
    std::fprintf(stderr, "usage: probe windows | post HWND MSG WPARAM LPARAM | notopmost HWND |\n"
                         "       resources PID |\n"
                         "       dpichanged HWND DPI LEFT TOP RIGHT BOTTOM | post-on-capture HWND MSG WPARAM LPARAM\n");
    return 2;
}
