// The program's own folder under the roaming application data, where
// config.ini and high_score.txt live.
#include <filesystem>
#include <system_error>

#include "settings/settings.h"

std::wstring GetAppDataDirectory() {
    // The path operator adds one separator, and none after a base that
    // already ends in one.
    return (std::filesystem::path(RoamingAppDataBase()) / L"morvenda" / L"Tonkari" / L"Puffino").wstring();
}

std::wstring AppDataFile(std::wstring_view name) {
    return (std::filesystem::path(GetAppDataDirectory()) / name).wstring();
}

void EnsureAppDataDirectory() {
    // A folder that cannot be made shows later as a missing file: the
    // settings keep their defaults and the best score is not kept.
    std::error_code ignored;
    std::filesystem::create_directories(GetAppDataDirectory(), ignored);
}
