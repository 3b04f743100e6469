// The labels drawn from rounded panels, strings and outlined text; where
// things go comes from label_layout. With an unusable family the texts come
// out empty and measure 0, and the panels are drawn all the same.
#include "text/labels.h"

#include <string>

#include "assets/fonts.h"
#include "play/play_field.h"
#include "settings/high_score.h"
#include "settings/language.h"
#include "settings/texts.h"
#include "play/screen_areas.h"
#include "text/label_layout.h"
#include "text/outlined_text.h"

namespace {

constexpr uint32_t kShadowColour = 0x283C465A;
constexpr uint32_t kButtonTextColour = 0xFF3C3C48;
constexpr uint32_t kPillBodyColour = 0xDCFFFFFF;
constexpr uint32_t kDotColour = 0x9696D2FF;
constexpr uint32_t kBestTextColour = 0xFFB47828;
constexpr uint32_t kBestBorderColour = 0xFFE6B450;
constexpr uint32_t kCurrentTextColour = 0xFF5A6E96;
constexpr uint32_t kCurrentBorderColour = 0xFF96C8EB;
constexpr uint32_t kBalloonShadowColour = 0x46283246;
constexpr uint32_t kBalloonColour = 0xFFFFFFFF;
constexpr uint32_t kBalloonBorderColour = 0xFF4682D2;
constexpr uint32_t kHintTextColour = 0xFF2D5096;
constexpr int32_t kBonusEm = 104;
constexpr int32_t kWordEm = 88;

bool HasText(const wchar_t* text) { return text && *text; }

TextFont LabelFont(float size) { return {LabelFamily(), nullptr, size}; }

// A pill's whole text measured on one line in a box far larger than any
// label, so that nothing is cut short.
TextSize MeasurePillText(Canvas& canvas, const TextFont& font, const std::wstring& text) {
    return MeasureText(canvas, text.c_str(), font, {0, 0, 4000, 400}, TextAlign::kNear);
}

// A rounded panel: its shadow, its body, and its border over the body.
void DrawPanel(Canvas& canvas, const BoxF& shadow, const BoxF& body, float radius, uint32_t shadowColour,
               uint32_t bodyColour, const Pen& border) {
    Path shadowPath, bodyPath;
    AddRoundedRect(shadowPath, shadow, radius);
    FillPath(canvas, shadowPath, shadowColour);
    AddRoundedRect(bodyPath, body, radius);
    FillPath(canvas, bodyPath, bodyColour);
    StrokePath(canvas, bodyPath, border);
}

}  // namespace

void DrawButton(Canvas& canvas, const Rect& rect, Colour bodyColour, Colour borderColour,
                const wchar_t* symbol, const wchar_t* label, int32_t symbolSize) {
    const bool hasLabel = HasText(label);
    const ButtonLayout layout = LayOutButton(rect, symbolSize, hasLabel);
    const Pen border{ArgbOf(borderColour), layout.borderWidth};
    DrawPanel(canvas, layout.shadow, layout.body, layout.radius, kShadowColour, ArgbOf(bodyColour),
              border);
    if (HasText(symbol)) {
        // The symbols come from the system's symbol font. Where it is not
        // installed the button shows no symbol.
        const TextFont font{nullptr, L"Segoe UI Symbol", layout.symbolEm};
        FillText(canvas, symbol, font, layout.symbolBox, TextAlign::kCentre, kButtonTextColour);
    }
    if (hasLabel) {
        // Measured once at the label size and shrunk once if it overflows.
        const BoxF& box = layout.labelBox;
        const float size = LabelFontSize();
        const TextSize measured = MeasureText(canvas, label, LabelFont(size), box, TextAlign::kCentre);
        FillText(canvas, label, LabelFont(FitFontSize(size, measured.width, box.width)), box, TextAlign::kCentre,
                 kButtonTextColour);
    }
}

