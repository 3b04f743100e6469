// The conversion between wide paths and the file system's paths.
#include "assets/file_paths.h"

#if !defined(_WIN32)
namespace {

constexpr char32_t kByteEscape = 0xDC80;  // lone bytes, as U+DC80..U+DCFF

size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if ((lead >> 5) == 6) return 2;
    if ((lead >> 4) == 14) return 3;
    if ((lead >> 3) == 30) return 4;
    return 0;
}

// The character of a valid UTF-8 sequence at i (shortest form, no
// surrogates), and its length; 0 when there is none.
size_t Decode(const std::string& bytes, size_t i, char32_t& out) {
    const auto lead = static_cast<unsigned char>(bytes[i]);
    const size_t length = SequenceLength(lead);
    if (length == 0 || i + length > bytes.size()) return 0;
    char32_t value = length == 1 ? lead : lead & (0x7Fu >> length);
    for (size_t k = 1; k < length; ++k) {
        const auto next = static_cast<unsigned char>(bytes[i + k]);
        if ((next & 0xC0) != 0x80) return 0;
        value = (value << 6) | (next & 0x3Fu);
    }
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    if (value < kLeast[length] || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return 0;
    out = value;
    return length;
}

void Encode(std::string& bytes, char32_t c) {
    if (c >= kByteEscape && c <= kByteEscape + 0x7F) {
        bytes += static_cast<char>(c - kByteEscape + 0x80);
    } else if (c < 0x80) {
        bytes += static_cast<char>(c);
    } else if (c < 0x800) {
        bytes += static_cast<char>(0xC0 | (c >> 6));
        bytes += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        bytes += static_cast<char>(0xE0 | (c >> 12));
        bytes += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        bytes += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        bytes += static_cast<char>(0xF0 | (c >> 18));
        bytes += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        bytes += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        bytes += static_cast<char>(0x80 | (c & 0x3F));
    }
}

}  // namespace
#endif

#if defined(_WIN32)

std::filesystem::path FilePath(std::wstring_view wide) { return std::filesystem::path(wide); }

std::wstring WidePath(const std::filesystem::path& path) { return path.wstring(); }

#else

std::filesystem::path FilePath(std::wstring_view wide) {
    std::string bytes;
    for (wchar_t c : wide) Encode(bytes, static_cast<char32_t>(c));
    return std::filesystem::path(bytes);
}

std::wstring WidePath(const std::filesystem::path& path) {
    const std::string& bytes = path.native();
    std::wstring wide;
    for (size_t i = 0; i < bytes.size();) {
        char32_t c = 0;
        const size_t length = Decode(bytes, i, c);
        wide += static_cast<wchar_t>(length ? c : kByteEscape + static_cast<unsigned char>(bytes[i]) - 0x80);
        i += length ? length : 1;
    }
    return wide;
}

#endif
