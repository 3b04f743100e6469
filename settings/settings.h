// The application-data folder and the settings read from config.ini once at
// start-up.
#pragma once

#include <cstdint>
#include <string>

struct Settings {
    int32_t volumeClampPercent = 0;  // 0..100; 0 means no clamp
    bool blockSystemShortcuts = true;
    bool soundEnabled = true;
    std::wstring language;  // at most 63 characters; empty: the UI language
};

// %APPDATA%\morvenda\Tonkari\Puffino (the roaming application data).
std::wstring GetAppDataDirectory();

// Creates every missing folder of that chain; failures are ignored.
void EnsureAppDataDirectory();

// Resets the record to its defaults, writes the default config.ini when
// there is none, and reads the keys. Never fails.
void LoadSettings(Settings& settings);
