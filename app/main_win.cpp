// Puffino.exe's entry point: the run itself is the host's (app/start_up.cpp).
#include <windows.h>

#include "app/host.h"
#include "app/shell_win.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    g_instance = instance;
    return RunPuffino();  // the quit message's wParam is not the exit code
}
