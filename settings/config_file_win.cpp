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

    // wchar_t is UTF-16 here: the keys pass as they are.
    ReadSettingNumbers(settings, [file](const char16_t* key, int32_t fallback) {
        return static_cast<int32_t>(
            GetPrivateProfileIntW(L"Puffino", reinterpret_cast<const wchar_t*>(key), fallback, file));
    });

    wchar_t language[kLanguageCapacity] = {};
    GetPrivateProfileStringW(L"UI", L"Language", L"", language, kLanguageCapacity, file);
    language[kLanguageCapacity - 1] = L'\0';
    settings.language = language;
}
