// The language choice, given the user's UI language.
#include <windows.h>

#include "settings/language.h"

void SetupLanguage(std::wstring_view configured) {
    SetLanguageTexts(ChooseLanguage(configured, GetUserDefaultUILanguage()));
}
