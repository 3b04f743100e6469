// Sound synthesis.
#include "play/sound_bank.h"

void BuildSoundBank() {
    // The pop, blow and cheer sounds join with the sound synthesis.
}
