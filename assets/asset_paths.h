// Path rules for the files beside the executable, written out so that they
// behave the same natively and on Windows.
#pragma once

#include <string>
#include <string_view>

// The folder of a path: without its last component and the run of '\' or
// '/' before it, never cutting into the drive or root part
// ("C:\Games\Puffino.exe" -> "C:\Games", "C:\Puffino.exe" -> "C:\").
std::wstring ParentFolder(std::wstring_view path);

// folder + '\' + name, with no doubled separator; an empty folder gives name.
// Below an absolute Linux path ("/usr/share/puffino") it is '/' instead.
std::wstring JoinPath(std::wstring_view folder, std::wstring_view name);

// The folder of the running executable, or empty when its path cannot be
// read whole (platform layer).
std::wstring ExecutableFolder();

// The folder an installed copy keeps its files in: share/puffino beside the
// executable's folder ("/usr/games" -> "/usr/share/puffino"), so that a copy
// unpacked anywhere finds its own files. Empty for an empty folder.
std::wstring ShareFolder(std::wstring_view executableFolder);

// Where this edition looks for its files after the executable's folder
// (platform layer): the share folder on Linux; nothing on Windows, where
// every copy holds them beside Puffino.exe.
std::wstring InstalledFolder();

// The pose-picture folder for an executable in the given folder:
// assets/penguin beside it when that is a directory, else the installed
// folder's when that is one, else the one beside it (which holds nothing,
// and the penguin is simply not drawn).
std::wstring FindPoseFolder(std::wstring_view executableFolder, std::wstring_view installedFolder);

// This program's pose-picture folder, for LoadPenguinImages at start-up.
std::wstring PoseFolder();
