// The default output's master level in the Linux edition, through
// PulseAudio's client library (PipeWire answers it too). Each call connects,
// asks and lets go within a short time budget, so a hung sound server costs
// at most a frame or two and never freezes play; nothing is kept between
// calls, so a server started or a default output changed later is found at
// the next topmost tick. No server running: OpenMasterVolume gives null at
// once, and none is ever started for us.
#include <pulse/pulseaudio.h>

#include <chrono>
#include <cmath>
#include <string>

#include "settings/master_volume.h"

struct MasterVolume {
    pa_mainloop* loop = nullptr;
    pa_context* context = nullptr;
    std::string sinkName;  // the default output
    pa_cvolume volume{};   // its channels' levels
    bool sinkFound = false;
};

namespace {

using Clock = std::chrono::steady_clock;

// Each call's budget; a local server answers in about a millisecond.
constexpr auto kBudget = std::chrono::milliseconds(50);

// Runs the client's loop until done() holds; false when the deadline or an
// error of the loop comes first.
template <class Done>
bool RunUntil(MasterVolume* volume, Clock::time_point deadline, Done done) {
    while (!done()) {
        const auto left = std::chrono::duration_cast<std::chrono::microseconds>(deadline - Clock::now()).count();
        if (left <= 0) return false;
        if (pa_mainloop_prepare(volume->loop, static_cast<int>(left)) < 0 || pa_mainloop_poll(volume->loop) < 0 ||
            pa_mainloop_dispatch(volume->loop) < 0) {
            return false;
        }
    }
    return true;
}

// Waits for a request to the server to finish; one not finished in time is
// cancelled.
bool Await(MasterVolume* volume, pa_operation* operation, Clock::time_point deadline) {
    if (!operation) return false;
    const bool finished = RunUntil(volume, deadline, [operation] {
        return pa_operation_get_state(operation) != PA_OPERATION_RUNNING;
    });
    if (!finished) pa_operation_cancel(operation);
    pa_operation_unref(operation);
    return finished;
}

void OnServerInfo(pa_context*, const pa_server_info* info, void* data) {
    if (info && info->default_sink_name) static_cast<MasterVolume*>(data)->sinkName = info->default_sink_name;
}

void OnSinkInfo(pa_context*, const pa_sink_info* info, int endOfList, void* data) {
    if (endOfList != 0 || !info) return;
    auto* volume = static_cast<MasterVolume*>(data);
    volume->volume = info->volume;
    volume->sinkFound = true;
}

bool Connect(MasterVolume* volume, Clock::time_point deadline) {
    volume->loop = pa_mainloop_new();
    if (!volume->loop) return false;
    volume->context = pa_context_new(pa_mainloop_get_api(volume->loop), "Puffino");
    if (!volume->context ||
        pa_context_connect(volume->context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
        return false;
    }
    RunUntil(volume, deadline, [volume] {
        const pa_context_state_t state = pa_context_get_state(volume->context);
        return state == PA_CONTEXT_READY || !PA_CONTEXT_IS_GOOD(state);
    });
    return pa_context_get_state(volume->context) == PA_CONTEXT_READY;
}

}  // namespace

MasterVolume* OpenMasterVolume() {
    const Clock::time_point deadline = Clock::now() + kBudget;
    auto* volume = new MasterVolume;
    // The server's default output, then its levels.
    const bool found =
        Connect(volume, deadline) &&
        Await(volume, pa_context_get_server_info(volume->context, OnServerInfo, volume), deadline) &&
        !volume->sinkName.empty() &&
        Await(volume,
              pa_context_get_sink_info_by_name(volume->context, volume->sinkName.c_str(), OnSinkInfo, volume),
              deadline) &&
        volume->sinkFound && volume->volume.channels > 0;
    if (found) return volume;
    CloseMasterVolume(volume);
    return nullptr;
}

bool GetMasterLevel(MasterVolume* volume, float& level) {
    // The loudest channel, as the desktop's slider shows it; above 1.0 when
    // the output is boosted beyond 100 %.
    level = static_cast<float>(pa_cvolume_max(&volume->volume)) / static_cast<float>(PA_VOLUME_NORM);
    return true;
}

void SetMasterLevel(MasterVolume* volume, float level) {
    pa_cvolume target = volume->volume;
    const auto scaled = static_cast<pa_volume_t>(std::lround(level * static_cast<float>(PA_VOLUME_NORM)));
    pa_cvolume_set(&target, volume->volume.channels, scaled);
    // Whether the server took it is not reported; the next tick reads again.
    Await(volume,
          pa_context_set_sink_volume_by_name(volume->context, volume->sinkName.c_str(), &target, nullptr, nullptr),
          Clock::now() + kBudget);
}

void CloseMasterVolume(MasterVolume* volume) {
    if (volume->context) {
        pa_context_disconnect(volume->context);
        pa_context_unref(volume->context);
    }
    if (volume->loop) pa_mainloop_free(volume->loop);
    delete volume;
}
