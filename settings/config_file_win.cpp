// config.ini: written once with its defaults on first start, then only read
// (a parent edits it by hand; the program never rewrites it).
#include <windows.h>

#include "settings/config_values.h"
#include "settings/settings.h"

namespace {

void WriteDefaultFile(const std::wstring& path) {
    // CREATE_NEW: a file that appeared meanwhile is never overwritten.
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    // Write errors are not checked: a short file only loses comments, and
    // every missing key reads as its default.
    const wchar_t byteOrderMark = 0xFEFF;
    DWORD written = 0;
    WriteFile(file, &byteOrderMark, sizeof byteOrderMark, &written, nullptr);
    WriteFile(file, kDefaultConfigText.data(), static_cast<DWORD>(kDefaultConfigText.size() * 2), &written,
              nullptr);
    CloseHandle(file);
}

}  // namespace

void LoadSettings(Settings& settings) {
    settings = Settings{};
    EnsureAppDataDirectory();
    const std::wstring path = AppDataFile(L"config.ini");
    if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) WriteDefaultFile(path);
    const wchar_t* file = path.c_str();

    const auto readNumber = [file](const wchar_t* key, int32_t fallback) {
        return static_cast<int32_t>(GetPrivateProfileIntW(L"Puffino", key, fallback, file));
    };
    // Each newer key wins over its older alias, even when it is 0; the alias
    // is read only when the newer key is missing.
    int32_t volume = readNumber(L"VolumeClampPercent", kAbsentKey);
    if (volume == kAbsentKey) volume = readNumber(L"MasterVolumeClampPercent", 0);
    settings.volumeClampPercent = ClampVolumePercent(volume);

    int32_t block = readNumber(L"BlockSystemShortcuts", kAbsentKey);
    if (block == kAbsentKey) block = readNumber(L"LlKeyboardHook", 1);
    settings.blockSystemShortcuts = block != 0;

    settings.soundEnabled = readNumber(L"SoundEnabled", 1) != 0;

    wchar_t language[kLanguageCapacity] = {};
    GetPrivateProfileStringW(L"UI", L"Language", L"", language, kLanguageCapacity, file);
    language[kLanguageCapacity - 1] = L'\0';
    settings.language = language;
}
