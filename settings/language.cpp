// The choice between Japanese and English, and the two texts it sets.
#include "settings/language.h"

#include "settings/texts.h"

std::wstring InstructionText;
std::wstring HintText;

namespace {

constexpr uint16_t kPrimaryLanguageMask = 0x3FF;
constexpr uint16_t kJapanesePrimary = 0x11;

bool IsTrimmed(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; }

}  // namespace

Language ChooseLanguage(std::wstring_view configured, uint16_t uiLanguage) {
    while (!configured.empty() && IsTrimmed(configured.front())) configured.remove_prefix(1);
    while (!configured.empty() && IsTrimmed(configured.back())) configured.remove_suffix(1);
    // Only the ASCII letters fold: "ＪＡ" or an accented letter stays as it is.
    std::wstring value(configured);
    for (wchar_t& c : value) {
        if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
    }
    // Only the beginning counts: "ja-JP" and "japanese" are Japanese too.
    if (value.starts_with(L"ja")) return Language::kJapanese;
    if (value.starts_with(L"en")) return Language::kEnglish;
    return (uiLanguage & kPrimaryLanguageMask) == kJapanesePrimary ? Language::kJapanese : Language::kEnglish;
}

void SetLanguageTexts(Language language) {
    const bool english = language == Language::kEnglish;
    InstructionText = english ? kInstructionEnglish : kInstructionJapanese;
    HintText = english ? kHintEnglish : kHintJapanese;
}

uint16_t UiLanguageFromLocale(const char* lcAll, const char* lcMessages, const char* lang) {
    const char* locale = nullptr;
    for (const char* value : {lcAll, lcMessages, lang}) {
        if (value && *value) {
            locale = value;
            break;
        }
    }
    const std::string_view name = locale ? locale : "";
    // The language part ends at the territory, the code set or the modifier.
    const bool japanese = name.substr(0, name.find_first_of("_.@")) == "ja";
    return japanese ? 0x0411 : 0x0409;
}
