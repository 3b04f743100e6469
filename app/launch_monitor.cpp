// The launch-monitor value's parsing rule.
#include "app/launch_monitor.h"

#include <algorithm>
#include <climits>
#include <cwchar>
#include <string>

namespace {

// wcstol as Windows has it: long is 32 bits there, so out-of-range numbers
// saturate at the 32-bit limits, whatever the width of long here.
int32_t ParseLong(const wchar_t* text, wchar_t** end) {
    long value = std::wcstol(text, end, 10);
    return static_cast<int32_t>(std::clamp<long>(value, INT32_MIN, INT32_MAX));
}

}  // namespace

bool ParseLaunchMonitorValue(std::wstring_view value, Rect& out) {
    // The environment read uses a 64-character buffer: 1..63 characters fit.
    if (value.empty() || value.size() > 63) return false;
    const std::wstring text(value);

    int32_t numbers[4] = {};
    const wchar_t* cursor = text.c_str();
    for (int i = 0; i < 4; ++i) {
        wchar_t* end = nullptr;
        numbers[i] = ParseLong(cursor, &end);
        if (i < 3) {
            // The comma must follow the number at once; a field without
            // digits leaves end where it began and reads as 0.
            if (*end != L',') return false;
            cursor = end + 1;
        } else if (*end != L'\0' && *end != L' ') {
            return false;  // only a space may end the fourth number early
        }
    }
    const Rect rect{numbers[0], numbers[1], numbers[2], numbers[3]};
    if (rect.right <= rect.left || rect.bottom <= rect.top) return false;
    out = rect;
    return true;
}
