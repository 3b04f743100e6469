// Repeating timers over a wrapping millisecond counter.
#include "app/repeating_timer.h"

#include <cstdint>

namespace {

// Signed distance from now to the due time, correct across a wrap.
int32_t Remaining(const RepeatingTimer& timer, uint32_t now) { return static_cast<int32_t>(timer.due - now); }

}  // namespace

void SetRepeatingTimer(RepeatingTimer& timer, uint32_t period, uint32_t now) {
    timer.period = period;
    timer.due = now + period;
    timer.running = true;
}

bool TimerFires(RepeatingTimer& timer, uint32_t now) {
    if (!timer.running || Remaining(timer, now) > 0) return false;
    timer.due += timer.period;
    // Late by a whole period or more: the missed ticks are dropped, and the
    // cadence starts again from now.
    if (Remaining(timer, now) <= 0) timer.due = now + timer.period;
    return true;
}

uint32_t MillisecondsUntil(const RepeatingTimer& timer, uint32_t now) {
    if (!timer.running) return UINT32_MAX;
    const int32_t remaining = Remaining(timer, now);
    return remaining > 0 ? static_cast<uint32_t>(remaining) : 0;
}
