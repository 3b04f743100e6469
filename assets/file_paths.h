// Wide path strings, as the program keeps them, and the file system's own
// paths. Windows names files in UTF-16, so the two are the same there. On
// Linux file names are bytes, by convention UTF-8, which the standard
// library's wide conversion refuses outside ASCII: a home or program folder
// with a Japanese name would otherwise end the program.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// The file-system path for a wide path: UTF-8 on Linux. Characters that
// WidePath made from bytes that were no UTF-8 become those bytes again.
std::filesystem::path FilePath(std::wstring_view wide);

// The wide path for a file-system path; on Linux each byte that is not part
// of valid UTF-8 is kept as a character of its own (U+DC80 + byte), so that
// FilePath gives the same bytes back.
std::wstring WidePath(const std::filesystem::path& path);
