// Splitting a label's text at its own line feeds.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// The lines of the text, split at each '\n' (a '\r' before it goes too); a
// text without line feeds is one line, an empty text one empty line.
std::vector<std::wstring> SplitLines(std::wstring_view text);
