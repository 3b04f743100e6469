// What the frame composition hands to the drawers of the home window's
// layers: the face of each kind of button and the instruction pill's place,
// colours and the rule for when it shows.
#pragma once

#include <cstdint>

#include "render/scenery_layout.h"  // Colour, PointF

// A button as DrawButton is given it. symbol and label are null for none.
struct ButtonFace {
    Colour body;
    Colour border;
    const wchar_t* symbol = nullptr;
    const wchar_t* label = nullptr;
    int32_t symbolSize = 0;  // 96-dpi pixels
};

// The face of a button of this kind; the sound button's symbol follows the
// sound switch. False for a kind the program does not know: such a button
// is not drawn.
bool ButtonFaceFor(int32_t kind, bool soundEnabled, ButtonFace& face);

// The instruction pill's text and border.
constexpr uint32_t kInstructionTextColour = 0xFF4678B4;
constexpr uint32_t kInstructionBorderColour = 0xFF8CC8F0;

// Whether the instruction pill is part of the frame: until the score
// reaches 10, when there is an instruction text and a home monitor.
bool InstructionPillShows();

// The pill's top-left corner, 26 design pixels in from the home monitor's
// top-left corner (not rounded).
PointF InstructionPillOrigin();
