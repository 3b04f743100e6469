// The scenery buffer and the composition of a frame over it.
#include "app/shell.h"
#include "play/play_field.h"
#include "play/screen_areas.h"
#include "render/bubble_drawing_win.h"
#include "render/frame_buffers.h"
#include "render/frame_layers.h"
#include "render/penguin_sprite_win.h"
#include "render/scenery_win.h"
#include "settings/language.h"
#include "text/labels_win.h"

namespace {

// Floating bubbles pass behind the penguin and the labels; the ones the
// penguin blew pass in front of them.
void DrawBubbles(Gdiplus::Graphics& graphics, const Rect& clip, bool fromPenguin) {
    for (const Bubble& bubble : g_playField.bubbles) {
        if (bubble.fromPenguin == fromPenguin && Meets(BubbleBounds(bubble), clip)) {
            DrawBubble(graphics, bubble);
        }
    }
}

void DrawButtons(Gdiplus::Graphics& graphics, const Rect& clip) {
    for (const UiButton& button : g_playField.buttons) {
        ButtonFace face;
        if (!ButtonFaceFor(button.kind, g_soundEnabled, face)) continue;
        if (!Meets(ButtonPaintArea(button.rect), clip)) continue;
        DrawButton(graphics, button.rect, face.body, face.border, face.symbol, face.label, face.symbolSize);
    }
}

// The penguin, the buttons and the labels: the home window's alone.
void DrawHomeLayers(Gdiplus::Graphics& graphics, const Rect& clip) {
    if (Meets(PenguinPaintArea(), clip)) DrawPenguin(graphics);
    DrawButtons(graphics, clip);
    if (Meets(ScorePanelArea(), clip)) DrawScorePanel(graphics);
    if (InstructionPillShows() && Meets(InstructionPillArea(), clip)) {
        const PointF origin = InstructionPillOrigin();
        DrawPill(graphics, origin.x, origin.y, L"", InstructionText.c_str(), kInstructionTextColour,
                 kInstructionBorderColour, true);
    }
    if (Meets(PraiseArea(), clip)) DrawPraise(graphics);
    if (Meets(HintBalloonArea(), clip)) DrawHintBalloon(graphics);
}

}  // namespace

void RenderScenery(DisplayWindow& window) {
    if (!window.sceneryDC) return;
    Gdiplus::Graphics graphics(window.sceneryDC);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.Clear(Gdiplus::Color(kSceneryClearColour));
    DrawScenery(graphics, {0, 0, window.width, window.height}, window.sceneryTheme);
}

void ComposeFrame(DisplayWindow& window, const Rect& dirty) {
    if (!window.frameDC || !window.sceneryDC) return;
    if (Width(dirty) < 1 || Height(dirty) < 1) return;

    // The landscape comes back under the dirty rectangle first, so nothing
    // of an earlier frame survives where things have moved on.
    BitBlt(window.frameDC, dirty.left, dirty.top, Width(dirty), Height(dirty), window.sceneryDC,
           dirty.left, dirty.top, SRCCOPY);

    // From here on every drawer works in play-field coordinates; the clip
    // keeps it to the dirty rectangle.
    const Rect& origin = window.playRect;
    const Rect clip = Offset(dirty, origin.left, origin.top);
    Gdiplus::Graphics graphics(window.frameDC);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAliasGridFit);
    graphics.TranslateTransform(static_cast<Gdiplus::REAL>(-origin.left),
                                static_cast<Gdiplus::REAL>(-origin.top), Gdiplus::MatrixOrderPrepend);
    graphics.SetClip(Gdiplus::Rect(clip.left, clip.top, Width(clip), Height(clip)),
                     Gdiplus::CombineModeReplace);

    DrawBubbles(graphics, clip, false);
    DrawPopEffects(graphics, clip);  // each ring and droplet is tested on its own
    if (window.isMain) DrawHomeLayers(graphics, clip);
    DrawBubbles(graphics, clip, true);
}
