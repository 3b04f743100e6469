// A stand-in for the default playback device's master volume in the native
// tests (settings_fakes.cpp also answers the roaming application-data
// folder with a folder of this process under the system's temporary folder).
#pragma once

#include <vector>

struct FakeEndpoint {
    bool present = true;      // OpenMasterVolume finds a device
    bool readable = true;     // GetMasterLevel succeeds
    float level = 1.0f;       // the slider; SetMasterLevel moves it
    int openAttempts = 0;
    int opened = 0;           // objects made
    int closed = 0;           // objects released
    std::vector<float> sets;  // every SetMasterLevel request
};

extern FakeEndpoint g_fakeEndpoint;
