// The best score, kept between runs in high_score.txt beside config.ini.
#pragma once

#include <cstdint>
#include <istream>

// The best score ever reached on this account; 0 when nothing valid was read.
extern int32_t g_bestScore;

// Reads the file once at start-up, before the windows exist; a missing or
// unreadable file means 0.
void LoadBestScore();

// Writes g_bestScore; called by the scoring on every pop that raises it.
// A file that cannot be written is left as it was.
void SaveBestScore();

// The best score a file's text stands for: its leading number when that is a
// positive 32-bit value, else 0. Anything after the number is ignored.
int32_t ParseBestScore(std::istream& text);
