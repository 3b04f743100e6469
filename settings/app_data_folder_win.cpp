// Where the roaming application data is: asked of the shell, else of the
// environment.
#include <windows.h>
#include <shlobj.h>

#include "settings/settings.h"

namespace {

// FOLDERID_RoamingAppData
constexpr KNOWNFOLDERID kRoamingAppData = {
    0x3EB685DB, 0x65F9, 0x4CF6, {0xA0, 0x3A, 0xE3, 0xEF, 0x65, 0x72, 0x9F, 0x3D}};

}  // namespace

std::wstring RoamingAppDataBase() {
    PWSTR known = nullptr;
    if (SUCCEEDED(SHGetKnownFolderPath(kRoamingAppData, 0, nullptr, &known)) && known) {
        std::wstring base(known);
        CoTaskMemFree(known);
        return base;
    }
    // The shell may allocate even on failure.
    CoTaskMemFree(known);
    wchar_t variable[260] = {};
    const DWORD length = GetEnvironmentVariableW(L"APPDATA", variable, 260);
    // 0: missing; 260 or more: the value did not fit.
    if (length >= 1 && length <= 259) return std::wstring(variable, length);
    return L".";
}
