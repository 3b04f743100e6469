// Line splitting for multi-line labels.
#include "text/text_lines.h"

std::vector<std::wstring> SplitLines(std::wstring_view text) {
    std::vector<std::wstring> lines;
    for (;;) {
        const size_t end = text.find(L'\n');
        std::wstring_view line = text.substr(0, end);
        if (end != std::wstring_view::npos && !line.empty() && line.back() == L'\r') {
            line.remove_suffix(1);
        }
        lines.emplace_back(line);
        if (end == std::wstring_view::npos) return lines;
        text.remove_prefix(end + 1);
    }
}
