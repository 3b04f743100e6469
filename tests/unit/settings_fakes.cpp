// The settings' platform stand-ins for the native tests.
#include "tests/unit/settings_fakes.h"

#include <unistd.h>

#include <filesystem>
#include <string>

#include "settings/master_volume.h"
#include "settings/settings.h"

FakeEndpoint g_fakeEndpoint;

namespace {

// A folder of this test process alone, removed when it ends: the plain and
// the sanitized test programs run side by side and both save best scores.
struct ProcessFolder {
    std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("puffino-unit-" + std::to_string(getpid()));
    ~ProcessFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
} g_processFolder;

}  // namespace

std::wstring RoamingAppDataBase() { return g_processFolder.path.wstring(); }

MasterVolume* OpenMasterVolume() {
    ++g_fakeEndpoint.openAttempts;
    if (!g_fakeEndpoint.present) return nullptr;
    ++g_fakeEndpoint.opened;
    return reinterpret_cast<MasterVolume*>(&g_fakeEndpoint);
}

bool GetMasterLevel(MasterVolume*, float& level) {
    if (g_fakeEndpoint.readable) level = g_fakeEndpoint.level;
    return g_fakeEndpoint.readable;
}

void SetMasterLevel(MasterVolume*, float level) {
    g_fakeEndpoint.sets.push_back(level);
    g_fakeEndpoint.level = level;
}

void CloseMasterVolume(MasterVolume*) { ++g_fakeEndpoint.closed; }
