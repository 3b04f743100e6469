// The shared boxes of the home monitor and of the moving things.
#include "play/screen_areas.h"

#include <algorithm>
#include <cmath>

#include "play/display_records.h"
#include "play/play_field.h"
#include "settings/language.h"

namespace {

Rect Grown(const Rect& r, int32_t by) {
    return {r.left - by, r.top - by, r.right + by, r.bottom + by};
}

}  // namespace

int32_t ScaledRound(float designPixels) {
    return static_cast<int32_t>(std::lround(designPixels * g_dpiScale));
}

Rect ScorePanelArea() {
    const Rect& home = g_playField.homeRect;
    return {std::max(home.left, home.right - ScaledRound(520)), home.top, home.right,
            std::min(home.top + ScaledRound(190), home.bottom)};
}

Rect InstructionPillArea() {
    const Rect& home = g_playField.homeRect;
    return {home.left, home.top, std::min(home.left + ScaledRound(760), home.right),
            std::min(home.top + ScaledRound(120), home.bottom)};
}

Point PraiseAnchor() {
    const Rect& home = g_playField.homeRect;
    // The integer part of 0.42 x the height, exactly: in floats 0.42 x 1200
    // comes out as 503.99997 and the anchor would sit a pixel high.
    return {(home.left + home.right) / 2, home.top + (home.bottom - home.top) * 42 / 100};
}

Rect PraiseArea() {
    const Point anchor = PraiseAnchor();
    const int32_t halfWidth = ScaledRound(520);
    const int32_t halfHeight = ScaledRound(150);
    return {anchor.x - halfWidth, anchor.y - halfHeight, anchor.x + halfWidth, anchor.y + halfHeight};
}

Rect HintBalloonArea() {
    const Rect& home = g_playField.homeRect;
    const Rect& penguin = g_playField.penguinBox;
    return {std::max(home.left, penguin.left - ScaledRound(620)),
            std::max(home.top, penguin.top - ScaledRound(30)),
            std::min(penguin.left + ScaledRound(40), home.right),
            std::min(penguin.bottom + ScaledRound(30), home.bottom)};
}

Rect PenguinPaintArea() {
    const Rect& penguin = g_playField.penguinBox;
    Rect area = Grown(penguin, ScaledRound(24));
    area.top -= (penguin.bottom - penguin.top) / 2;  // the celebration hops rise this far
    return area;
}

Rect ButtonPaintArea(const Rect& button) {
    return Grown(button, ScaledRound(6));
}

Rect RingBounds(const PopRing& ring) {
    const float pad = std::max(3 * g_dpiScale, 2.0f);
    return BoxAround(ring.x, ring.y, ring.radius, pad);
}

bool HintBalloonShows() {
    const PlayField& field = g_playField;
    return !field.blownOnce && !field.blowing && field.pressStartTick == 0 && !IsEmpty(field.penguinBox) &&
           !HintText.empty();
}
