// The high score file.
#include "settings/high_score.h"

int32_t g_bestScore = 0;

void LoadBestScore() {
    // Reading the file joins with the settings.
}

void SaveBestScore() {}
