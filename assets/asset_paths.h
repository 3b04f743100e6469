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
// read whole (Win32 layer).
std::wstring ExecutableFolder();
