// The lock folder rule of the single-instance lock.
#include "app/instance_lock.h"

namespace {

bool IsAbsolute(const char* path) { return path && path[0] == '/'; }

}  // namespace

std::string InstanceLockFolder(const char* runtimeFolder, const char* temporaryFolder, uint32_t userId) {
    if (IsAbsolute(runtimeFolder)) return runtimeFolder;
    const std::string temporary = IsAbsolute(temporaryFolder) ? temporaryFolder : "/tmp";
    return temporary + "/puffino-" + std::to_string(userId);
}
