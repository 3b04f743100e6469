// The executable's own folder, as Linux tells it, and the share folder an
// installed copy keeps its pose pictures and fonts in.
#include <filesystem>
#include <system_error>

#include "assets/asset_paths.h"
#include "assets/file_paths.h"

std::wstring ExecutableFolder() {
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) return {};
    return ParentFolder(WidePath(self));
}

// The package puts the program in /usr/games and its files in /usr/share/puffino;
// found from the program's own place, not from a fixed /usr, so that a copy
// unpacked anywhere else works as well.
std::wstring InstalledFolder() { return ShareFolder(ExecutableFolder()); }
