// The profile functions' reading of an INI file, over its decoded text.
#include "settings/profile_reader.h"

#include <vector>

namespace {

bool IsBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\x1A'; }

std::wstring_view Trimmed(std::wstring_view s) {
    while (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
    while (!s.empty() && IsBlank(s.back())) s.remove_suffix(1);
    return s;
}

wchar_t Lower(wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c; }

bool SameName(std::wstring_view a, std::wstring_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (Lower(a[i]) != Lower(b[i])) return false;
    }
    return true;
}

// The length of the UTF-8 sequence starting at i and its character; 0 when
// the bytes there are no valid sequence.
size_t Utf8Sequence(std::string_view bytes, size_t i, char32_t& out) {
    const auto byte = [&](size_t k) { return static_cast<unsigned char>(bytes[k]); };
    const unsigned char lead = byte(i);
    const size_t length = lead < 0x80 ? 1 : (lead >> 5) == 6 ? 2 : (lead >> 4) == 14 ? 3 : (lead >> 3) == 30 ? 4 : 0;
    if (length == 0 || i + length > bytes.size()) return 0;
    char32_t value = length == 1 ? lead : lead & (0x7F >> length);
    for (size_t k = 1; k < length; ++k) {
        if ((byte(i + k) & 0xC0) != 0x80) return 0;
        value = (value << 6) | (byte(i + k) & 0x3F);
    }
    out = value;
    return length;
}

void Append(std::wstring& text, char32_t c) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (c >= 0x10000) {
            c -= 0x10000;
            text += static_cast<wchar_t>(0xD800 + (c >> 10));
            text += static_cast<wchar_t>(0xDC00 + (c & 0x3FF));
            return;
        }
    }
    text += static_cast<wchar_t>(c);
}

std::vector<std::wstring_view> Lines(std::wstring_view text) {
    std::vector<std::wstring_view> lines;
    while (!text.empty()) {
        const size_t end = text.find(L'\n');
        lines.push_back(text.substr(0, end));
        if (end == std::wstring_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return lines;
}

}  // namespace

std::wstring DecodeProfileText(std::string_view bytes) {
    std::wstring text;
    if (bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE') {
        for (size_t i = 2; i + 1 < bytes.size(); i += 2) {
            text += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) |
                                         static_cast<unsigned char>(bytes[i + 1]) << 8);
        }
        return text;
    }
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
    for (size_t i = 0; i < bytes.size();) {
        char32_t c = 0;
        const size_t length = Utf8Sequence(bytes, i, c);
        Append(text, length ? c : static_cast<unsigned char>(bytes[i]));
        i += length ? length : 1;
    }
    return text;
}

std::optional<std::wstring> ProfileString(std::wstring_view text, std::wstring_view section, std::wstring_view key) {
    bool inSection = false, sectionSeen = false;
    for (std::wstring_view line : Lines(text)) {
        line = Trimmed(line);
        if (!line.empty() && line.front() == L'[') {
            // A second section of the same name is not read again.
            const size_t close = line.find(L']');
            const std::wstring_view name = Trimmed(line.substr(1, close == std::wstring_view::npos ? line.npos : close - 1));
            inSection = !sectionSeen && SameName(name, section);
            sectionSeen = sectionSeen || inSection;
            continue;
        }
        if (!inSection) continue;
        const size_t equals = line.find(L'=');
        if (!SameName(Trimmed(line.substr(0, equals)), key)) continue;
        if (equals == std::wstring_view::npos) return std::wstring();
        std::wstring_view value = Trimmed(line.substr(equals + 1));
        if (value.size() >= 2 && (value.front() == L'"' || value.front() == L'\'') && value.back() == value.front()) {
            value = value.substr(1, value.size() - 2);
        }
        return std::wstring(value);
    }
    return std::nullopt;
}

int32_t ProfileInt(std::wstring_view text, std::wstring_view section, std::wstring_view key, int32_t fallback) {
    const std::optional<std::wstring> value = ProfileString(text, section, key);
    if (!value || value->empty()) return fallback;
    // The profile functions read the number from a 30-character buffer.
    std::wstring_view digits = std::wstring_view(*value).substr(0, 29);
    while (!digits.empty() && (digits.front() == L' ' || digits.front() == L'\t')) digits.remove_prefix(1);
    bool negative = false;
    if (!digits.empty() && (digits.front() == L'-' || digits.front() == L'+')) {
        negative = digits.front() == L'-';
        digits.remove_prefix(1);
    }
    // The system's conversion takes the prefixes 0x, 0o and 0b (lower case
    // only) for another base.
    uint32_t base = 10;
    if (digits.size() >= 2 && digits[0] == L'0') {
        base = digits[1] == L'x' ? 16 : digits[1] == L'o' ? 8 : digits[1] == L'b' ? 2 : 10;
        if (base != 10) digits.remove_prefix(2);
    }
    uint32_t number = 0;  // wraps, as the system's conversion does
    for (wchar_t c : digits) {
        const uint32_t digit = c >= L'0' && c <= L'9'   ? static_cast<uint32_t>(c - L'0')
                               : c >= L'a' && c <= L'f' ? static_cast<uint32_t>(c - L'a' + 10)
                               : c >= L'A' && c <= L'F' ? static_cast<uint32_t>(c - L'A' + 10)
                                                        : 99;
        if (digit >= base) break;
        number = number * base + digit;
    }
    return static_cast<int32_t>(negative ? 0u - number : number);
}
