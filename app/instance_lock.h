// Where the Linux edition keeps its single-instance lock: one lock file per
// user session, held with flock for the life of the process, so that a run
// that crashes leaves no stale lock behind.
#pragma once

#include <cstdint>
#include <string>

inline constexpr char kInstanceLockFile[] = "Puffino_SingleInstance_v1.lock";

// The folder for the lock: the session's runtime folder ($XDG_RUNTIME_DIR)
// when it is an absolute path, else a private folder of the user's in the
// temporary folder ($TMPDIR when absolute, else /tmp): "puffino-<uid>".
std::string InstanceLockFolder(const char* runtimeFolder, const char* temporaryFolder, uint32_t userId);
