// The executable's own folder.
#include <windows.h>

#include "assets/asset_paths.h"

std::wstring ExecutableFolder() {
    wchar_t path[260] = {};
    const DWORD length = GetModuleFileNameW(nullptr, path, 260);
    if (length == 0 || length >= 260) return {};  // failed or cut short
    return ParentFolder(std::wstring_view(path, length));
}
