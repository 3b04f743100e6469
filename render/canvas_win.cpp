// The canvas through GDI+. Every pen, brush, path and format lives for the
// one operation that uses it; failed calls leave their status in the GDI+
// wrappers and drawing goes on.
#include "render/canvas_win.h"

#include <array>
#include <variant>

#include "assets/penguin_images_win.h"

namespace {

Gdiplus::RectF ToRectF(const BoxF& box) { return {box.x, box.y, box.width, box.height}; }
Gdiplus::PointF ToPointF(const PointF& point) { return {point.x, point.y}; }
Gdiplus::Rect ToRect(const Rect& rect) { return {rect.left, rect.top, Width(rect), Height(rect)}; }

// A GDI+ pen for the canvas pen, its ends and joins as asked.
void Shape(Gdiplus::Pen& pen, const Pen& look) {
    if (look.roundCaps) pen.SetLineCap(Gdiplus::LineCapRound, Gdiplus::LineCapRound, Gdiplus::DashCapFlat);
    if (look.roundJoins) pen.SetLineJoin(Gdiplus::LineJoinRound);
}

// Text in a path as GDI+ lays it out in a zero-size box at its origin: each
// line centred both ways, never wrapped or clipped.
void SetPathTextFormat(Gdiplus::StringFormat& format) {
    format.SetAlignment(Gdiplus::StringAlignmentCenter);
    format.SetLineAlignment(Gdiplus::StringAlignmentCenter);
    format.SetFormatFlags(Gdiplus::StringFormatFlagsNoWrap | Gdiplus::StringFormatFlagsNoClip);
}

struct FigureAdder {
    Gdiplus::GraphicsPath& path;
    const Gdiplus::StringFormat& format;
    const std::vector<std::wstring>& texts;

    void operator()(const PathArc& arc) const {
        path.AddArc(arc.box.x, arc.box.y, arc.box.width, arc.box.height, arc.startDegrees, arc.sweepDegrees);
    }
    void operator()(const PathLines& lines) const {
        std::array<Gdiplus::PointF, 4> points;
        for (int32_t i = 0; i < lines.count; ++i) points[i] = ToPointF(lines.points[i]);
        path.AddLines(points.data(), lines.count);
    }
    void operator()(const PathClose&) const { path.CloseFigure(); }
    void operator()(const PathText& text) const {
        if (!text.face) return;
        path.AddString(texts[text.line].c_str(), -1, &text.face->family, text.style, text.em,
                       Gdiplus::RectF(0, text.y, 0, 0), &format);
    }
};

void Build(Gdiplus::GraphicsPath& out, const Path& path) {
    Gdiplus::StringFormat format(0, 0);
    SetPathTextFormat(format);
    const FigureAdder adder{out, format, path.lines};
    for (const auto& figure : path.figures) std::visit(adder, figure);
}

// One line, never wrapped, aligned as asked and centred vertically.
void SetLineFormat(Gdiplus::StringFormat& format, TextAlign align) {
    format.SetAlignment(align == TextAlign::kCentre ? Gdiplus::StringAlignmentCenter : Gdiplus::StringAlignmentNear);
    format.SetLineAlignment(Gdiplus::StringAlignmentCenter);
    format.SetFormatFlags(Gdiplus::StringFormatFlagsNoWrap);
}

// Calls use(font) with the font the text is drawn in: the face, or the
// installed family of that name, made for this one drawing.
template <typename Use>
void WithFont(const TextFont& font, Use use) {
    if (font.installedFamily) {
        const Gdiplus::FontFamily family(font.installedFamily);
        use(Gdiplus::Font(&family, font.pixels, Gdiplus::FontStyleRegular, Gdiplus::UnitPixel));
    } else if (font.face) {
        use(Gdiplus::Font(&font.face->family, font.pixels, Gdiplus::FontStyleRegular, Gdiplus::UnitPixel));
    }
}

// Puts the quality modes and the world transform back as they were, whichever
// way the drawing leaves.
class SavedQuality {
public:
    explicit SavedQuality(Gdiplus::Graphics& graphics)
        : graphics_(graphics),
          interpolation_(graphics.GetInterpolationMode()),
          pixelOffset_(graphics.GetPixelOffsetMode()),
          compositing_(graphics.GetCompositingQuality()),
          smoothing_(graphics.GetSmoothingMode()) {
        graphics.GetTransform(&transform_);
    }
    ~SavedQuality() {
        graphics_.SetTransform(&transform_);
        graphics_.SetInterpolationMode(interpolation_);
        graphics_.SetPixelOffsetMode(pixelOffset_);
        graphics_.SetCompositingQuality(compositing_);
        graphics_.SetSmoothingMode(smoothing_);
    }
    SavedQuality(const SavedQuality&) = delete;
    SavedQuality& operator=(const SavedQuality&) = delete;

private:
    Gdiplus::Graphics& graphics_;
    Gdiplus::Matrix transform_;
    Gdiplus::InterpolationMode interpolation_;
    Gdiplus::PixelOffsetMode pixelOffset_;
    Gdiplus::CompositingQuality compositing_;
    Gdiplus::SmoothingMode smoothing_;
};

}  // namespace

