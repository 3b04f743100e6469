// Where the rounded font files are looked for: a "Fonts" folder beside the
// launcher "Tonkari.exe" (in the program's folder or one folder up), else a
// "Fonts" folder beside the program, else (Linux edition) one in the
// installed share folder. Plain path rules over the standard
// library's status queries, so they build natively as well.
#pragma once

#include <string>
#include <string_view>

inline constexpr wchar_t kFontsFolderName[] = L"Fonts";
inline constexpr wchar_t kLauncherExecutable[] = L"Tonkari.exe";
inline constexpr wchar_t kRegularFontFile[] = L"MPLUSRounded1c-Regular.ttf";
inline constexpr wchar_t kBlackFontFile[] = L"MPLUSRounded1c-Black.ttf";

// The folder that holds "Tonkari.exe": the given folder or its parent, never
// further up; empty when neither holds it (or the folder is empty).
std::wstring FindLauncherFolder(std::wstring_view folder);

// folder\Fonts when that is an existing directory (a plain file of that
// name does not count), else empty.
std::wstring FontsSubfolder(std::wstring_view folder);

// The font folder for an executable in the given folder: the launcher's
// "Fonts" folder when there is one, else the executable's own, else that of
// the installed folder (see InstalledFolder), else empty.
std::wstring FindFontsFolder(std::wstring_view executableFolder, std::wstring_view installedFolder = {});

// True when anything exists at the path; an error counts as absence.
bool PathExists(std::wstring_view path);

// The full path of the named file in the font folder of this executable,
// worked out afresh on every call; empty when there is no such entry.
std::wstring FindFontFile(const wchar_t* fileName);
