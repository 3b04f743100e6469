// The language of the two texts that exist in Japanese and English.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The instruction pill's text and the hint balloon's (a line feed splits
// the hint into two lines); empty until SetupLanguage runs, then fixed for
// the run.
extern std::wstring InstructionText;
extern std::wstring HintText;

enum class Language { kJapanese, kEnglish };

// Chooses Japanese or English from the configured value and the user's UI
// language (each edition asks its system, language_win.cpp and
// language_linux.cpp, then ChooseLanguage and SetLanguageTexts). Called once at start-up after the settings are read.
void SetupLanguage(std::wstring_view configured);

// The choice itself: a configured value beginning with "ja" or "en" (after
// trimming and ASCII lower-casing) decides; any other value leaves it to the
// UI language identifier, whose primary language 0x11 is Japanese.
Language ChooseLanguage(std::wstring_view configured, uint16_t uiLanguage);

// The Linux edition's stand-in for the UI language identifier: the user's
// locale as the C library ranks the variables (LC_ALL, else LC_MESSAGES,
// else LANG; an empty one counts as unset). "ja" and "ja_JP.UTF-8" give
// Japanese (0x0411), anything else English (0x0409).
uint16_t UiLanguageFromLocale(const char* lcAll, const char* lcMessages, const char* lang);

// Sets InstructionText and HintText to the language's texts.
void SetLanguageTexts(Language language);
