// The keyboard guard's rules: which key presses are reported to the home
// window, which are swallowed, and which pass on to the system. Portable so
// that the whole key table can be checked natively; each edition fills the
// key event from its own (keyboard_guard_win.cpp, keyboard_guard_linux.cpp).
#pragma once

#include <cstdint>

// The keys the rules name; every other key is an ordinary one.
enum class GuardKey : uint8_t {
    kOther,
    kTab,
    kEscape,
    kPrintScreen,
    kLeftWindows,   // the left Windows (Super) key
    kRightWindows,  // the right one
    kMenu,          // the context-menu (Applications) key
    kF1,
    kF4,
};

// One key event, with the modifier states already read.
struct GuardedKey {
    GuardKey key = GuardKey::kOther;
    bool press = true;         // a key going down; a release, or no key event at all, is false
    bool flaggedUp = false;    // a press the system marks as a release
    bool extended = false;     // the extended twin of a key (Windows tells them apart)
    bool altDown = false;      // any Alt key held (or the system marks Alt)
    bool ctrlDown = false;
    bool shiftDown = false;
    bool winDown = false;      // either Windows (Super) key held
    bool targetPresent = false;  // a window to report to exists
};

struct GuardDecision {
    // Report the key to the home window; a report that gets through
    // swallows the key.
    bool report = false;
    // The block rules' verdict: for a key that is not reported, or whose
    // report failed.
    bool swallow = false;
};

// The guard's rules for one key event. Called for every key event.
GuardDecision DecideGuardedKey(const GuardedKey& key);
