// The desktop's DPI setting on Linux: desktops publish their scale as the X
// resource "Xft.dpi" (GNOME, KDE and Xfce all do), which the Linux edition
// reads in place of a window's DPI.
#pragma once

#include <cstdint>
#include <string_view>

// The DPI in an X resource database string ("Xft.dpi:\t144\n" among other
// lines), rounded to a whole number; 0 when the resource is missing or not a
// positive number (the scale rules then count 96).
uint32_t DpiFromXResources(std::string_view resources);
