// The Windows profile functions' reading of an INI file, measured against
// the real functions: the file is a list of lines; "[name]" opens a section
// (up to the last ']' of the line, white space inside the brackets
// trimmed), "name=value" is a key, a line without '=' a key without a value,
// and comment lines are just keys nobody asks for.
#include "settings/profile_reader.h"

#include <optional>

namespace {

// The white space trimmed around lines, names and values, with the DOS
// end-of-file mark ^Z.
bool IsProfileSpace(char16_t c) { return (c >= 0x09 && c <= 0x0D) || c == 0x20 || c == 0x1A; }

std::u16string_view Trimmed(std::u16string_view s) {
    while (!s.empty() && IsProfileSpace(s.front())) s.remove_prefix(1);
    while (!s.empty() && IsProfileSpace(s.back())) s.remove_suffix(1);
    return s;
}

char16_t FoldAscii(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c; }

bool SameName(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (FoldAscii(a[i]) != FoldAscii(b[i])) return false;
    }
    return true;
}

void AppendUtf16(std::u16string& text, char32_t c) {
    if (c < 0x10000) {
        text += static_cast<char16_t>(c);
    } else {
        c -= 0x10000;
        text += static_cast<char16_t>(0xD800 + (c >> 10));
        text += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
}

// UTF-8 as the system decodes it: a byte that does not start a complete,
// shortest, valid sequence becomes U+FFFD and decoding goes on after it.
std::u16string DecodeUtf8(std::string_view bytes) {
    std::u16string text;
    size_t i = 0;
    while (i < bytes.size()) {
        const auto lead = static_cast<unsigned char>(bytes[i]);
        const int length = lead < 0x80 ? 1 : lead >= 0xC2 && lead <= 0xDF ? 2 : (lead & 0xF0) == 0xE0 ? 3
                                         : lead >= 0xF0 && lead <= 0xF4    ? 4
                                                                           : 0;
        char32_t c = length == 1 ? lead : length == 2 ? lead & 0x1F : length == 3 ? lead & 0x0F : lead & 0x07;
        bool valid = length > 0 && i + length <= bytes.size();
        for (int k = 1; valid && k < length; ++k) {
            const auto next = static_cast<unsigned char>(bytes[i + k]);
            valid = (next & 0xC0) == 0x80;
            c = (c << 6) | (next & 0x3F);
        }
        // Overlong forms, surrogates and values beyond U+10FFFF are invalid.
        if (valid && ((length == 3 && (c < 0x800 || (c >= 0xD800 && c <= 0xDFFF))) ||
                      (length == 4 && (c < 0x10000 || c > 0x10FFFF)))) {
            valid = false;
        }
        if (!valid) {
            text += u'\uFFFD';
            ++i;
            continue;
        }
        AppendUtf16(text, c);
        i += length;
    }
    return text;
}

// The value of the key, if the first section of that name holds it with an
// '='; a later section of the same name is never read, nor a later key.
std::optional<std::u16string_view> FindValue(std::u16string_view text, std::u16string_view section,
                                             std::u16string_view key) {
    section = Trimmed(section);
    key = Trimmed(key);
    // Lines before the first section header belong to a section without a
    // name.
    bool inSection = section.empty();
    size_t next = 0;
    while (next < text.size()) {
        const size_t end = text.find_first_of(u"\r\n", next);
        std::u16string_view line = Trimmed(text.substr(next, end == std::u16string_view::npos ? end : end - next));
        next = end == std::u16string_view::npos ? text.size() : end + 1;
        if (line.empty()) continue;
        const size_t close = line.rfind(u']');
        if (line.front() == u'[' && close != std::u16string_view::npos && close > 0) {
            if (inSection) return std::nullopt;
            inSection = SameName(Trimmed(line.substr(1, close - 1)), section);
            continue;
        }
        if (!inSection) continue;
        const size_t equals = line.find(u'=');
        if (!SameName(Trimmed(line.substr(0, equals)), key)) continue;
        if (equals == std::u16string_view::npos) return std::nullopt;
        return Trimmed(line.substr(equals + 1));
    }
    return std::nullopt;
}

// Copies into a buffer of `capacity` characters, the null included, taking
// off a pair of matching quotes around the value. The closing quote goes
// only when the value, opening quote removed, fits the capacity with room
// to spare or exactly: a value cut short keeps its last character instead.
std::u16string CopyEntry(std::u16string_view value, size_t capacity) {
    if (capacity == 0) return {};
    bool quoted = false;
    if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') && value.back() == value.front()) {
        value.remove_prefix(1);
        quoted = true;
    }
    std::u16string copy(value.substr(0, capacity - 1));
    if (quoted && capacity >= value.size() && !copy.empty()) copy.pop_back();
    return copy;
}

}  // namespace

std::u16string DecodeProfileText(std::string_view bytes) {
    const auto byteAt = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    if (bytes.starts_with("\xEF\xBB\xBF")) return DecodeUtf8(bytes.substr(3));
    const bool littleEndian = bytes.starts_with("\xFF\xFE");
    if (littleEndian || bytes.starts_with("\xFE\xFF")) {
        std::u16string text;
        // An odd last byte is no character.
        for (size_t i = 2; i + 1 < bytes.size(); i += 2) {
            const unsigned first = byteAt(i), second = byteAt(i + 1);
            text += static_cast<char16_t>(littleEndian ? first | second << 8 : first << 8 | second);
        }
        return text;
    }
    return DecodeUtf8(bytes);
}

std::u16string ReadProfileString(std::u16string_view text, std::u16string_view section, std::u16string_view key,
                                 std::u16string_view fallback, size_t capacity) {
    const std::optional<std::u16string_view> value = FindValue(text, section, key);
    return CopyEntry(value ? *value : fallback, capacity);
}

int32_t ReadProfileInt(std::u16string_view text, std::u16string_view section, std::u16string_view key,
                       int32_t fallback) {
    // The number is read from a 30-character buffer.
    const std::u16string value = ReadProfileString(text, section, key, u"", 30);
    if (value.empty()) return fallback;
    std::u16string_view digits = value;
    while (!digits.empty() && digits.front() <= u' ') digits.remove_prefix(1);
    bool negative = false;
    if (!digits.empty() && (digits.front() == u'+' || digits.front() == u'-')) {
        negative = digits.front() == u'-';
        digits.remove_prefix(1);
    }
    uint32_t base = 10;
    if (digits.size() >= 2 && digits[0] == u'0') {
        const char16_t mark = digits[1];
        base = mark == u'x' ? 16 : mark == u'o' ? 8 : mark == u'b' ? 2 : 10;
        if (base != 10) digits.remove_prefix(2);
    }
    uint32_t total = 0;  // wraps, as the system's does
    for (char16_t c : digits) {
        const uint32_t digit = c >= u'0' && c <= u'9'   ? c - u'0'
                               : c >= u'a' && c <= u'z' ? c - u'a' + 10
                               : c >= u'A' && c <= u'Z' ? c - u'A' + 10
                                                        : 99;
        if (digit >= base) break;
        total = total * base + digit;
    }
    return static_cast<int32_t>(negative ? 0u - total : total);
}
