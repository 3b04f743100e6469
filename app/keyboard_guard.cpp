// The keyboard guard's report and block rules.
#include "app/keyboard_guard.h"

namespace {

// The shortcuts that stop the child from leaving, first match wins.
bool Blocked(const GuardedKey& key) {
    const GuardKey k = key.key;
    if (k == GuardKey::kLeftWindows || k == GuardKey::kRightWindows || k == GuardKey::kMenu) {
        return true;  // Start menu, context menu
    }
    if (key.ctrlDown && key.shiftDown) return true;          // Task Manager and friends
    if (k == GuardKey::kEscape && key.ctrlDown) return true;  // Start menu
    // Alt with anything switches or closes; the reportable keys are exempt,
    // so that without a home window Alt+F4 still reaches the system.
    if (key.altDown) return k != GuardKey::kPrintScreen && k != GuardKey::kF1 && k != GuardKey::kF4;
    return k == GuardKey::kTab && key.winDown;  // task view
}

}  // namespace

GuardDecision DecideGuardedKey(const GuardedKey& key) {
    // Key releases always pass: a swallowed release would leave the system
    // believing the key is still held.
    if (!key.press) return {};

    GuardDecision decision;
    const bool reportable = key.key == GuardKey::kPrintScreen ||
                            (key.altDown && (key.key == GuardKey::kF1 || key.key == GuardKey::kF4));
    decision.report = !key.flaggedUp && reportable && key.targetPresent && !key.extended;
    decision.swallow = Blocked(key);
    return decision;
}
