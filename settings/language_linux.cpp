// The language choice in the Linux edition, given the user's locale.
#include <cstdlib>

#include "settings/language.h"

void SetupLanguage(std::wstring_view configured) {
    const uint16_t locale = UiLanguageFromLocale(std::getenv("LC_ALL"), std::getenv("LC_MESSAGES"), std::getenv("LANG"));
    SetLanguageTexts(ChooseLanguage(configured, locale));
}
