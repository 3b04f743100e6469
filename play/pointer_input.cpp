// Presses on buttons, bubbles and the penguin; the long press.
#include "play/pointer_input.h"

#include <algorithm>

#include "play/display_records.h"
#include "play/sound_bank.h"
#include "play/dirty_region.h"
#include "play/platform.h"
#include "play/play_field.h"
#include "play/random.h"
#include "play/scoring.h"
#include "play/screen_areas.h"
#include "play/sound_bank.h"
#include "play/pose_placement.h"

namespace {

constexpr uint32_t kLongPressMs = 300;
constexpr float kTicksPerBlownBubble = 3.5f;
constexpr int32_t kGoldEveryBlown = 12;

bool Contains(const Rect& r, Point p) {
    return r.left <= p.x && p.x <= r.right && r.top <= p.y && p.y <= r.bottom;  // every edge counts
}

// A press on the first button under the point; false when it is on none
// (or on a button of no known kind).
bool PressButton(Point point) {
    const auto button = std::find_if(g_playField.buttons.begin(), g_playField.buttons.end(),
                                     [&](const UiButton& b) { return Contains(b.rect, point); });
    if (button == g_playField.buttons.end()) return false;
    if (button->kind == kFinishButton) {
        EndPlay();  // takes the windows away: touch nothing afterwards
        return true;
    }
    if (button->kind == kSoundButton) {
        g_soundEnabled = !g_soundEnabled;  // this run only; the settings stay
        DirtyRegion region;
        AddDirtyRect(region, ButtonPaintArea(button->rect));
        InvalidateDirty(region);
        return true;
    }
    return false;
}

void AddLabelAreas(DirtyRegion& region) {
    AddDirtyRect(region, ScorePanelArea());
    AddDirtyRect(region, InstructionPillArea());
}

bool StillDown() {
    const PlayField& field = g_playField;
    return field.pressIsTouch ? field.touchHeld : LeftButtonDown();
}

// One blown bubble around the mouth: draws speed, height and spread in this
// order.
bool BlowBubble(float speedHigh, float spread, bool gold) {
    const PlayField& field = g_playField;
    const float s = g_dpiScale;
    const float baseY = static_cast<float>(field.penguinBox.top) - 24 * s;
    const float speed = RandomRange(0.85f, speedHigh);
    const float y = baseY + RandomRange(-8 * s, 8 * s);
    const float x = field.mouthX + RandomRange(-spread * s, spread * s);
    return SpawnBubble(x, y, speed, gold, true);
}

void StartBlowing() {
    PlayField& field = g_playField;
    field.blowing = true;
    field.blowPhase = 0;
    field.blowAccumulator = 0;
    field.blowCount = 0;
    // The first puff: two bubbles at once.
    BlowBubble(1.4f, 70, false);
    BlowBubble(1.4f, 70, false);
    if (g_soundEnabled) PlayMemorySound(g_soundBank.blowSound);
}

}  // namespace

bool PenguinHit(Point point) {
    const PlayField& field = g_playField;
    const Rect& box = field.penguinBox;
    const float boxHeight = static_cast<float>(box.bottom - box.top);
    if (box.right <= box.left || box.bottom <= box.top || boxHeight <= 1.0f) return false;
    const float centreX = static_cast<float>(box.left + box.right) * 0.5f;
    const PoseRect drawn = PlacePosePicture(SelectPosePicture(field.blowing ? kPoseBlowing : kPoseStanding),
                                          centreX, static_cast<float>(box.bottom), boxHeight, 0);
    // The transparent side margins of the picture do not count.
    const float margin = 0.06f * drawn.width;
    const auto x = static_cast<float>(point.x);
    const auto y = static_cast<float>(point.y);
    return drawn.x + margin <= x && x <= drawn.x + drawn.width - margin && drawn.y <= y &&
           y <= drawn.y + drawn.height;
}

void PointerDown(Point point, bool isTouch) {
    PlayField& field = g_playField;
    if (PressButton(point)) return;

    DirtyRegion region;
    CollectDynamicDirty(region);  // where things were
    AddLabelAreas(region);

    // Only the newest bubble under the finger pops.
    for (size_t i = field.bubbles.size(); i-- > 0;) {
        if (!BubbleHit(field.bubbles[i], static_cast<float>(point.x), static_cast<float>(point.y))) continue;
        PopBubble(i);
        CollectDynamicDirty(region);
        AddLabelAreas(region);
        InvalidateDirty(region);
        return;
    }

    if (!PenguinHit(point)) return;
    CancelPress();  // a new press on the penguin starts afresh
    field.pressStartTick = TickCount();
    field.pressIsTouch = isTouch;
    field.touchHeld = isTouch;
    // The release is then seen wherever the mouse goes.
    if (!isTouch && g_homeWindow) CaptureMouse(g_homeWindow);
    CollectDynamicDirty(region);  // the hint balloon hides while pressed
    InvalidateDirty(region);
}

void PointerUp() {
    PlayField& field = g_playField;
    field.touchHeld = false;
    if (field.pressStartTick == 0) return;
    DirtyRegion region;
    CollectDynamicDirty(region);
    CancelPress();
    CollectDynamicDirty(region);  // the hint balloon may show again
    InvalidateDirty(region);
}

void CancelPress() {
    PlayField& field = g_playField;
    const bool wasBlowing = field.blowing;
    field.blowing = false;
    field.pressIsTouch = false;
    field.touchHeld = false;
    field.pressStartTick = 0;
    field.blowAccumulator = 0;
    field.blowCount = 0;
    field.nextBubbleGold = false;
    if (g_homeWindow && MouseCaptureWindow() == g_homeWindow) ReleaseMouseCapture();
    // Once the penguin has blown, the child knows: no more hint.
    if (wasBlowing) field.blownOnce = true;
}

void HoldTick() {
    PlayField& field = g_playField;
    if (field.pressStartTick == 0) return;
    if (!StillDown()) {
        // A release that no window saw (outside every window, capture lost
        // without notice) ends the press here.
        CancelPress();
        return;
    }
    if (!field.blowing) {
        if (TickCount() - field.pressStartTick >= kLongPressMs) StartBlowing();
        return;
    }
    field.blowAccumulator += 1.0f;
    while (field.blowAccumulator >= kTicksPerBlownBubble) {
        field.blowCount += 1;
        const bool gold = field.blowCount % kGoldEveryBlown == 0;
        if (!BlowBubble(1.5f, 90, gold) && gold) field.nextBubbleGold = true;  // owed to the next bubble
        field.blowAccumulator -= kTicksPerBlownBubble;
    }
}
