// Splitting label texts at their line feeds.
#include <gtest/gtest.h>

#include "text/text_lines.h"

TEST(TextLines, SplitAtEachLineFeed) {
    using Lines = std::vector<std::wstring>;
    const struct { const wchar_t* text; Lines lines; } cases[] = {
        {L"Pop the bubbles!", {L"Pop the bubbles!"}},
        {L"ぼくを ながく おすと\nしゃぼんだまが", {L"ぼくを ながく おすと", L"しゃぼんだまが"}},
        {L"Hold me down\r\nto blow", {L"Hold me down", L"to blow"}},
        {L"a\n\nb\n", {L"a", L"", L"b", L""}},
        {L"\r", {L"\r"}},  // a lone carriage return breaks nothing
        {L"", {L""}},
    };
    for (const auto& c : cases) EXPECT_EQ(SplitLines(c.text), c.lines) << c.text;
}
