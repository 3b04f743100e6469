// The keyboard guard's rules: which key presses are reported to the home
// window, which are swallowed, and which pass on to the system. Portable so
// that the whole key table can be checked natively; the hook itself lives
// in keyboard_guard_win.cpp.
#pragma once

#include <cstdint>

// Key codes and hook values as the platform numbers them.
namespace guard_keys {
constexpr uint32_t kTab = 9;
constexpr uint32_t kEscape = 27;
constexpr uint32_t kSnapshot = 44;  // Print Screen
constexpr uint32_t kLeftWin = 91;
constexpr uint32_t kRightWin = 92;
constexpr uint32_t kApps = 93;
constexpr uint32_t kF1 = 112;
constexpr uint32_t kF4 = 115;

constexpr uint32_t kKeyDown = 0x100;     // WM_KEYDOWN
constexpr uint32_t kKeyUp = 0x101;       // WM_KEYUP
constexpr uint32_t kSysKeyDown = 0x104;  // WM_SYSKEYDOWN
constexpr uint32_t kSysKeyUp = 0x105;    // WM_SYSKEYUP

constexpr uint32_t kExtendedFlag = 0x01;  // LLKHF_EXTENDED
constexpr uint32_t kAltDownFlag = 0x20;   // LLKHF_ALTDOWN
constexpr uint32_t kUpFlag = 0x80;        // LLKHF_UP
}  // namespace guard_keys

// One call of the hook, with the modifier states already read.
struct GuardedKey {
    bool isAction = true;      // the hook code is HC_ACTION
    uint32_t message = 0;      // the hook's wParam: WM_KEYDOWN, WM_SYSKEYUP, ...
    uint32_t vkCode = 0;
    uint32_t flags = 0;        // the event's LLKHF_ flags
    bool altDown = false;      // LLKHF_ALTDOWN or any Alt key held
    bool ctrlDown = false;
    bool shiftDown = false;
    bool winDown = false;      // either Windows key held
    bool targetPresent = false;  // a window to report to exists
};

struct GuardDecision {
    // Post WM_GUARDED_KEY with the key code; a post that succeeds swallows
    // the key.
    bool report = false;
    // The block rules' verdict: for a key that is not reported, or whose
    // post failed.
    bool swallow = false;
};

// The guard's rules for one key event. Called by the hook for every event.
GuardDecision DecideGuardedKey(const GuardedKey& key);
