// Parent folders and joined paths, in Windows form or, below an absolute
// Linux path, in the form of Linux; and where the pose pictures are.
#include "assets/asset_paths.h"

#include <filesystem>
#include <system_error>

#include "assets/file_paths.h"

namespace {

bool IsSeparator(wchar_t c) { return c == L'\\' || c == L'/'; }

bool IsDriveLetter(wchar_t c) {
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

// Length of the part a parent never cuts into: "C:", or "\\server" of a
// UNC path, then any run of separators (the root directory).
size_t RootLength(std::wstring_view path) {
    size_t n = 0;
    if (path.size() >= 2 && IsDriveLetter(path[0]) && path[1] == L':') {
        n = 2;
    } else if (path.size() >= 3 && IsSeparator(path[0]) && IsSeparator(path[1]) &&
               !IsSeparator(path[2])) {
        n = 2;
        while (n < path.size() && !IsSeparator(path[n])) ++n;
    }
    while (n < path.size() && IsSeparator(path[n])) ++n;
    return n;
}

// An absolute Linux path: one slash, then a name (two are a network share).
bool IsDirectory(const std::wstring& path) {
    std::error_code error;
    return std::filesystem::is_directory(FilePath(path), error) && !error;
}

std::wstring PoseFolderIn(std::wstring_view folder) { return JoinPath(JoinPath(folder, L"assets"), L"penguin"); }

bool IsLinuxPath(std::wstring_view path) {
    return path.size() >= 1 && path[0] == L'/' && (path.size() == 1 || path[1] != L'/');
}

}  // namespace

std::wstring ParentFolder(std::wstring_view path) {
    const size_t root = RootLength(path);
    size_t end = path.size();
    while (end > root && !IsSeparator(path[end - 1])) --end;
    while (end > root && IsSeparator(path[end - 1])) --end;
    return std::wstring(path.substr(0, end));
}

std::wstring JoinPath(std::wstring_view folder, std::wstring_view name) {
    if (folder.empty()) return std::wstring(name);
    std::wstring joined(folder);
    if (!IsSeparator(joined.back())) joined += IsLinuxPath(folder) ? L'/' : L'\\';
    joined += name;
    return joined;
}

std::wstring ShareFolder(std::wstring_view executableFolder) {
    if (executableFolder.empty()) return {};
    return JoinPath(JoinPath(ParentFolder(executableFolder), L"share"), L"puffino");
}

std::wstring FindPoseFolder(std::wstring_view executableFolder, std::wstring_view installedFolder) {
    std::wstring beside = PoseFolderIn(executableFolder);
    if (installedFolder.empty() || IsDirectory(beside)) return beside;
    std::wstring installed = PoseFolderIn(installedFolder);
    return IsDirectory(installed) ? installed : beside;
}

std::wstring PoseFolder() { return FindPoseFolder(ExecutableFolder(), InstalledFolder()); }