void FillEllipse(Canvas& canvas, const BoxF& box, uint32_t argb) {
    Gdiplus::SolidBrush brush{Gdiplus::Color(argb)};
    canvas.graphics.FillEllipse(&brush, box.x, box.y, box.width, box.height);
}

void StrokeEllipse(Canvas& canvas, const BoxF& box, const Pen& pen) {
    Gdiplus::Pen gdiPen(Gdiplus::Color(pen.argb), pen.width);
    Shape(gdiPen, pen);
    canvas.graphics.DrawEllipse(&gdiPen, box.x, box.y, box.width, box.height);
}

void FillBox(Canvas& canvas, const BoxF& box, uint32_t argb) {
    Gdiplus::SolidBrush brush{Gdiplus::Color(argb)};
    canvas.graphics.FillRectangle(&brush, ToRectF(box));
}

void FillGradient(Canvas& canvas, const Rect& rect, PointF from, PointF to, uint32_t fromArgb, uint32_t toArgb) {
    Gdiplus::LinearGradientBrush brush(ToPointF(from), ToPointF(to), Gdiplus::Color(fromArgb),
                                       Gdiplus::Color(toArgb));
    brush.SetWrapMode(Gdiplus::WrapModeTile);
    canvas.graphics.FillRectangle(&brush, ToRect(rect));
}

void FillPolygon(Canvas& canvas, const PointF* points, int32_t count, uint32_t argb) {
    std::vector<Gdiplus::PointF> corners;
    for (int32_t i = 0; i < count; ++i) corners.push_back(ToPointF(points[i]));
    Gdiplus::SolidBrush brush{Gdiplus::Color(argb)};
    canvas.graphics.FillPolygon(&brush, corners.data(), count, Gdiplus::FillModeAlternate);
}

void StrokeLine(Canvas& canvas, const LineF& line, const Pen& pen) {
    Gdiplus::Pen gdiPen(Gdiplus::Color(pen.argb), pen.width);
    Shape(gdiPen, pen);
    canvas.graphics.DrawLine(&gdiPen, ToPointF(line.from), ToPointF(line.to));
}

void StrokeArc(Canvas& canvas, const BoxF& box, float startDegrees, float sweepDegrees, const Pen& pen) {
    Gdiplus::Pen gdiPen(Gdiplus::Color(pen.argb), pen.width);
    Shape(gdiPen, pen);
    canvas.graphics.DrawArc(&gdiPen, ToRectF(box), startDegrees, sweepDegrees);
}

void FillPath(Canvas& canvas, const Path& path, uint32_t argb) {
    Gdiplus::GraphicsPath gdiPath(Gdiplus::FillModeAlternate);
    Build(gdiPath, path);
    Gdiplus::SolidBrush brush{Gdiplus::Color(argb)};
    canvas.graphics.FillPath(&brush, &gdiPath);
}

void StrokePath(Canvas& canvas, const Path& path, const Pen& pen) {
    Gdiplus::GraphicsPath gdiPath(Gdiplus::FillModeAlternate);
    Build(gdiPath, path);
    Gdiplus::Pen gdiPen(Gdiplus::Color(pen.argb), pen.width);
    Shape(gdiPen, pen);
    canvas.graphics.DrawPath(&gdiPen, &gdiPath);
}

