// Reading "Xft.dpi" out of the X resource database string.
#include "app/desktop_dpi.h"

#include <charconv>
#include <cmath>

namespace {

constexpr std::string_view kName = "Xft.dpi";

std::string_view Trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

uint32_t ParseDpi(std::string_view value) {
    double dpi = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), dpi);
    // The whole value must be the number; a desktop never writes more.
    if (error != std::errc() || end != value.data() + value.size()) return 0;
    if (!(dpi >= 1.0 && dpi <= 9600.0)) return 0;
    return static_cast<uint32_t>(std::lround(dpi));
}

}  // namespace

uint32_t DpiFromXResources(std::string_view resources) {
    while (!resources.empty()) {
        const size_t end = resources.find('\n');
        const std::string_view line = resources.substr(0, end);
        resources = end == std::string_view::npos ? std::string_view() : resources.substr(end + 1);
        const size_t colon = line.find(':');
        if (colon == std::string_view::npos || Trimmed(line.substr(0, colon)) != kName) continue;
        return ParseDpi(Trimmed(line.substr(colon + 1)));
    }
    return 0;
}