void DrawPill(Canvas& canvas, float left, float top, const wchar_t* prefix, const wchar_t* text,
              uint32_t textColour, uint32_t borderColour, bool bubbleDot) {
    std::wstring line = prefix ? prefix : L"";
    if (text) line += text;
    const TextFont font = LabelFont(LabelFontSize());
    const PillLayout layout = LayOutPill(left, top, MeasurePillText(canvas, font, line), bubbleDot);
    DrawPanel(canvas, layout.shadow, layout.body, layout.radius, kShadowColour, kPillBodyColour,
              Pen{borderColour, layout.borderWidth});
    if (layout.hasDot) {
        FillEllipse(canvas, layout.dot, kDotColour);
        StrokeEllipse(canvas, layout.dot, Pen{kPillBodyColour, layout.dotRimWidth});
    }
    FillText(canvas, line.c_str(), font, layout.textBox, TextAlign::kNear, textColour);
}

void DrawScorePanel(Canvas& canvas) {
    const std::wstring bestPrefix(kBestScorePrefix);
    const std::wstring currentPrefix(kCurrentScorePrefix);
    const std::wstring best = ScoreText(g_bestScore);
    const std::wstring current = ScoreText(g_playField.score);
    // Both pills are measured first: the wider one decides where both start.
    const TextFont font = LabelFont(LabelFontSize());
    const ScorePanelLayout layout = LayOutScorePanel(MeasurePillText(canvas, font, bestPrefix + best),
                                                     MeasurePillText(canvas, font, currentPrefix + current));
    DrawPill(canvas, layout.best.x, layout.best.y, bestPrefix.c_str(), best.c_str(), kBestTextColour,
             kBestBorderColour, false);
    DrawPill(canvas, layout.current.x, layout.current.y, currentPrefix.c_str(), current.c_str(),
             kCurrentTextColour, kCurrentBorderColour, true);
}

void DrawPraise(Canvas& canvas) {
    const PraiseLook look = CurrentPraise();
    if (!look.visible) return;
    const PlayField& field = g_playField;
    if (field.praiseBonus > 0) {
        std::wstring bonus(kBonusPrefix);
        bonus += std::to_wstring(field.praiseBonus);
        DrawOutlinedText(canvas, bonus.c_str(), PraiseFamily(), kBonusEm, look.bonusCentre.x, look.bonusCentre.y,
                         look.bonusColour, look.scale * 1.05f);
    }
    if (!field.praiseText.empty()) {
        DrawOutlinedText(canvas, field.praiseText.c_str(), PraiseFamily(), kWordEm, look.wordCentre.x,
                         look.wordCentre.y, look.wordColour, look.scale);
    }
}

void DrawHintBalloon(Canvas& canvas) {
    if (!HintBalloonShows()) return;
    const FontFace* face = LabelFamily();

    // The balloon is sized by the ink of its text, taken from a path of the
    // text that is only measured, never drawn.
    Path measured;
    AddTextPath(measured, HintText.c_str(), face, PathStyleFor(face), HintEm());
    const BoxF ink = PathBounds(measured);

    const HintBalloonLayout layout = LayOutHintBalloon({ink.width, ink.height});
    const Pen border{kBalloonBorderColour, layout.borderWidth};
    DrawPanel(canvas, layout.shadow, layout.body, layout.radius, kBalloonShadowColour, kBalloonColour, border);
    // The tail goes on after the border, so its white covers the border
    // where it leaves the balloon.
    Path tail;
    tail.figures.push_back(PathLines{{layout.tailTop, layout.tailTip, layout.tailBottom}, 3});
    tail.figures.push_back(PathClose{});
    FillPath(canvas, tail, kBalloonColour);
    StrokePath(canvas, tail, border);

    DrawOutlinedText(canvas, HintText.c_str(), face, kHintBaseEm, layout.textCentre.x, layout.textCentre.y,
                     kHintTextColour, 1.0f);
}
