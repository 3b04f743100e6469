// The labels' geometry, the praise's fade and pop-in and the balloon's pulse.
#include "text/label_layout.h"

#include <algorithm>
#include <cmath>

#include "play/display_records.h"
#include "play/play_field.h"
#include "play/screen_areas.h"
#include "settings/language.h"
#include "settings/texts.h"

namespace {

BoxF Lowered(const BoxF& r, float by) { return {r.x, r.y + by, r.width, r.height}; }

// The praise fades in over the first 15 % of its time and out over the
// last 30 %; t runs from 1 at its start down to 0.
uint32_t PraiseAlpha(float t) {
    float a = 1.0f;
    if (t > 0.85f) {
        a = (1.0f - t) / 0.15f;
    } else if (t < 0.3f) {
        a = t / 0.3f;
    }
    a = std::clamp(a, 0.0f, 1.0f);
    return static_cast<uint32_t>(static_cast<int32_t>(a * 255.0f)) & 0xFFu;
}

// It pops in over the first 20 %: from its base size up to full size.
float PraiseScale(float t, bool big) {
    const float k = std::clamp(t > 0.8f ? 1.0f - (t - 0.8f) / 0.2f : 1.0f, 0.0f, 1.0f);
    return big ? 0.85f + 0.35f * k : 0.7f + 0.3f * k;
}

}  // namespace

ButtonLayout LayOutButton(const Rect& rect, int32_t symbolSize, bool hasLabel) {
    const float s = g_dpiScale;
    ButtonLayout layout;
    layout.body = {static_cast<float>(rect.left), static_cast<float>(rect.top),
                   static_cast<float>(Width(rect)), static_cast<float>(Height(rect))};
    const BoxF& b = layout.body;
    layout.shadow = Lowered(b, 3 * s);
    layout.radius = 16 * s;
    layout.borderWidth = 2.5f * s;
    layout.symbolEm = static_cast<float>(symbolSize) * s;
    // The symbol keeps a column of its own at the left; the label takes the
    // rest, less a margin at the right.
    const float inset = 16 * s;
    const float column = static_cast<float>(symbolSize + 14) * s;
    layout.symbolBox = hasLabel ? BoxF{b.x + inset, b.y, column, b.height} : b;
    layout.labelBox = {b.x + inset + column, b.y, b.width - inset - column - 12 * s, b.height};
    return layout;
}

PillLayout LayOutPill(float left, float top, TextSize text, bool bubbleDot) {
    const float s = g_dpiScale;
    const float pad = 14 * s;
    const float dotRadius = bubbleDot ? 16 * s : 0.0f;
    const float gap = bubbleDot ? 8 * s : 0.0f;
    const float height = std::max(2 * dotRadius, text.height) + pad;
    const float width = 2 * pad + text.width + 2 * dotRadius + gap;

    PillLayout layout;
    layout.body = {left, top, width, height};
    layout.shadow = Lowered(layout.body, 3 * s);
    layout.radius = height / 2;
    layout.borderWidth = 2 * s;
    layout.hasDot = bubbleDot;
    layout.dot = {left + pad, top + height / 2 - dotRadius, 2 * dotRadius, 2 * dotRadius};
    layout.dotRimWidth = 2 * s;
    layout.textBox = {left + pad + 2 * dotRadius + gap, top, pad + text.width, height};
    return layout;
}

std::wstring ScoreText(int32_t score) {
    return std::to_wstring(score) + std::wstring(kCounterWord);
}

ScorePanelLayout LayOutScorePanel(TextSize bestText, TextSize currentText) {
    const float s = g_dpiScale;
    const Rect& home = g_playField.homeRect;
    const PillLayout best = LayOutPill(0, 0, bestText, false);
    const PillLayout current = LayOutPill(0, 0, currentText, true);
    const float x =
        static_cast<float>(home.right) - 26 * s - std::max(best.body.width, current.body.width);
    const float y = static_cast<float>(home.top) + 26 * s;
    return {{x, y}, {x, y + best.body.height + 10 * s}};
}

PraiseLook CurrentPraise() {
    const PlayField& field = g_playField;
    PraiseLook look;
    if (field.praiseTimeLeft <= 0) return look;
    const bool hasWord = !field.praiseText.empty();
    const bool hasBonus = field.praiseBonus > 0;
    if (!hasWord && !hasBonus) return look;

    const float t = field.praiseTimeLeft / field.praiseDuration;
    look.visible = true;
    look.alpha = PraiseAlpha(t);
    look.scale = PraiseScale(t, field.praiseBig);

    // The praise centres on the middle of the home monitor, on the same
    // whole-pixel row as its repaint box (PraiseArea); across, it keeps the
    // half pixel of an odd width.
    const Rect& home = g_playField.homeRect;
    const float s = g_dpiScale;
    const PointF anchor{static_cast<float>(home.left + home.right) * 0.5f,
                        static_cast<float>(PraiseAnchor().y)};
    // With both texts, the bonus goes above the anchor and the word below it.
    look.bonusCentre = hasWord ? PointF{anchor.x, anchor.y - 52 * s} : anchor;
    look.wordCentre = hasBonus ? PointF{anchor.x, anchor.y + 34 * s} : anchor;
    look.bonusColour = look.alpha << 24 | 0xFFD232u;
    look.wordColour = look.alpha << 24 | (field.praiseBig ? 0xFFBE28u : 0xFF783Cu);
    return look;
}

float HintEm() { return OutlinedTextEm(kHintBaseEm, 1.0f); }

HintBalloonLayout LayOutHintBalloon(TextSize textInk) {
    const float s = g_dpiScale;
    const PlayField& field = g_playField;
    const Rect& home = field.homeRect;
    const Rect& penguin = field.penguinBox;

    // Room for the text's white rim on both sides; the balloon breathes
    // between 94 % and 100 % of its size while the text keeps its own.
    const float rim = 2 * OutlineWidth(HintEm());
    const float pulse = std::sin(field.animClock * 3) * 0.03f + 0.97f;
    const float width = (52 * s + rim + textInk.width) * pulse;
    const float height = (36 * s + rim + textInk.height) * pulse;

    // Left of the penguin, a little way down its box, but never closer than
    // the margin to the home monitor's edges; the left edge wins over all.
    const float margin = 24 * s;
    const float x = std::max(std::min(static_cast<float>(penguin.left) - width - 18 * s,
                                      static_cast<float>(home.right) - margin - width),
                             static_cast<float>(home.left) + margin);
    const float y =
        std::max(std::min(static_cast<float>(penguin.top) +
                              0.22f * static_cast<float>(penguin.bottom - penguin.top),
                          static_cast<float>(home.bottom) - margin - height),
                 static_cast<float>(home.top) + margin);

    HintBalloonLayout layout;
    layout.body = {x, y, width, height};
    layout.shadow = Lowered(layout.body, 4 * s);
    layout.radius = 18 * s;
    layout.borderWidth = 3.5f * s;
    // The tail points just inside the penguin box wherever the balloon is.
    layout.tailTip = {static_cast<float>(penguin.left) + 6 * s, y + 0.55f * height};
    layout.tailTop = {x + width - 2 * s, layout.tailTip.y - 10 * s};
    layout.tailBottom = {x + width - 2 * s, layout.tailTip.y + 10 * s};
    layout.textCentre = {x + width / 2, y + height / 2};
    return layout;
}
