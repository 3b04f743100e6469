// The layers of a frame over the canvas.
#include "render/frame_composition.h"

#include "play/sound_bank.h"
#include "play/play_field.h"
#include "play/screen_areas.h"
#include "render/bubble_drawing.h"
#include "render/frame_layers.h"
#include "render/penguin_drawing.h"
#include "settings/language.h"
#include "text/labels.h"

namespace {

// Floating bubbles pass behind the penguin and the labels; the ones the
// penguin blew pass in front of them.
void DrawBubbles(Canvas& canvas, const Rect& clip, bool fromPenguin) {
    for (const Bubble& bubble : g_playField.bubbles) {
        if (bubble.fromPenguin == fromPenguin && Meets(BubbleBounds(bubble), clip)) DrawBubble(canvas, bubble);
    }
}

void DrawButtons(Canvas& canvas, const Rect& clip) {
    for (const UiButton& button : g_playField.buttons) {
        ButtonFace face;
        if (!ButtonFaceFor(button.kind, g_soundEnabled, face)) continue;
        if (!Meets(ButtonPaintArea(button.rect), clip)) continue;
        DrawButton(canvas, button.rect, face.body, face.border, face.symbol, face.label, face.symbolSize);
    }
}

// The penguin, the buttons and the labels: the home window's alone.
void DrawHomeLayers(Canvas& canvas, const Rect& clip) {
    if (Meets(PenguinPaintArea(), clip)) DrawPenguin(canvas);
    DrawButtons(canvas, clip);
    if (Meets(ScorePanelArea(), clip)) DrawScorePanel(canvas);
    if (InstructionPillShows() && Meets(InstructionPillArea(), clip)) {
        const PointF origin = InstructionPillOrigin();
        DrawPill(canvas, origin.x, origin.y, L"", InstructionText.c_str(), kInstructionTextColour,
                 kInstructionBorderColour, true);
    }
    if (Meets(PraiseArea(), clip)) DrawPraise(canvas);
    if (Meets(HintBalloonArea(), clip)) DrawHintBalloon(canvas);
}

}  // namespace

void DrawFrameLayers(Canvas& canvas, const DisplayWindow& window, const Rect& dirty) {
    // From here on every drawer works in play-field coordinates; the clip
    // keeps it to the dirty rectangle.
    const Rect& origin = window.playRect;
    const Rect clip = Offset(dirty, origin.left, origin.top);
    Translate(canvas, static_cast<float>(-origin.left), static_cast<float>(-origin.top));
    ClipTo(canvas, clip);

    DrawBubbles(canvas, clip, false);
    DrawPopEffects(canvas, clip);  // each ring and droplet is tested on its own
    if (window.home) DrawHomeLayers(canvas, clip);
    DrawBubbles(canvas, clip, true);
}
