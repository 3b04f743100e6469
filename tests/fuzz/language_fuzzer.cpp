// Any configured "Language" value on any user-interface language: the
// choice never crashes, ignores white space around the value and the case
// of ASCII letters, and leaves to the UI language every value that begins
// with neither "ja" nor "en".
#include <string>

#include "settings/language.h"
#include "tests/fuzz/fuzz_input.h"

namespace {

constexpr uint16_t kJapaneseUi = 0x0411;
constexpr uint16_t kEnglishUi = 0x0409;

std::wstring AsciiUpper(std::wstring text) {
    for (wchar_t& c : text) {
        if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - L'a' + L'A');
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const uint16_t ui = static_cast<uint16_t>(input.U32());
    const std::wstring value = input.WideText(63);

    const Language chosen = ChooseLanguage(value, ui);
    FUZZ_CHECK(chosen == Language::kJapanese || chosen == Language::kEnglish);
    FUZZ_CHECK(ChooseLanguage(L" \t\r\n" + value + L"\r\n\t ", ui) == chosen);
    FUZZ_CHECK(ChooseLanguage(AsciiUpper(value), ui) == chosen);

    // Only the beginning counts, whatever follows.
    FUZZ_CHECK(ChooseLanguage(L"\tJa" + value, kEnglishUi) == Language::kJapanese);
    FUZZ_CHECK(ChooseLanguage(L"eN" + value, kJapaneseUi) == Language::kEnglish);

    // A value that does not decide follows the UI language's primary
    // language, whatever its sublanguage bits.
    const bool decides = ChooseLanguage(value, kJapaneseUi) == ChooseLanguage(value, kEnglishUi);
    if (!decides) {
        const bool japaneseUi = (ui & 0x3FF) == 0x11;
        FUZZ_CHECK(chosen == (japaneseUi ? Language::kJapanese : Language::kEnglish));
    }
    return 0;
}
