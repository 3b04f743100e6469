// The launch monitor: the home window goes on the monitor whose top-left
// corner the TONKARI_LAUNCH_MONITOR value names, else on the primary one.
#pragma once

#include <string_view>

#include "play/geometry.h"

// Parses a "TONKARI_LAUNCH_MONITOR" value: four comma-separated integers
// left,top,right,bottom in screen coordinates, optionally followed by a
// space and anything. Values of no or more than 63 characters, malformed
// values and empty rectangles are refused (false).
bool ParseLaunchMonitorValue(std::wstring_view value, Rect& out);
