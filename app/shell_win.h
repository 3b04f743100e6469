// Win32 state of the application shell.
#pragma once

#include <windows.h>

// The hInstance given to wWinMain; windows are created with it.
extern HINSTANCE g_instance;
