// The sounds of the toy, synthesized in memory once at start-up.
#pragma once

// Builds every sound image; called once by start-up before any window exists.
void BuildSoundBank();
