// The settings' platform stand-ins for the native tests.
#include "tests/unit/settings_fakes.h"

#include <filesystem>

#include "settings/master_volume.h"
#include "settings/settings.h"

FakeEndpoint g_fakeEndpoint;

std::wstring RoamingAppDataBase() { return std::filesystem::temp_directory_path().wstring(); }

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
