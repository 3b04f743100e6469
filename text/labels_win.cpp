// The labels drawn with GDI+ from rounded panels, strings and outlined text;
// where things go comes from label_layout. Each drawing makes its own pens,
// brushes, fonts and formats and lets them go before it returns. With an
// unusable family the fonts fail quietly: texts come out empty and
// measure 0, and the panels are drawn all the same.
#include "text/labels_win.h"

#include <string>

#include "assets/fonts_win.h"
#include "play/play_field.h"
#include "settings/high_score.h"
#include "settings/language.h"
#include "settings/texts.h"
#include "text/label_layout.h"
#include "text/outlined_text_win.h"

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

Gdiplus::RectF ToRectF(const BoxF& r) { return {r.x, r.y, r.width, r.height}; }
Gdiplus::PointF ToPointF(const PointF& p) { return {p.x, p.y}; }

bool HasText(const wchar_t* text) { return text && *text; }

// One line, never wrapped, aligned as asked horizontally and centred
// vertically.
void SetLineFormat(Gdiplus::StringFormat& format, Gdiplus::StringAlignment alignment) {
    format.SetAlignment(alignment);
    format.SetLineAlignment(Gdiplus::StringAlignmentCenter);
    format.SetFormatFlags(Gdiplus::StringFormatFlagsNoWrap);
}

Gdiplus::Font LabelFont(float size) {
    return Gdiplus::Font(LabelFamily(), size, Gdiplus::FontStyleRegular, Gdiplus::UnitPixel);
}

// A pill's whole text measured on one line in a box far larger than any
// label, so that nothing is cut short.
TextSize MeasurePillText(Gdiplus::Graphics& graphics, const Gdiplus::Font& font,
                         const std::wstring& text) {
    Gdiplus::StringFormat format(0, 0);
    format.SetFormatFlags(Gdiplus::StringFormatFlagsNoWrap);
    return MeasureText(graphics, text.c_str(), font, Gdiplus::RectF(0, 0, 4000, 400), format);
}

// A rounded panel: its shadow, its body, and its border over the body.
void DrawPanel(Gdiplus::Graphics& graphics, const BoxF& shadow, const BoxF& body,
               float radius, uint32_t shadowColour, uint32_t bodyColour, const Gdiplus::Pen& border) {
    FillRoundedRect(graphics, ToRectF(shadow), radius,
                    Gdiplus::SolidBrush(Gdiplus::Color(shadowColour)));
    FillRoundedRect(graphics, ToRectF(body), radius, Gdiplus::SolidBrush(Gdiplus::Color(bodyColour)));
    Gdiplus::GraphicsPath outline(Gdiplus::FillModeAlternate);
    AddRoundedRect(outline, ToRectF(body), radius);
    graphics.DrawPath(&border, &outline);
}

}  // namespace

void DrawButton(Gdiplus::Graphics& graphics, const Rect& rect, uint32_t bodyColour,
                uint32_t borderColour, const wchar_t* symbol, const wchar_t* label,
                int32_t symbolSize) {
    const bool hasLabel = HasText(label);
    const ButtonLayout layout = LayOutButton(rect, symbolSize, hasLabel);
    const Gdiplus::Pen border(Gdiplus::Color(ArgbFromColourRef(borderColour)), layout.borderWidth);
    DrawPanel(graphics, layout.shadow, layout.body, layout.radius, kShadowColour,
              ArgbFromColourRef(bodyColour), border);

    Gdiplus::StringFormat format(0, 0);
    SetLineFormat(format, Gdiplus::StringAlignmentCenter);
    const Gdiplus::SolidBrush ink{Gdiplus::Color(kButtonTextColour)};
    if (HasText(symbol)) {
        // The symbols come from the system's symbol font, made for this
        // drawing only. Where it is not installed the font fails and the
        // button shows no symbol.
        const Gdiplus::FontFamily family(L"Segoe UI Symbol");
        const Gdiplus::Font font(&family, layout.symbolEm, Gdiplus::FontStyleRegular,
                                 Gdiplus::UnitPixel);
        graphics.DrawString(symbol, -1, &font, ToRectF(layout.symbolBox), &format, &ink);
    }
    if (hasLabel) {
        // Measured once at the label size and shrunk once if it overflows.
        const Gdiplus::RectF box = ToRectF(layout.labelBox);
        const float size = LabelFontSize();
        const TextSize measured = MeasureText(graphics, label, LabelFont(size), box, format);
        const Gdiplus::Font font = LabelFont(FitFontSize(size, measured.width, box.Width));
        graphics.DrawString(label, -1, &font, box, &format, &ink);
    }
}