BoxF PathBounds(const Path& path) {
    Gdiplus::GraphicsPath gdiPath(Gdiplus::FillModeAlternate);
    Build(gdiPath, path);
    Gdiplus::RectF ink;
    gdiPath.GetBounds(&ink);
    return {ink.X, ink.Y, ink.Width, ink.Height};
}

float LineSpacing(const FontFace* face, int32_t style, float em) {
    // GDI+ steps from line to line by the family's line spacing.
    const UINT16 emHeight = face ? face->family.GetEmHeight(style) : 0;
    return emHeight ? em * static_cast<float>(face->family.GetLineSpacing(style)) / emHeight : em;
}

void FillText(Canvas& canvas, const wchar_t* text, const TextFont& font, const BoxF& box, TextAlign align,
              uint32_t argb) {
    Gdiplus::StringFormat format(0, 0);
    SetLineFormat(format, align);
    const Gdiplus::SolidBrush ink{Gdiplus::Color(argb)};
    WithFont(font, [&](const Gdiplus::Font& gdiFont) {
        canvas.graphics.DrawString(text, -1, &gdiFont, ToRectF(box), &format, &ink);
    });
}

TextSize MeasureText(Canvas& canvas, const wchar_t* text, const TextFont& font, const BoxF& box,
                     TextAlign align) {
    Gdiplus::StringFormat format(0, 0);
    SetLineFormat(format, align);
    Gdiplus::RectF measured(0, 0, 0, 0);
    WithFont(font, [&](const Gdiplus::Font& gdiFont) {
        canvas.graphics.MeasureString(text, -1, &gdiFont, ToRectF(box), &format, &measured);
    });
    return {measured.Width, measured.Height};
}

void DrawPosePicture(Canvas& canvas, PosePictureKind pose, const BoxF& box, float opacity) {
    const PosePicture* picture = LoadedPosePicture(pose);
    if (!picture) return;
    Gdiplus::Image* image = picture->image.get();
    Gdiplus::Graphics& graphics = canvas.graphics;
    const SavedQuality saved(graphics);
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBilinear);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    graphics.SetCompositingQuality(Gdiplus::CompositingQualityHighQuality);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeHighQuality);
    if (opacity >= 0.999f) {
        graphics.DrawImage(image, ToRectF(box));
    } else if (opacity > 0.001f) {
        // Only alpha is scaled; colours pass through unchanged.
        Gdiplus::ColorMatrix matrix{};
        matrix.m[0][0] = matrix.m[1][1] = matrix.m[2][2] = 1;
        matrix.m[3][3] = opacity;
        Gdiplus::ImageAttributes attributes;
        attributes.SetColorMatrix(&matrix, Gdiplus::ColorMatrixFlagsDefault, Gdiplus::ColorAdjustTypeBitmap);
        graphics.DrawImage(image, ToRectF(box), 0, 0, static_cast<Gdiplus::REAL>(image->GetWidth()),
                           static_cast<Gdiplus::REAL>(image->GetHeight()), Gdiplus::UnitPixel, &attributes);
    }
}

void SaveState(Canvas& canvas) { canvas.saved.push_back(canvas.graphics.Save()); }

void RestoreState(Canvas& canvas) {
    if (canvas.saved.empty()) return;
    canvas.graphics.Restore(canvas.saved.back());
    canvas.saved.pop_back();
}

void Translate(Canvas& canvas, float dx, float dy) { canvas.graphics.TranslateTransform(dx, dy); }

void Rotate(Canvas& canvas, float degrees) { canvas.graphics.RotateTransform(degrees); }

void ClipTo(Canvas& canvas, const Rect& rect) { canvas.graphics.SetClip(ToRect(rect), Gdiplus::CombineModeReplace); }

BoxF ClipBounds(Canvas& canvas) {
    Gdiplus::RectF clip;
    canvas.graphics.GetClipBounds(&clip);
    return {clip.X, clip.Y, clip.Width, clip.Height};
}
