// The process and the window system of Puffino.exe: the single-instance
// mutex, COM and GDI+, the window class, the message loop.
#include "app/shell_win.h"

#include <objbase.h>
#include <gdiplus.h>

#include "app/host_platform.h"
#include "app/window_proc_win.h"

HINSTANCE g_instance = nullptr;

namespace {

constexpr wchar_t kSingleInstanceMutex[] = L"Local\\Puffino_SingleInstance_v1";

HRESULT g_comResult = E_FAIL;
ULONG_PTR g_gdiplusToken = 0;

}  // namespace

bool StartProcess() {
    // The handle stays open for the life of the process; the system drops it
    // at exit. A failed call just runs without single-instance protection.
    HANDLE mutex = CreateMutexW(nullptr, TRUE, kSingleInstanceMutex);
    if (mutex && GetLastError() == ERROR_ALREADY_EXISTS) {
        CloseHandle(mutex);
        return false;
    }
    // The volume ceiling's audio objects need COM on this thread.
    g_comResult = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    return true;
}

bool StartWindowSystem() {
    Gdiplus::GdiplusStartupInput gdiplusInput;
    Gdiplus::GdiplusStartup(&g_gdiplusToken, &gdiplusInput, nullptr);
    RegisterDisplayWindowClass(g_instance);
    return true;
}

void StopWindowSystem() {
    Gdiplus::GdiplusShutdown(g_gdiplusToken);
    // Only a call that really initialized COM is paired.
    if (g_comResult == S_OK) CoUninitialize();
}

void RunEventLoop() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void PostQuit() { PostQuitMessage(0); }