void DrawPill(Gdiplus::Graphics& graphics, float left, float top, const wchar_t* prefix,
              const wchar_t* text, uint32_t textColour, uint32_t borderColour, bool bubbleDot) {
    std::wstring line = prefix ? prefix : L"";
    if (text) line += text;
    const Gdiplus::Font font = LabelFont(LabelFontSize());
    const PillLayout layout = LayOutPill(left, top, MeasurePillText(graphics, font, line), bubbleDot);
    const Gdiplus::Pen border(Gdiplus::Color(borderColour), layout.borderWidth);
    DrawPanel(graphics, layout.shadow, layout.body, layout.radius, kShadowColour, kPillBodyColour,
              border);
    if (layout.hasDot) {
        const Gdiplus::SolidBrush dot{Gdiplus::Color(kDotColour)};
        const Gdiplus::Pen rim(Gdiplus::Color(kPillBodyColour), layout.dotRimWidth);
        graphics.FillEllipse(&dot, ToRectF(layout.dot));
        graphics.DrawEllipse(&rim, ToRectF(layout.dot));
    }
    Gdiplus::StringFormat format(0, 0);
    SetLineFormat(format, Gdiplus::StringAlignmentNear);
    const Gdiplus::SolidBrush ink{Gdiplus::Color(textColour)};
    graphics.DrawString(line.c_str(), -1, &font, ToRectF(layout.textBox), &format, &ink);
}

void DrawScorePanel(Gdiplus::Graphics& graphics) {
    const std::wstring bestPrefix(kBestScorePrefix);
    const std::wstring currentPrefix(kCurrentScorePrefix);
    const std::wstring best = ScoreText(g_bestScore);
    const std::wstring current = ScoreText(g_playField.score);
    // Both pills are measured first: the wider one decides where both start.
    const Gdiplus::Font font = LabelFont(LabelFontSize());
    const ScorePanelLayout layout =
        LayOutScorePanel(MeasurePillText(graphics, font, bestPrefix + best),
                         MeasurePillText(graphics, font, currentPrefix + current));
    DrawPill(graphics, layout.best.x, layout.best.y, bestPrefix.c_str(), best.c_str(),
             kBestTextColour, kBestBorderColour, false);
    DrawPill(graphics, layout.current.x, layout.current.y, currentPrefix.c_str(), current.c_str(),
             kCurrentTextColour, kCurrentBorderColour, true);
}

void DrawPraise(Gdiplus::Graphics& graphics) {
    const PraiseLook look = CurrentPraise();
    if (!look.visible) return;
    const PlayField& field = g_playField;
    if (field.praiseBonus > 0) {
        std::wstring bonus(kBonusPrefix);
        bonus += std::to_wstring(field.praiseBonus);
        DrawOutlinedText(graphics, bonus.c_str(), PraiseFamily(), kBonusEm, look.bonusCentre.x,
                         look.bonusCentre.y, look.bonusColour, look.scale * 1.05f);
    }
    if (!field.praiseText.empty()) {
        DrawOutlinedText(graphics, field.praiseText.c_str(), PraiseFamily(), kWordEm,
                         look.wordCentre.x, look.wordCentre.y, look.wordColour, look.scale);
    }
}

void DrawHintBalloon(Gdiplus::Graphics& graphics) {
    if (!HintBalloonShows()) return;
    const Gdiplus::FontFamily* family = LabelFamily();

    // The balloon is sized by the ink of its text, taken from a path of the
    // text that is only measured, never drawn.
    Gdiplus::StringFormat format(0, 0);
    format.SetAlignment(Gdiplus::StringAlignmentCenter);
    format.SetLineAlignment(Gdiplus::StringAlignmentCenter);
    format.SetFormatFlags(Gdiplus::StringFormatFlagsNoClip);
    format.SetTrimming(Gdiplus::StringTrimmingNone);
    Gdiplus::GraphicsPath measured(Gdiplus::FillModeAlternate);
    AddTextPath(measured, HintText.c_str(), family, PathStyleFor(family), HintEm(), format);
    Gdiplus::RectF ink;
    measured.GetBounds(&ink);

    const HintBalloonLayout layout = LayOutHintBalloon({ink.Width, ink.Height});
    const Gdiplus::Pen border(Gdiplus::Color(kBalloonBorderColour), layout.borderWidth);
    const Gdiplus::SolidBrush white{Gdiplus::Color(kBalloonColour)};
    DrawPanel(graphics, layout.shadow, layout.body, layout.radius, kBalloonShadowColour,
              kBalloonColour, border);
    // The tail goes on after the border, so its white covers the border
    // where it leaves the balloon.
    const Gdiplus::PointF tail[] = {ToPointF(layout.tailTop), ToPointF(layout.tailTip),
                                    ToPointF(layout.tailBottom)};
    Gdiplus::GraphicsPath tailPath(Gdiplus::FillModeAlternate);
    tailPath.AddLines(tail, 3);
    tailPath.CloseFigure();
    graphics.FillPath(&white, &tailPath);
    graphics.DrawPath(&border, &tailPath);

    DrawOutlinedText(graphics, HintText.c_str(), family, kHintBaseEm, layout.textCentre.x,
                     layout.textCentre.y, kHintTextColour, 1.0f);
}
