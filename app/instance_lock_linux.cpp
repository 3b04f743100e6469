// One Puffino per user session: an exclusive flock on a lock file in the
// session's runtime folder (or the user's private temporary folder). The
// kernel drops the lock when the process ends, however it ends.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "app/host_platform.h"
#include "app/instance_lock.h"
#include "app/shell_linux.h"

namespace {

// The private fallback folder, made if missing; another user's folder, a
// link or a folder others may write to is not used.
bool PrivateFolderReady(const std::string& folder) {
    mkdir(folder.c_str(), 0700);
    struct stat status {};
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == getuid() &&
           (status.st_mode & 0077) == 0;
}

}  // namespace

bool StartProcess() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    const std::string folder = InstanceLockFolder(runtime, std::getenv("TMPDIR"), getuid());
    const bool isRuntime = runtime && folder == runtime;
    // Without a usable folder or file, play runs without the protection.
    if (!isRuntime && !PrivateFolderReady(folder)) return true;
    const std::string path = folder + "/" + kInstanceLockFile;
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0) return true;
    if (flock(file, LOCK_EX | LOCK_NB) == 0) return true;  // the file stays open for the whole run
    const bool held = errno == EWOULDBLOCK;
    close(file);
    return !held;
}
