// Whole files in the Windows edition, through narrow file streams: Windows
// opens neither a folder nor a pipe under a file's name, and a stream's read
// and write report a failure in its state instead of throwing it.
#include "assets/whole_file.h"

#include <fstream>

std::optional<std::string> ReadWholeFile(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) return std::nullopt;
    std::string bytes;
    char chunk[64 * 1024];
    while (stream.read(chunk, sizeof chunk) || stream.gcount() > 0) {
        if (bytes.size() + static_cast<size_t>(stream.gcount()) > kLargestFileRead) return std::nullopt;
        bytes.append(chunk, static_cast<size_t>(stream.gcount()));
    }
    // The end of the file sets eofbit and failbit; anything else failed.
    if (stream.bad() || !stream.eof()) return std::nullopt;
    return bytes;
}

bool WriteWholeFile(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream stream(path, std::ios::out | std::ios::trunc | std::ios::binary);
    if (!stream) return false;
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    return !stream.fail();
}
