// Mouse and touch positions as client points.
#include "app/pointer_points.h"

bool IsTouchSynthesizedMouse(uintptr_t messageExtraInfo) {
    return (messageExtraInfo & 0xFFFFFF00u) == 0xFF515700u;
}

Point MouseClientPoint(uintptr_t lParam) {
    const auto low = static_cast<int16_t>(lParam & 0xFFFF);
    const auto high = static_cast<int16_t>((lParam >> 16) & 0xFFFF);
    return {low, high};
}

Point TouchScreenPixel(int32_t xHundredths, int32_t yHundredths) {
    // C++ integer division already truncates toward zero.
    return {xHundredths / 100, yHundredths / 100};
}
