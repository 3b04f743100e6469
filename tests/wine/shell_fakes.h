// What the shell asked of the play field, the scene and the volume clamp:
// the shell's tests link these recording stand-ins instead of the real
// subsystems.
#pragma once

#include <ostream>
#include <vector>

#include "play/geometry.h"
#include "tests/printers.h"

struct Press {
    Point point;
    bool isTouch = false;
    friend bool operator==(const Press&, const Press&) = default;
};

inline void PrintTo(const Press& press, std::ostream* os) {
    PrintTo(press.point, os);
    *os << (press.isTouch ? " touch" : " mouse");
}

struct ShellCalls {
    std::vector<Press> presses;   // PointerDown
    int releases = 0;             // PointerUp
    int cancels = 0;              // CancelPress
    int frames = 0;               // AdvanceFrame
    int layouts = 0;              // LayoutPlayField
    int clamps = 0;               // ClampMasterVolume
    int sceneries = 0;            // RenderScenery
    std::vector<Rect> composed;   // ComposeFrame dirty rectangles
};

extern ShellCalls g_calls;
