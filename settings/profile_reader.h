// config.ini read as the Windows profile functions read it, written out so
// that the Linux edition reads a file exactly as Puffino.exe does and a
// parent can copy the file between the two.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The file's text: UTF-16 LE after its byte-order mark (as Notepad saves
// it), UTF-8 after its mark, and otherwise the bytes as UTF-8 where they
// are, each other byte as the character of that number.
std::wstring DecodeProfileText(std::string_view bytes);

// The value of a key in the first section of that name: names compared
// without regard to ASCII case, blanks trimmed around names and value, one
// pair of matching quotes around the value taken off. Empty for a key
// without '='; nothing when there is no such section or key.
std::optional<std::wstring> ProfileString(std::wstring_view text, std::wstring_view section, std::wstring_view key);

// A number as GetPrivateProfileInt reads it: the fallback for a missing or
// empty value, else its first 29 characters' leading number (blanks and a
// sign allowed before it, then 0x, 0o or 0b for another base than ten,
// anything after it ignored, 0 without digits), wrapping at 32 bits.
int32_t ProfileInt(std::wstring_view text, std::wstring_view section, std::wstring_view key, int32_t fallback);
