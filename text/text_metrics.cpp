// Em sizes, outline width and label fitting.
#include "text/text_metrics.h"

#include <algorithm>
#include <cmath>

#include "play/display_records.h"

// std::round rounds halves away from zero, as every design size does.
float OutlinedTextEm(int32_t baseEm, float scale) {
    return std::round(static_cast<float>(baseEm) * g_dpiScale) * scale;
}

float OutlineWidth(float em) { return std::max(em * 0.14f, 3.0f * g_dpiScale); }

float LabelFontSize() { return std::round(30.0f * g_dpiScale); }

float FitFontSize(float size, float measuredWidth, float availableWidth) {
    if (measuredWidth > availableWidth && availableWidth > 1.0f) {
        return std::max(24.0f * g_dpiScale, availableWidth * size / measuredWidth * 0.95f);
    }
    return size;
}
