// Any "TONKARI_LAUNCH_MONITOR" value: the parser never crashes, never
// touches the rectangle of a value it refuses, and what it accepts is a real
// rectangle that survives being written back and having words added after
// a space, but not anything else glued to its last number.
#include <string>

#include "app/display_windows.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

constexpr Rect kUntouched{-7, -7, -7, -7};

std::wstring Written(const Rect& r) {
    return std::to_wstring(r.left) + L"," + std::to_wstring(r.top) + L"," + std::to_wstring(r.right) +
           L"," + std::to_wstring(r.bottom);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const wchar_t glued = static_cast<wchar_t>(input.Byte());  // tried after a number
    // Longer than the 63 characters the environment read allows, to reach
    // the length rule too.
    const std::wstring value = input.WideText(80);

    Rect rect = kUntouched;
    if (!ParseLaunchMonitorValue(value, rect)) {
        FUZZ_CHECK(rect == kUntouched);
        return 0;
    }
    FUZZ_CHECK(!value.empty() && value.size() <= 63);
    FUZZ_CHECK(rect.right > rect.left && rect.bottom > rect.top);

    Rect again = kUntouched;
    FUZZ_CHECK(ParseLaunchMonitorValue(Written(rect), again) && again == rect);

    // After the fourth number only a space may follow, and then anything.
    const std::wstring extended = value + L" and more";
    if (extended.size() <= 63) {
        again = kUntouched;
        FUZZ_CHECK(ParseLaunchMonitorValue(extended, again) && again == rect);
    }
    if (glued != L' ' && glued != L'\0' && !(glued >= L'0' && glued <= L'9')) {
        again = kUntouched;
        FUZZ_CHECK(!ParseLaunchMonitorValue(Written(rect) + glued, again) && again == kUntouched);
    }
    return 0;
}
