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

Point TouchClientPoint(float xFraction, float yFraction, int32_t width, int32_t height) {
    // Double precision, so that a contact on a pixel's edge stays on it.
    return {static_cast<int32_t>(static_cast<double>(xFraction) * width),
            static_cast<int32_t>(static_cast<double>(yFraction) * height)};
}
