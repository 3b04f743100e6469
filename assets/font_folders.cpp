// The font-folder search. Every file-system query is the non-throwing form:
// a path that cannot be examined counts as absent.
#include "assets/font_folders.h"

#include <filesystem>
#include <system_error>

#include "assets/asset_paths.h"
#include "assets/file_paths.h"

bool PathExists(std::wstring_view path) {
    std::error_code error;
    return std::filesystem::exists(FilePath(path), error) && !error;
}

std::wstring FindLauncherFolder(std::wstring_view folder) {
    if (folder.empty()) return {};
    if (PathExists(JoinPath(folder, kLauncherExecutable))) return std::wstring(folder);
    // One level up and no further: a launcher further away is someone else's.
    const std::wstring parent = ParentFolder(folder);
    if (!parent.empty() && PathExists(JoinPath(parent, kLauncherExecutable))) return parent;
    return {};
}

std::wstring FontsSubfolder(std::wstring_view folder) {
    if (folder.empty()) return {};
    std::wstring fonts = JoinPath(folder, kFontsFolderName);
    std::error_code error;
    if (std::filesystem::is_directory(FilePath(fonts), error) && !error) return fonts;
    return {};
}

std::wstring FindFontsFolder(std::wstring_view executableFolder) {
    // The launcher's shared folder wins over one beside this program.
    std::wstring fonts = FontsSubfolder(FindLauncherFolder(executableFolder));
    if (!fonts.empty()) return fonts;
    return FontsSubfolder(executableFolder);
}

std::wstring FindFontFile(const wchar_t* fileName) {
    const std::wstring folder = FindFontsFolder(ExecutableFolder());
    if (folder.empty()) return {};
    std::wstring path = JoinPath(folder, fileName);
    return PathExists(path) ? path : std::wstring();
}
