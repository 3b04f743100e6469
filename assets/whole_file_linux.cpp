// Whole files in the Linux edition, through the system's own calls: a
// stream would wait for a writer at a fifo and throw out of a read that
// fails (a folder opens for reading, then every read fails).
#include "assets/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

// O_NONBLOCK: a fifo (or a device) opens at once instead of waiting for
// the other end, and is then turned away by its type. Once the file is
// known to be a regular one, its reads and writes wait for the disk as
// usual. -1 for anything else.
int OpenRegularFile(const std::filesystem::path& path, int flags) {
    const int file = open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, 0666);
    if (file < 0) return -1;
    struct stat status {};
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(file);
        return -1;
    }
    const int statusFlags = fcntl(file, F_GETFL);
    if (statusFlags != -1) fcntl(file, F_SETFL, statusFlags & ~O_NONBLOCK);
    return file;
}

// Interrupted calls are made again; -1 is a real failure.
template <class Call>
ssize_t Retried(Call call) {
    ssize_t done = 0;
    do {
        done = call();
    } while (done < 0 && errno == EINTR);
    return done;
}

std::optional<std::string> ReadAll(int file) {
    std::string bytes;
    char chunk[64 * 1024];
    for (;;) {
        const ssize_t got = Retried([&] { return read(file, chunk, sizeof chunk); });
        if (got == 0) return bytes;
        if (got < 0 || bytes.size() + static_cast<size_t>(got) > kLargestFileRead) return std::nullopt;
        bytes.append(chunk, static_cast<size_t>(got));
    }
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t put = Retried([&] { return write(file, bytes.data(), bytes.size()); });
        if (put <= 0) return false;
        bytes.remove_prefix(static_cast<size_t>(put));
    }
    return true;
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::filesystem::path& path) {
    const int file = OpenRegularFile(path, O_RDONLY);
    if (file < 0) return std::nullopt;
    std::optional<std::string> bytes = ReadAll(file);
    close(file);
    return bytes;
}

bool WriteWholeFile(const std::filesystem::path& path, std::string_view bytes) {
    // Cut short only once it is known to be a regular file.
    const int file = OpenRegularFile(path, O_WRONLY | O_CREAT);
    if (file < 0) return false;
    const bool written = ftruncate(file, 0) == 0 && WriteAll(file, bytes);
    return close(file) == 0 && written;
}
