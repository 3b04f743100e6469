// Font files through GDI+ private collections.
#include "assets/fonts.h"

void ReleaseFonts() {
    // The font files join with the labels.
}
