// Reads config.ini as the Windows profile functions (GetPrivateProfileIntW,
// GetPrivateProfileStringW) read it, so that a file edited on one edition
// reads the same on the other. The Linux edition's LoadSettings uses it; the
// Windows program keeps the real functions.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// A profile file's text: after a UTF-16 LE or BE byte-order mark as UTF-16,
// after a UTF-8 one as UTF-8; without a mark Windows takes its ANSI code
// page, here UTF-8 (the two agree on every ASCII byte, and nothing the
// program reads depends on any other). Invalid UTF-8 bytes become U+FFFD.
std::u16string DecodeProfileText(std::string_view bytes);

// The key's value in the first section of that name, as
// GetPrivateProfileStringW gives it into a buffer of `capacity` characters
// (the null included): names match without regard to ASCII case and to
// white space around them, the first key of a name counts, a value loses
// the white space around it and one pair of matching quotes, and a key that
// is missing or has no '=' gives the fallback.
std::u16string ReadProfileString(std::u16string_view text, std::u16string_view section, std::u16string_view key,
                                 std::u16string_view fallback, size_t capacity);

// GetPrivateProfileIntW: the fallback when the key is missing or empty;
// else the value's first 29 characters as the system reads a number: white
// space, one sign, "0x", "0o" or "0b" for hexadecimal, octal or binary, the
// digits up to the first other character (none: 0), wrapping at 32 bits.
int32_t ReadProfileInt(std::u16string_view text, std::u16string_view section, std::u16string_view key,
                       int32_t fallback);
