// The application-data folder and config.ini.
#include "settings/settings.h"

std::wstring GetAppDataDirectory() {
    // The known-folder lookup joins with the settings.
    return L".";
}

void EnsureAppDataDirectory() {}

void LoadSettings(Settings& settings) {
    settings = Settings{};
}
