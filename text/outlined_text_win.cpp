// Rounded panels and outlined text through GDI+. Failed GDI+ calls leave
// their status in the wrapper objects and drawing goes on.
#include "text/outlined_text_win.h"

#include "assets/fonts_win.h"
#include "text/text_lines.h"

void AddRoundedRect(Gdiplus::GraphicsPath& path, const Gdiplus::RectF& rect, float radius) {
    // Four quarter arcs clockwise from the top-left corner; GDI+ joins
    // consecutive arcs of a figure with the straight edges.
    const float d = 2.0f * radius;
    const float right = rect.X + rect.Width - d;
    const float bottom = rect.Y + rect.Height - d;
    path.AddArc(rect.X, rect.Y, d, d, 180.0f, 90.0f);
    path.AddArc(right, rect.Y, d, d, 270.0f, 90.0f);
    path.AddArc(right, bottom, d, d, 0.0f, 90.0f);
    path.AddArc(rect.X, bottom, d, d, 90.0f, 90.0f);
    path.CloseFigure();
}

void FillRoundedRect(Gdiplus::Graphics& graphics, const Gdiplus::RectF& rect, float radius,
                     const Gdiplus::Brush& brush) {
    Gdiplus::GraphicsPath path(Gdiplus::FillModeAlternate);
    AddRoundedRect(path, rect, radius);
    graphics.FillPath(&brush, &path);
}

void AddTextPath(Gdiplus::GraphicsPath& path, const wchar_t* text,
                 const Gdiplus::FontFamily* family, INT style, float em,
                 const Gdiplus::StringFormat& format) {
    // GDI+ steps from line to line by the family's line spacing.
    const UINT16 emHeight = family->GetEmHeight(style);
    const float lineStep =
        emHeight ? em * static_cast<float>(family->GetLineSpacing(style)) / emHeight : em;
    float y = 0.0f;
    for (const std::wstring& line : SplitLines(text)) {
        if (!line.empty()) {
            path.AddString(line.c_str(), -1, family, style, em, Gdiplus::RectF(0, y, 0, 0), &format);
        }
        y += lineStep;
    }
}

void DrawOutlinedText(Gdiplus::Graphics& graphics, const wchar_t* text,
                      const Gdiplus::FontFamily* family, int32_t baseEm, float centreX,
                      float centreY, uint32_t colour, float scale) {
    if (!text || !family) return;
    Gdiplus::StringFormat format(0, 0);
    format.SetAlignment(Gdiplus::StringAlignmentCenter);
    format.SetLineAlignment(Gdiplus::StringAlignmentCenter);
    format.SetFormatFlags(Gdiplus::StringFormatFlagsNoWrap | Gdiplus::StringFormatFlagsNoClip);

    const float em = OutlinedTextEm(baseEm, scale);
    Gdiplus::GraphicsPath path(Gdiplus::FillModeAlternate);
    AddTextPath(path, text, family, PathStyleFor(family), em, format);

    // Centre the ink, not the layout box: glyphs sit unevenly in their
    // cells, and a label should look centred where it is placed.
    Gdiplus::RectF ink;
    path.GetBounds(&ink);
    const Gdiplus::GraphicsState state = graphics.Save();
    graphics.TranslateTransform(centreX - ink.Width / 2 - ink.X, centreY - ink.Height / 2 - ink.Y,
                                Gdiplus::MatrixOrderPrepend);

    // White with the text's own alpha, so a fading word fades with its rim.
    // The pen straddles the glyph edges; the fill that follows covers its
    // inner half, leaving a rim outside the letters.
    Gdiplus::Pen rim(Gdiplus::Color(colour | 0x00FFFFFFu), OutlineWidth(em));
    rim.SetLineJoin(Gdiplus::LineJoinRound);
    Gdiplus::SolidBrush fill{Gdiplus::Color(colour)};
    graphics.DrawPath(&rim, &path);
    graphics.FillPath(&fill, &path);
    graphics.Restore(state);
}

TextSize MeasureText(Gdiplus::Graphics& graphics, const wchar_t* text, const Gdiplus::Font& font,
                     const Gdiplus::RectF& layout, const Gdiplus::StringFormat& format) {
    Gdiplus::RectF box(0, 0, 0, 0);
    graphics.MeasureString(text, -1, &font, layout, &format, &box);
    return {box.Width, box.Height};
}
