// The keyboard guard's report and block rules.
#include "app/keyboard_guard.h"

using namespace guard_keys;

namespace {

// The shortcuts that stop the child from leaving, first match wins.
bool Blocked(const GuardedKey& key) {
    const uint32_t k = key.vkCode;
    if (k == kLeftWin || k == kRightWin || k == kApps) return true;  // Start menu, context menu
    if (key.ctrlDown && key.shiftDown) return true;                  // Task Manager and friends
    if (k == kEscape && key.ctrlDown) return true;                   // Start menu
    // Alt with anything switches or closes; the reportable keys are exempt,
    // so that without a home window Alt+F4 still reaches the system.
    if (key.altDown) return k != kSnapshot && k != kF1 && k != kF4;
    return k == kTab && key.winDown;                                 // task view
}

}  // namespace

GuardDecision DecideGuardedKey(const GuardedKey& key) {
    // Key releases always pass: a swallowed release would leave the system
    // believing the key is still held.
    if (!key.isAction || (key.message != kKeyDown && key.message != kSysKeyDown)) return {};

    GuardDecision decision;
    const bool reportable = key.vkCode == kSnapshot ||
                            (key.altDown && (key.vkCode == kF1 || key.vkCode == kF4));
    decision.report = !(key.flags & kUpFlag) && reportable && key.targetPresent &&
                      !(key.flags & kExtendedFlag);
    decision.swallow = Blocked(key);
    return decision;
}
