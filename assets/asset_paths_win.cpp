// The executable's own folder; everything Puffino.exe needs stands beside it.
#include <windows.h>

#include "assets/asset_paths.h"

std::wstring ExecutableFolder() {
    wchar_t path[260] = {};
    const DWORD length = GetModuleFileNameW(nullptr, path, 260);
    if (length == 0 || length >= 260) return {};  // failed or cut short
    return ParentFolder(std::wstring_view(path, length));
}

// A copy of Puffino.exe (the folder, the zip, the installed one) holds its
// pose pictures and fonts beside it: no other folder to look in.
std::wstring InstalledFolder() { return {}; }
