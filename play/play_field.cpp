// The play-field record and its frame tick.
#include "play/play_field.h"

PlayField g_playField;

void LayoutPlayField() {
    // The layout of the buttons and the penguin joins with the play field.
}

void AdvanceFrame() {
    // The bubbles, the long press and the clocks join with the play field.
}
