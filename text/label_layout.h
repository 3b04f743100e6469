// Where the pieces of each label go and how the praise and the hint balloon
// move: the numbers behind the label drawings (labels.cpp), kept apart
// from the drawing. Every length is a 96-dpi length times g_dpiScale; every
// position is in play-field coordinates. The repaint boxes around the
// labels are the play field's (play/screen_areas.h).
#pragma once

#include <cstdint>
#include <string>

#include "play/geometry.h"
#include "render/scenery_layout.h"  // PointF and BoxF, shared with the scenery
#include "text/text_metrics.h"

// A button: a rounded body over a soft shadow, a symbol at the left (or in
// the middle when there is no label) and the label beside it.
struct ButtonLayout {
    BoxF body;
    BoxF shadow;           // the body, a little lower
    float radius = 0;      // of body, shadow and border
    float borderWidth = 0;
    float symbolEm = 0;    // pixels, not rounded
    BoxF symbolBox;        // the symbol is centred in it
    BoxF labelBox;         // the label is centred in it
};

// Called by DrawButton with the button's rectangle, its symbol size in
// 96-dpi pixels and whether a label goes beside the symbol.
ButtonLayout LayOutButton(const Rect& rect, int32_t symbolSize, bool hasLabel);

// A pill: a rounded white body as high as its text plus padding, with
// round ends, an optional bubble dot before the text.
struct PillLayout {
    BoxF body;
    BoxF shadow;
    float radius = 0;  // half the height: the ends are half circles
    float borderWidth = 0;
    bool hasDot = false;
    BoxF dot;  // the dot's circle
    float dotRimWidth = 0;
    BoxF textBox;  // the text starts at its left edge, centred vertically
};

// Called by DrawPill (and, for the widths, by the score panel) with the
// pill's top-left corner and the measured size of its whole text.
PillLayout LayOutPill(float left, float top, TextSize text, bool bubbleDot);

// A score as the pills show it: the number in decimal ("-" when negative,
// no grouping) and the counter word.
std::wstring ScoreText(int32_t score);

// The top-left corners of the two score pills. Both start at the same x, so
// the wider pill ends 26 pixels (scaled) from the home monitor's right edge;
// the current score's pill sits 10 pixels below the best score's.
struct ScorePanelLayout {
    PointF best;
    PointF current;
};

// Called by DrawScorePanel with the measured sizes of the two whole pill
// texts (prefix and score); reads the play field's homeRect.
ScorePanelLayout LayOutScorePanel(TextSize bestText, TextSize currentText);

// The praise on show: how opaque and how large, where its two texts are
// centred and in which colours.
struct PraiseLook {
    bool visible = false;
    uint32_t alpha = 0;  // 0..255, shared by both texts and their rims
    float scale = 0;     // of the word; the bonus is 5 % larger still
    PointF bonusCentre;
    PointF wordCentre;
    uint32_t bonusColour = 0;  // ARGB
    uint32_t wordColour = 0;   // ARGB
};

// Called by DrawPraise on every paint that reaches the praise: reads the
// play field's praise and homeRect. Invisible when no praise is on show.
PraiseLook CurrentPraise();

// The hint balloon: a rounded white body left of the penguin, kept inside
// the home monitor, with a tail pointing at the penguin.
struct HintBalloonLayout {
    BoxF body;
    BoxF shadow;
    float radius = 0;
    float borderWidth = 0;  // of the body and the tail
    PointF tailTop;  // the tail's base on the balloon's right edge
    PointF tailTip;  // just inside the penguin box
    PointF tailBottom;
    PointF textCentre;
};

// The hint's text: its em in 96-dpi pixels, and in pixels at this scale.
inline constexpr int32_t kHintBaseEm = 28;
float HintEm();

// Called by DrawHintBalloon with the ink size of the hint text at HintEm
// (its path's bounds); reads the play field's penguinBox, homeRect and
// animClock, whose pulse makes the balloon breathe.
HintBalloonLayout LayOutHintBalloon(TextSize textInk);
