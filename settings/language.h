// The language of the two texts that exist in Japanese and English.
#pragma once

#include <string>
#include <string_view>

// The instruction pill's text and the hint balloon's (a line feed splits
// the hint into two lines); empty until SetupLanguage runs.
extern std::wstring InstructionText;
extern std::wstring HintText;

// Chooses Japanese or English from the configured value and the user's UI
// language; called once at start-up after the settings are read.
void SetupLanguage(std::wstring_view configured);
