// The repeating timers of the Linux edition's event loop, kept as Windows
// keeps the timers of a window: due a period after they were set; a loop
// that comes late fires a timer once, not once per missed period.
#pragma once

#include <cstdint>

struct RepeatingTimer {
    uint32_t period = 0;  // ms
    uint32_t due = 0;     // tick count at which it fires next
    bool running = false;
};

// Sets (or restarts) the timer: it first fires a period from now.
void SetRepeatingTimer(RepeatingTimer& timer, uint32_t period, uint32_t now);

// Whether the timer fires now; if so, its next time is set. The tick count
// may wrap between calls.
bool TimerFires(RepeatingTimer& timer, uint32_t now);

// How long the loop may wait for this timer: 0 when it is due, UINT32_MAX
// when it is not running.
uint32_t MillisecondsUntil(const RepeatingTimer& timer, uint32_t now);
