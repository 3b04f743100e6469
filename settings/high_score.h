// The best score, kept between runs in high_score.txt beside config.ini.
#pragma once

#include <cstdint>

// The best score ever reached on this account; 0 when nothing valid was read.
extern int32_t g_bestScore;

// Reads the file once at start-up, before the windows exist.
void LoadBestScore();

// Writes g_bestScore; called on every pop that raises it.
void SaveBestScore();
