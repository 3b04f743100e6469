// The one record of everything that moves or changes while a child plays,
// the frame tick that advances it and the layout of the home monitor.
// Owned and written by the play field only; the scene and the labels read it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "play/geometry.h"
#include "play/bubbles.h"

enum ButtonKind : int32_t {
    kSoundButton = 2,
    kFinishButton = 3,
};

struct UiButton {
    Rect rect;  // play-field coordinates; every edge counts as inside
    int32_t kind = 0;  // a ButtonKind
};

struct PlayField {
    std::vector<Bubble> bubbles;          // at most 160
    std::vector<PopRing> rings;           // at most 32
    std::vector<PopParticle> particles;   // at most 180
    std::vector<UiButton> buttons;        // hit-test order: finish, then sound
    Rect homeRect;     // the home monitor's playRect
    Rect penguinBox;   // where the penguin stands
    float mouthX = 0;  // x from which the penguin blows, pixels
    int32_t score = 0;             // points in this run
    std::wstring praiseText;       // the praise word on show
    float praiseDuration = 1.0f;   // ticks; the whole praise
    float praiseTimeLeft = 0;      // ticks; shown while above 0
    bool praiseBig = false;        // the big, warm style
    int32_t praiseBonus = 0;       // "+N" above the praise; 0 shows none
    bool recordAnnounced = false;  // no record praise may come any more this run
    float celebrateTimeLeft = 0;   // ticks of the penguin's hops
    float celebratePhase = 0;      // +0.13 per tick while celebrating
    float blowPhase = 0;           // +0.14 per tick while blowing
    float animClock = 0;           // +0.05 every tick
    uint32_t pressStartTick = 0;   // tick counter at the penguin press; 0: none
    bool pressIsTouch = false;
    bool touchHeld = false;        // the pressing finger is still down
    bool blowing = false;          // the long press has been recognised
    float blowAccumulator = 0;     // ticks of credit towards the next blown bubble
    int32_t blowCount = 0;         // bubbles blown during this hold
    bool blownOnce = false;        // a blowing hold has ended: no more hint
    float ambientAccumulator = 0;  // credit towards the next ambient bubble
    int32_t ambientCount = 0;      // ambient bubbles requested this run
    bool nextBubbleGold = false;   // a lost gold bubble is owed
    uint32_t lastPopSoundTick = 0; // tick counter at the last pop sound
    uint32_t softPopCount = 0;     // soft pops that passed the 100 ms gate
};

extern PlayField g_playField;

// Places the buttons and the penguin on the home monitor. Called by every
// display rebuild after the DPI scale is set, and when the home window's
// DPI changes.
void LayoutPlayField();

// One tick of the play field (every 33 ms on the home window's frame timer):
// the long press, the clocks, the bubbles, and the repaint of what moved.
void AdvanceFrame();
