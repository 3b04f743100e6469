// The executable's own folder, as Linux tells it.
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
