// The application-data folder and the settings read from config.ini once at
// start-up.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

struct Settings {
    int32_t volumeClampPercent = 0;  // 0..100; 0 means no clamp
    bool blockSystemShortcuts = true;
    bool soundEnabled = true;
    std::wstring language;  // at most 63 characters; empty: the UI language
};

// Puffino.exe's roaming application data (app_data_folder_win.cpp): the
// known folder, else the "APPDATA" variable, else "." (the current folder).
std::wstring RoamingAppDataBase();

// The Linux edition's base for it: $XDG_CONFIG_HOME when it is an absolute
// path, else $HOME/.config when HOME is one, else "." (the current folder).
std::filesystem::path ConfigurationBase(const char* xdgConfigHome, const char* home);

// <roaming application data>\morvenda\Tonkari\Puffino. No file-system
// access besides the folder lookup.
std::wstring GetAppDataDirectory();

// A file of that folder: config.ini, high_score.txt.
std::wstring AppDataFile(std::wstring_view name);

// Creates every missing folder of that chain; failures are ignored. Called
// at start-up, by LoadSettings and before every best-score save.
void EnsureAppDataDirectory();

// Resets the record to its defaults, writes the default config.ini when
// there is none, and reads the keys. Never fails. Called once at start-up.
void LoadSettings(Settings& settings);
