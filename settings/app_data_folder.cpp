// The program's own folder under the roaming application data, where
// config.ini and high_score.txt live.
#include <filesystem>
#include <system_error>

#include "assets/file_paths.h"
#include "settings/settings.h"

std::filesystem::path ConfigurationBase(const char* xdgConfigHome, const char* home) {
    const auto absolute = [](const char* path) { return path && path[0] == '/'; };
    if (absolute(xdgConfigHome)) return xdgConfigHome;
    if (absolute(home)) return std::filesystem::path(home) / ".config";
    return ".";
}

std::wstring GetAppDataDirectory() {
    // The path operator adds one separator, and none after a base that
    // already ends in one.
    return WidePath(FilePath(RoamingAppDataBase()) / "morvenda" / "Tonkari" / "Puffino");
}

std::wstring AppDataFile(std::wstring_view name) {
    return WidePath(FilePath(GetAppDataDirectory()) / FilePath(name));
}

void EnsureAppDataDirectory() {
    // A folder that cannot be made shows later as a missing file: the
    // settings keep their defaults and the best score is not kept.
    std::error_code ignored;
    std::filesystem::create_directories(FilePath(GetAppDataDirectory()), ignored);
}
