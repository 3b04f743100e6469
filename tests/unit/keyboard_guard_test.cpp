// The keyboard guard's key table: what is reported, swallowed or passed on,
// with and without a window to report to. The shortcuts a toddler hits go
// through the real hook in the end-to-end tests; these are the finer rows.
#include <gtest/gtest.h>

#include "app/keyboard_guard.h"

namespace {

using enum GuardKey;

enum Mods : unsigned { kNone = 0, kAlt = 1, kCtrl = 2, kShift = 4, kWin = 8 };
enum Flags : unsigned { kPlain = 0, kExtended = 1, kUp = 2 };

enum Outcome {
    kPassed,
    kSwallowed,
    kReported,             // reported; passed on should the post fail
    kReportedOrSwallowed,  // reported; swallowed should the post fail
};

GuardedKey Press(GuardKey k, unsigned mods, unsigned flags = kPlain) {
    GuardedKey key;
    key.key = k;
    key.extended = flags & kExtended;
    key.flaggedUp = flags & kUp;
    key.altDown = mods & kAlt;
    key.ctrlDown = mods & kCtrl;
    key.shiftDown = mods & kShift;
    key.winDown = mods & kWin;
    return key;
}

GuardedKey Release(GuardedKey key) {
    key.press = false;
    return key;
}

TEST(KeyboardGuard, KeyTableWithAndWithoutAReportTarget) {
    constexpr GuardKey kA = kOther, kSeven = kOther, kLeft = kOther, kLeftAlt = kOther;
    const struct {
        const char* keys;
        GuardedKey key;
        Outcome outcome;
    } cases[] = {
        {"left Windows key", Press(kLeftWindows, kNone), kSwallowed},
        {"right Windows key", Press(kRightWindows, kWin, kExtended), kSwallowed},
        {"Applications key", Press(kMenu, kNone, kExtended), kSwallowed},
        {"Ctrl+Shift+Esc", Press(kEscape, kCtrl | kShift), kSwallowed},
        {"Ctrl+Shift+A", Press(kA, kCtrl | kShift), kSwallowed},
        {"Ctrl+Esc", Press(kEscape, kCtrl), kSwallowed},
        {"Alt+Tab", Press(kTab, kAlt), kSwallowed},
        {"Alt+A", Press(kA, kAlt), kSwallowed},
        {"Alt+7", Press(kSeven, kAlt), kSwallowed},
        {"Alt itself", Press(kLeftAlt, kAlt), kSwallowed},
        {"Alt+F4", Press(kF4, kAlt), kReported},
        {"Alt+F1", Press(kF1, kAlt), kReported},
        {"Ctrl+Shift+Alt+F4", Press(kF4, kAlt | kCtrl | kShift), kReportedOrSwallowed},
        {"Print Screen", Press(kPrintScreen, kNone), kReported},
        {"Alt+Print Screen", Press(kPrintScreen, kAlt), kReported},
        {"Print Screen, extended", Press(kPrintScreen, kNone, kExtended), kPassed},
        {"Alt+Print Screen, extended", Press(kPrintScreen, kAlt, kExtended), kPassed},
        {"Ctrl+Shift+Print Screen, extended", Press(kPrintScreen, kCtrl | kShift, kExtended), kSwallowed},
        {"Alt+F4, extended", Press(kF4, kAlt, kExtended), kPassed},
        {"Win+Tab", Press(kTab, kWin), kSwallowed},
        {"Win+Alt+Tab", Press(kTab, kWin | kAlt), kSwallowed},
        {"plain F4", Press(kF4, kNone), kPassed},
        {"Ctrl+F4", Press(kF4, kCtrl), kPassed},
        {"plain Tab", Press(kTab, kNone), kPassed},
        {"Shift+Esc", Press(kEscape, kShift), kPassed},
        {"a letter", Press(kA, kNone), kPassed},
        {"an arrow", Press(kLeft, kNone, kExtended), kPassed},
        {"Print Screen down flagged up", Press(kPrintScreen, kNone, kUp), kPassed},
        {"release of the Windows key", Release(Press(kLeftWindows, kWin, kUp)), kPassed},
        {"release of F4 with Alt", Release(Press(kF4, kAlt, kUp)), kPassed},
        {"release of a letter with Ctrl+Shift", Release(Press(kA, kCtrl | kShift, kUp)), kPassed},
        {"a release with every modifier", Release(Press(kLeftWindows, kCtrl | kShift | kAlt)), kPassed},
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
