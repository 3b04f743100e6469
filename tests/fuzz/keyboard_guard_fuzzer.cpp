// Any key event in any modifier state: the guard's decision is total and
// keeps its promises. Releases always pass; only a reportable key with a
// window to report to is reported; whether a window exists never changes the
// block rules' verdict; Alt+F4, Alt+F1 and Print Screen fall through to the
// system when their report cannot be made, unless Ctrl+Shift is held.
#include "app/keyboard_guard.h"
#include "tests/fuzz/fuzz_input.h"

using namespace guard_keys;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    GuardedKey key;
    key.isAction = input.Byte() < 0xF0;
    // Mostly the four key messages, sometimes anything.
    const uint8_t message = input.Byte();
    key.message = message < 0xF0 ? kKeyDown + (message & 5) : input.U32();
    const uint8_t vk = input.Byte();
    key.vkCode = vk < 0xF0 ? vk : input.U32();
    const uint8_t flags = input.Byte();
    key.flags = flags < 0xF0 ? flags : input.U32();
    const uint8_t mods = input.Byte();
    key.altDown = mods & 1;
    key.ctrlDown = mods & 2;
    key.shiftDown = mods & 4;
    key.winDown = mods & 8;
    key.targetPresent = mods & 16;

    const GuardDecision decision = DecideGuardedKey(key);
    const bool keyDown = key.isAction && (key.message == kKeyDown || key.message == kSysKeyDown);
    if (!keyDown) {
        FUZZ_CHECK(!decision.report && !decision.swallow);
        return 0;
    }

    const bool reportable =
        key.vkCode == kSnapshot || (key.altDown && (key.vkCode == kF1 || key.vkCode == kF4));
    if (decision.report) {
        FUZZ_CHECK(reportable && key.targetPresent);
        FUZZ_CHECK(!(key.flags & (kUpFlag | kExtendedFlag)));
    }
    if (reportable) FUZZ_CHECK(decision.swallow == (key.ctrlDown && key.shiftDown));

    GuardedKey otherTarget = key;
    otherTarget.targetPresent = !key.targetPresent;
    const GuardDecision other = DecideGuardedKey(otherTarget);
    FUZZ_CHECK(other.swallow == decision.swallow);
    if (!key.targetPresent) FUZZ_CHECK(!decision.report);

    // The Start menu keys and everything under Ctrl+Shift never get through.
    const bool startMenuKey = key.vkCode == kLeftWin || key.vkCode == kRightWin || key.vkCode == kApps;
    if (startMenuKey) FUZZ_CHECK(decision.swallow);
    if (key.ctrlDown && key.shiftDown) FUZZ_CHECK(decision.swallow);
    return 0;
}
