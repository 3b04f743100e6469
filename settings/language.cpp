// Language choice and texts.
#include "settings/language.h"

std::wstring InstructionText;
std::wstring HintText;

void SetupLanguage(std::wstring_view) {
    // The language choice joins with the settings.
}
