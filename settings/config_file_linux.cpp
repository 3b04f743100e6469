// config.ini in the Linux edition: the same file as the Windows program's,
// written once with the same bytes and read by the same rules (the portable
// profile reader), so that a file carried between the two reads the same.
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "assets/file_paths.h"
#include "assets/whole_file.h"
#include "settings/config_values.h"
#include "settings/profile_reader.h"
#include "settings/settings.h"

namespace {

void WriteDefaultFile(const std::filesystem::path& path) {
    // O_EXCL: a file that is there, or appeared meanwhile, is never
    // overwritten, and whatever else has the name (a folder, a fifo) is
    // never opened.
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0) return;
    // UTF-16 LE whatever the machine's byte order, behind its mark.
    std::string bytes = "\xFF\xFE";
    for (char16_t c : kDefaultConfigText) bytes += {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
    // Write errors are not checked: a short file only loses comments, and
    // every missing key reads as its default.
    [[maybe_unused]] const ssize_t written = write(file, bytes.data(), bytes.size());
    close(file);
}

// The language as this system's wide text: a UTF-16 pair becomes one
// character; a lone half stays as it is.
std::wstring WideText(std::u16string_view text) {
    std::wstring wide;
    for (size_t i = 0; i < text.size(); ++i) {
        const char32_t c = text[i];
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            wide += static_cast<wchar_t>(0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00));
        } else {
            wide += static_cast<wchar_t>(c);
        }
    }
    return wide;
}

}  // namespace

void LoadSettings(Settings& settings) {
    settings = Settings{};
    EnsureAppDataDirectory();
    const std::filesystem::path path = FilePath(AppDataFile(L"config.ini"));
    WriteDefaultFile(path);
    // A file that cannot be read, or a folder or a fifo in its place, reads
    // as an empty one: every default stands.
    const std::u16string text = DecodeProfileText(ReadWholeFile(path).value_or(std::string()));

    ReadSettingNumbers(settings, [&text](const char16_t* key, int32_t fallback) {
        return ReadProfileInt(text, u"Puffino", key, fallback);
    });

    settings.language = WideText(ReadProfileString(text, u"UI", u"Language", u"", kLanguageCapacity));
}
