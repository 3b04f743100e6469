// Reading and writing the program's own files (config.ini, high_score.txt,
// the pose pictures, the font files) whole. Whatever stands at the path, a
// folder, a fifo, a device, a file that cannot be read or whose disk goes
// away while it is read, only ever counts as no file: nothing waits for a
// writer or a reader, and nothing throws.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// A file larger than this is none of the program's: it is not read at all
// rather than filling memory (the largest file read, a font, is 3 MB).
inline constexpr size_t kLargestFileRead = size_t{256} << 20;

// The whole content of the regular file at the path (a link is followed);
// nothing when nothing is there, when something else stands there, when it
// cannot be opened or a read fails, or when it is larger than
// kLargestFileRead. An empty file gives an empty content.
std::optional<std::string> ReadWholeFile(const std::filesystem::path& path);

// Makes the file at the path hold exactly `bytes`, creating it or cutting
// it short. False when nothing could be written: something other than a
// regular file stands there (it is left alone), or it cannot be opened. A
// write that fails halfway leaves the file cut short.
bool WriteWholeFile(const std::filesystem::path& path, std::string_view bytes);
