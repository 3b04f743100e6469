// Puffino's entry point: brings every subsystem up in a fixed order, runs
// the one message loop and takes everything down again. Single instance,
// single thread; no command line, no log.
#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include "app/display_windows.h"
#include "app/keyboard_guard_win.h"
#include "app/shell.h"
#include "app/shell_win.h"
#include "app/window_proc_win.h"
#include "assets/asset_paths.h"
#include "assets/fonts.h"
#include "assets/penguin_images.h"
#include "play/sound_bank.h"
#include "settings/high_score.h"
#include "settings/language.h"
#include "settings/settings.h"
#include "settings/volume_clamp.h"

namespace {

constexpr wchar_t kSingleInstanceMutex[] = L"Local\\Puffino_SingleInstance_v1";

void ShutDownGraphicsAndCom(ULONG_PTR gdiplusToken, HRESULT comResult) {
    Gdiplus::GdiplusShutdown(gdiplusToken);
    // Only a call that really initialized COM is paired.
    if (comResult == S_OK) CoUninitialize();
}

void RunMessageLoop() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// After the loop: whatever EndPlay has not already released.
void TearDown() {
    RemoveKeyboardGuard();
    g_shortcutTarget = nullptr;
    DestroyDisplayWindows();
    g_mainWindow = nullptr;
    ReleasePenguinImages();
    ReleaseFonts();  // font families must go before GDI+ does
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    // The handle stays open for the life of the process; the system drops it
    // at exit. A failed call just runs without single-instance protection.
    HANDLE mutex = CreateMutexW(nullptr, TRUE, kSingleInstanceMutex);
    if (mutex && GetLastError() == ERROR_ALREADY_EXISTS) {
        CloseHandle(mutex);
        return 0;  // another instance plays already: show nothing
    }

    const HRESULT comResult = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    g_instance = instance;

    Settings settings;
    LoadSettings(settings);
    ApplySettings(settings);
    SetupLanguage(settings.language);
    EnsureAppDataDirectory();
    LoadBestScore();
    BuildSoundBank();

    Gdiplus::GdiplusStartupInput gdiplusInput;
    ULONG_PTR gdiplusToken = 0;
    Gdiplus::GdiplusStartup(&gdiplusToken, &gdiplusInput, nullptr);

    LoadPenguinImages(JoinPath(JoinPath(ExecutableFolder(), L"assets"), L"penguin"));
    RegisterDisplayWindowClass(instance);
    RebuildDisplayWindows();

    if (!g_mainWindow) {
        // No home window (the launch value names no monitor's corner, or its
        // window failed): an orderly exit, with nothing shown.
        ReleasePenguinImages();
        ShutDownGraphicsAndCom(gdiplusToken, comResult);
        return 1;
    }

    ReassertTopmost();
    SetForegroundWindow(g_mainWindow);
    StartTimers();
    InstallKeyboardGuard();
    ClampMasterVolume();

    RunMessageLoop();

    TearDown();
    ShutDownGraphicsAndCom(gdiplusToken, comResult);
    return 0;  // the quit message's wParam is not the exit code
}
