// The colours the painters take: plain red, green and blue, whatever order
// a drawing library keeps them in.
#pragma once

#include <cstdint>

// An opaque colour as the painters take it; it becomes ARGB with the alpha
// of its brush or pen when that is made.
struct Colour {
    uint8_t red = 0;
    uint8_t green = 0;
    uint8_t blue = 0;
    friend bool operator==(const Colour&, const Colour&) = default;
};

constexpr Colour ColourFromRgb(uint32_t red, uint32_t green, uint32_t blue) {
    return {static_cast<uint8_t>(red & 0xFF), static_cast<uint8_t>(green & 0xFF), static_cast<uint8_t>(blue & 0xFF)};
}
// The colour of an ARGB value; its alpha is dropped.
constexpr Colour ColourFromArgb(uint32_t argb) { return ColourFromRgb(argb >> 16, argb >> 8, argb); }
// ARGB with the given alpha for a colour.
constexpr uint32_t ArgbOf(Colour colour, uint32_t alpha = 0xFF) {
    return (alpha & 0xFF) << 24 | static_cast<uint32_t>(colour.red) << 16 | static_cast<uint32_t>(colour.green) << 8 |
           colour.blue;
}
