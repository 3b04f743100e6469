// The play-field record, the layout of the home monitor and the frame tick.
#include "play/play_field.h"

#include "play/display_records.h"
#include "play/dirty_region.h"
#include "play/pointer_input.h"
#include "play/screen_areas.h"
#include "play/pose_placement.h"

PlayField g_playField;

namespace {

// The home monitor's area: the home window's, else the first window's, else
// the whole virtual screen.
Rect HomeArea() {
    for (const DisplayWindow& window : g_displayWindows) {
        if (window.home) return window.playRect;
    }
    if (!g_displayWindows.empty()) return g_displayWindows.front().playRect;
    return {0, 0, g_virtualWidth, g_virtualHeight};
}

}  // namespace

void LayoutPlayField() {
    PlayField& field = g_playField;
    field.homeRect = HomeArea();
    const Rect& home = field.homeRect;

    const int32_t margin = ScaledRound(28);
    const int32_t finishWidth = ScaledRound(300);
    const int32_t finishHeight = ScaledRound(84);
    const int32_t soundSize = ScaledRound(84);
    field.buttons.clear();
    field.buttons.push_back({{home.right - finishWidth - margin, home.bottom - finishHeight - margin,
                              home.right - margin, home.bottom - margin},
                             kFinishButton});
    field.buttons.push_back({{home.left + margin, home.bottom - soundSize - margin,
                              home.left + soundSize + margin, home.bottom - margin},
                             kSoundButton});

    // The penguin stands centred above the finish button. Both halves of its
    // width are truncated, so an odd width loses a pixel.
    const int32_t penguinWidth = ScaledRound(210);
    const int32_t penguinHeight = ScaledRound(240);
    const int32_t gap = ScaledRound(14);
    const int32_t centreX = (home.right - margin) - finishWidth / 2;
    Rect& box = field.penguinBox;
    box.bottom = (home.bottom - finishHeight - margin) - gap;
    box.left = centreX - penguinWidth / 2;
    box.right = centreX + penguinWidth / 2;
    box.top = box.bottom - penguinHeight;

    field.mouthX = MouthX(static_cast<float>(centreX), static_cast<float>(penguinHeight));
}

void AdvanceFrame() {
    PlayField& field = g_playField;
    DirtyRegion region;
    CollectDynamicDirty(region);  // where things were
    HoldTick();
    field.animClock += 0.05f;
    if (field.blowing) field.blowPhase += 0.14f;
    if (field.praiseTimeLeft > 0) field.praiseTimeLeft -= 1;
    if (field.celebrateTimeLeft > 0) {
        field.celebrateTimeLeft -= 1;
        field.celebratePhase += 0.13f;
    }
    EmitAmbientBubbles();
    StepMotion();
    CollectDynamicDirty(region);  // where they are now
    InvalidateDirty(region);
}
