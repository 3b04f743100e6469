// The master volume of the default output in the Linux edition, through
// PulseAudio's client library (PipeWire answers the same protocol). Each
// open connects, reads the default sink and its volume, and each call waits
// for its answer for a bounded time, so that a hung server never holds play
// up; nothing is kept between the clamp's calls.
#include <pulse/pulseaudio.h>

#include <string>

#include "settings/master_volume.h"

struct MasterVolume {
    pa_mainloop* loop = nullptr;
    pa_context* context = nullptr;
    std::string sink;  // the default sink's name
    pa_cvolume volume{};
    bool done = false;
    bool ok = false;
};

namespace {

constexpr int kMaxIterations = 200;  // of at most 2 ms each: 0.4 s at the most

// Runs the loop until the step in flight has answered, or gives up.
bool Await(MasterVolume& v) {
    for (int i = 0; i < kMaxIterations && !v.done; ++i) {
        if (pa_mainloop_prepare(v.loop, 2000) < 0 || pa_mainloop_poll(v.loop) < 0 ||
            pa_mainloop_dispatch(v.loop) < 0) {
            return false;
        }
    }
    return v.done && v.ok;
}

void Begin(MasterVolume& v) { v.done = v.ok = false; }

void ContextState(pa_context* context, void* user) {
    auto& v = *static_cast<MasterVolume*>(user);
    const pa_context_state_t state = pa_context_get_state(context);
    if (state == PA_CONTEXT_READY || state == PA_CONTEXT_FAILED || state == PA_CONTEXT_TERMINATED) {
        v.done = true;
        v.ok = state == PA_CONTEXT_READY;
    }
}

void ServerInfo(pa_context*, const pa_server_info* info, void* user) {
    auto& v = *static_cast<MasterVolume*>(user);
    v.ok = info && info->default_sink_name;
    if (v.ok) v.sink = info->default_sink_name;
    v.done = true;
}

void SinkInfo(pa_context*, const pa_sink_info* info, int eol, void* user) {
    auto& v = *static_cast<MasterVolume*>(user);
    if (eol) {
        v.done = true;  // the list ended; ok only if the sink came before
        return;
    }
    if (info) {
        v.volume = info->volume;
        v.ok = true;
    }
}

void Completed(pa_context*, int success, void* user) {
    auto& v = *static_cast<MasterVolume*>(user);
    v.ok = success != 0;
    v.done = true;
}

// Waits for an operation's answer; the operation itself is released.
bool Run(MasterVolume& v, pa_operation* operation) {
    if (!operation) return false;
    const bool ok = Await(v);
    pa_operation_unref(operation);
    return ok;
}

}  // namespace

MasterVolume* OpenMasterVolume() {
    auto* v = new MasterVolume;
    v->loop = pa_mainloop_new();
    v->context = v->loop ? pa_context_new(pa_mainloop_get_api(v->loop), "Puffino") : nullptr;
    bool ready = false;
    if (v->context) {
        pa_context_set_state_callback(v->context, ContextState, v);
        Begin(*v);
        // Never start a sound server: without one there is nothing to hold.
        ready = pa_context_connect(v->context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0 && Await(*v);
    }
    if (ready) {
        Begin(*v);
        ready = Run(*v, pa_context_get_server_info(v->context, ServerInfo, v));
    }
    if (ready) {
        Begin(*v);
        ready = Run(*v, pa_context_get_sink_info_by_name(v->context, v->sink.c_str(), SinkInfo, v));
    }
    if (!ready) {
        CloseMasterVolume(v);
        return nullptr;
    }
    return v;
}

bool GetMasterLevel(MasterVolume* volume, float& level) {
    if (!volume || !pa_cvolume_valid(&volume->volume)) return false;
    // The loudest channel, as a share of the sink's full (100 %) volume.
    level = static_cast<float>(pa_cvolume_max(&volume->volume)) / static_cast<float>(PA_VOLUME_NORM);
    return true;
}

void SetMasterLevel(MasterVolume* volume, float level) {
    if (!volume) return;
    pa_cvolume wanted = volume->volume;
    pa_cvolume_set(&wanted, volume->volume.channels,
                   static_cast<pa_volume_t>(level * static_cast<float>(PA_VOLUME_NORM) + 0.5f));
    Begin(*volume);
    Run(*volume, pa_context_set_sink_volume_by_name(volume->context, volume->sink.c_str(), &wanted, Completed, volume));
}

void CloseMasterVolume(MasterVolume* volume) {
    if (!volume) return;
    if (volume->context) {
        pa_context_disconnect(volume->context);
        pa_context_unref(volume->context);
    }
    if (volume->loop) pa_mainloop_free(volume->loop);
    delete volume;
}
