// The keyboard guard's key table: what is reported, swallowed or passed on,
// with and without a window to report to. The shortcuts a toddler hits go
// through the real hook in the end-to-end tests; these are the finer rows.
#include <gtest/gtest.h>

#include "app/keyboard_guard.h"

namespace {

using namespace guard_keys;

enum Mods : unsigned { kNone = 0, kAlt = 1, kCtrl = 2, kShift = 4, kWin = 8 };

enum Outcome {
    kPassed,
    kSwallowed,
    kReported,             // reported; passed on should the post fail
    kReportedOrSwallowed,  // reported; swallowed should the post fail
};

GuardedKey Press(uint32_t vk, unsigned mods, uint32_t flags = 0, uint32_t message = kKeyDown) {
    GuardedKey key;
    key.message = message;
    key.vkCode = vk;
    key.flags = flags;
    key.altDown = mods & kAlt;
    key.ctrlDown = mods & kCtrl;
    key.shiftDown = mods & kShift;
    key.winDown = mods & kWin;
    return key;
}

GuardedKey NoAction(GuardedKey key) {
    key.isAction = false;
    return key;
}

TEST(KeyboardGuard, KeyTableWithAndWithoutAReportTarget) {
    constexpr uint32_t kA = 'A', kSeven = '7', kLeft = 37, kLeftAlt = 164;
    const struct {
        const char* keys;
        GuardedKey key;
        Outcome outcome;
    } cases[] = {
        {"left Windows key", Press(kLeftWin, kNone), kSwallowed},
        {"right Windows key", Press(kRightWin, kWin, kExtendedFlag), kSwallowed},
        {"Applications key", Press(kApps, kNone, kExtendedFlag), kSwallowed},
        {"Ctrl+Shift+Esc", Press(kEscape, kCtrl | kShift), kSwallowed},
        {"Ctrl+Shift+A", Press(kA, kCtrl | kShift), kSwallowed},
        {"Ctrl+Esc", Press(kEscape, kCtrl), kSwallowed},
        {"Alt+Tab", Press(kTab, kAlt, 0, kSysKeyDown), kSwallowed},
        {"Alt+A", Press(kA, kAlt, 0, kSysKeyDown), kSwallowed},
        {"Alt+7", Press(kSeven, kAlt, 0, kSysKeyDown), kSwallowed},
        {"Alt itself (flag only, as Windows marks it)", Press(kLeftAlt, kAlt, kAltDownFlag), kSwallowed},
        {"Alt+F4", Press(kF4, kAlt, kAltDownFlag, kSysKeyDown), kReported},
        {"Alt+F1", Press(kF1, kAlt, 0, kSysKeyDown), kReported},
        {"Ctrl+Shift+Alt+F4", Press(kF4, kAlt | kCtrl | kShift), kReportedOrSwallowed},
        {"Print Screen", Press(kSnapshot, kNone), kReported},
        {"Alt+Print Screen", Press(kSnapshot, kAlt), kReported},
        {"Print Screen, extended", Press(kSnapshot, kNone, kExtendedFlag), kPassed},
        {"Alt+Print Screen, extended", Press(kSnapshot, kAlt, kExtendedFlag), kPassed},
        {"Ctrl+Shift+Print Screen, extended", Press(kSnapshot, kCtrl | kShift, kExtendedFlag), kSwallowed},
        {"Alt+F4, extended", Press(kF4, kAlt, kExtendedFlag), kPassed},
        {"Win+Tab", Press(kTab, kWin), kSwallowed},
        {"Win+Alt+Tab", Press(kTab, kWin | kAlt), kSwallowed},
        {"plain F4", Press(kF4, kNone), kPassed},
        {"Ctrl+F4", Press(kF4, kCtrl), kPassed},
        {"plain Tab", Press(kTab, kNone), kPassed},
        {"Shift+Esc", Press(kEscape, kShift), kPassed},
        {"a letter", Press(kA, kNone), kPassed},
        {"an arrow", Press(kLeft, kNone, kExtendedFlag), kPassed},
        {"Print Screen down flagged up", Press(kSnapshot, kNone, kUpFlag), kPassed},
        {"release of the Windows key", Press(kLeftWin, kWin, kUpFlag, kKeyUp), kPassed},
        {"release of F4 with Alt", Press(kF4, kAlt, kUpFlag, kSysKeyUp), kPassed},
        {"release of a letter with Ctrl+Shift", Press(kA, kCtrl | kShift, kUpFlag, kKeyUp), kPassed},
        {"a call that is no key action", NoAction(Press(kLeftWin, kCtrl | kShift | kAlt)), kPassed},
    };
    for (const auto& c : cases) {
        const bool reported = c.outcome == kReported || c.outcome == kReportedOrSwallowed;
        const bool swallowed = c.outcome == kSwallowed || c.outcome == kReportedOrSwallowed;
        for (const bool target : {true, false}) {
            GuardedKey key = c.key;
            key.targetPresent = target;
            const GuardDecision decision = DecideGuardedKey(key);
            // Without a window to report to, nothing is reported and the
            // block rules alone decide.
            EXPECT_EQ(decision.report, reported && target) << c.keys << (target ? "" : ", no target");
            EXPECT_EQ(decision.swallow, swallowed) << c.keys << (target ? "" : ", no target");
        }
    }
}

}  // namespace
