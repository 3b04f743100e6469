// Rules for the numbers read from config.ini.
#include "settings/config_values.h"

int32_t ClampVolumePercent(int32_t percent) {
    if (percent > 100) return 100;
    if (percent < 0) return 0;  // a negative ceiling means no clamp
    return percent;
}
