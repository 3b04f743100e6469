// config.ini in the Linux edition: written once with its defaults on first
// start, in the very bytes Puffino.exe writes, then only read, with the
// reading rules of the Windows profile functions.
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "assets/file_paths.h"
#include "settings/config_values.h"
#include "settings/profile_reader.h"
#include "settings/settings.h"

namespace {

void WriteDefaultFile(const std::filesystem::path& path) {
    // O_EXCL: a file that appeared meanwhile is never overwritten.
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    if (file < 0) return;
    std::string bytes = "\xFF\xFE";
    for (char16_t c : kDefaultConfigText) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    // A short write only loses comments: every missing key reads as its
    // default.
    [[maybe_unused]] const ssize_t written = write(file, bytes.data(), bytes.size());
    close(file);
}

std::wstring ReadText(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return DecodeProfileText(bytes);
}

}  // namespace

void LoadSettings(Settings& settings) {
    settings = Settings{};
    EnsureAppDataDirectory();
    const std::filesystem::path path = FilePath(AppDataFile(L"config.ini"));
    std::error_code ignored;
    if (!std::filesystem::exists(std::filesystem::symlink_status(path, ignored))) WriteDefaultFile(path);
    const std::wstring text = ReadText(path);

    // Each newer key wins over its older alias, even when it is 0; the alias
    // is read only when the newer key is missing.
    int32_t volume = ProfileInt(text, L"Puffino", L"VolumeClampPercent", kAbsentKey);
    if (volume == kAbsentKey) volume = ProfileInt(text, L"Puffino", L"MasterVolumeClampPercent", 0);
    settings.volumeClampPercent = ClampVolumePercent(volume);

    int32_t block = ProfileInt(text, L"Puffino", L"BlockSystemShortcuts", kAbsentKey);
    if (block == kAbsentKey) block = ProfileInt(text, L"Puffino", L"LlKeyboardHook", 1);
    settings.blockSystemShortcuts = block != 0;

    settings.soundEnabled = ProfileInt(text, L"Puffino", L"SoundEnabled", 1) != 0;
    settings.language = ProfileString(text, L"UI", L"Language").value_or(L"").substr(0, kLanguageCapacity - 1);
}
