// The canvas through cairo, anti-aliased. The geometry follows the GDI+
// rules the drawers were made for: angles clockwise in degrees, arcs of
// ellipses by the angle of their rays, even-odd filling, text in a box with
// a sixth of an em of room at each end, and each path line centred on its
// point.
#include "render/canvas_linux.h"

#include <cmath>
#include <string>
#include <variant>

#include "assets/penguin_images_linux.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

void SetColour(cairo_t* cr, uint32_t argb) {
    cairo_set_source_rgba(cr, (argb >> 16 & 0xFF) / 255.0, (argb >> 8 & 0xFF) / 255.0, (argb & 0xFF) / 255.0,
                          (argb >> 24) / 255.0);
}

// Fills the current path, even-odd as GDI+ fills, and clears it.
void Fill(cairo_t* cr, uint32_t argb) {
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
    SetColour(cr, argb);
    cairo_fill(cr);
}

// Strokes the current path with the pen and clears it.
void Stroke(cairo_t* cr, const Pen& pen) {
    SetColour(cr, pen.argb);
    cairo_set_line_width(cr, pen.width);
    cairo_set_line_cap(cr, pen.roundCaps ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    cairo_set_line_join(cr, pen.roundJoins ? CAIRO_LINE_JOIN_ROUND : CAIRO_LINE_JOIN_MITER);
    cairo_stroke(cr);
}

// The parameter of the point of an ellipse whose ray leaves the centre at
// this angle (radians): GDI+ measures the arcs of an ellipse by their rays.
double RayToParameter(double angle, double rx, double ry) {
    return std::atan2(rx * std::sin(angle), ry * std::cos(angle));
}

// Adds the arc as a continuation of the current figure (a line joins it to
// the figure's last point); false for an empty box.
bool AddArc(cairo_t* cr, const BoxF& box, float startDegrees, float sweepDegrees) {
    if (box.width <= 0 || box.height <= 0) return false;
    const double rx = box.width / 2.0, ry = box.height / 2.0;
    const double start = startDegrees * kPi / 180.0, end = (startDegrees + sweepDegrees) * kPi / 180.0;
    double from = RayToParameter(start, rx, ry), to = RayToParameter(end, rx, ry);
    // Keep the parameters on the same turn as the angles.
    from += std::round((start - from) / (2 * kPi)) * 2 * kPi;
    to += std::round((end - to) / (2 * kPi)) * 2 * kPi;
    cairo_save(cr);
    cairo_translate(cr, box.x + rx, box.y + ry);
    cairo_scale(cr, rx, ry);
    if (sweepDegrees >= 0) {
        cairo_arc(cr, 0, 0, 1, from, to);
    } else {
        cairo_arc_negative(cr, 0, 0, 1, from, to);
    }
    cairo_restore(cr);
    return true;
}

void AddEllipse(cairo_t* cr, const BoxF& box) {
    cairo_new_sub_path(cr);
    if (AddArc(cr, box, 0, 360)) cairo_close_path(cr);
}

std::string Utf8(const std::wstring& text) {
    std::string out;
    for (const wchar_t wc : text) {
        const auto c = static_cast<uint32_t>(wc);
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else if (c < 0x800) {
            out += static_cast<char>(0xC0 | c >> 6);
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            out += static_cast<char>(0xE0 | c >> 12);
            out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | c >> 18);
            out += static_cast<char>(0x80 | (c >> 12 & 0x3F));
            out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return out;
}

// Chooses the face for text: the family's, in the style, or an installed
// family by name through fontconfig; false when there is none to draw with.
bool SelectFont(cairo_t* cr, const FontFace* face, int32_t style, const wchar_t* installedFamily, double size) {
    if (installedFamily) {
        cairo_select_font_face(cr, Utf8(installedFamily).c_str(), CAIRO_FONT_SLANT_NORMAL,
                               CAIRO_FONT_WEIGHT_NORMAL);
    } else {
        cairo_font_face_t* chosen = face ? (style == kFontBold && face->bold ? face->bold : face->regular) : nullptr;
        if (!chosen) return false;
        cairo_set_font_face(cr, chosen);
    }
    cairo_set_font_size(cr, size);
    return true;
}

// Moves to where a line of text starts so that its box of one line height
// is centred on y and its advance is placed as asked within [left, right].
void MoveToLine(cairo_t* cr, const std::string& line, double left, double right, double y, bool centre,
                double size) {
    cairo_font_extents_t font;
    cairo_text_extents_t text;
    cairo_font_extents(cr, &font);
    cairo_text_extents(cr, line.c_str(), &text);
    const double x = centre ? (left + right - text.x_advance) / 2 : left + size / 6;
    cairo_move_to(cr, x, y - (font.ascent + font.descent) / 2 + font.ascent);
}

struct FigureAdder {
    cairo_t* cr;
    bool& open;
    const std::vector<std::wstring>& texts;

    void operator()(const PathArc& arc) const {
        if (!open) cairo_new_sub_path(cr);
        open = AddArc(cr, arc.box, arc.startDegrees, arc.sweepDegrees) || open;
    }
    void operator()(const PathLines& lines) const {
        for (int32_t i = 0; i < lines.count; ++i) {
            const PointF& point = lines.points[i];
            if (open) {
                cairo_line_to(cr, point.x, point.y);
            } else {
                cairo_move_to(cr, point.x, point.y);
                open = true;
            }
        }
    }
    void operator()(const PathClose&) const {
        if (open) cairo_close_path(cr);
        open = false;
    }
    void operator()(const PathText& text) const {
        if (!SelectFont(cr, text.face, text.style, nullptr, text.em)) return;
        const std::string line = Utf8(texts[text.line]);
        MoveToLine(cr, line, 0, 0, text.y, true, text.em);
        cairo_text_path(cr, line.c_str());
        open = false;
    }
};

void Build(cairo_t* cr, const Path& path) {
    cairo_new_path(cr);
    bool open = false;
    const FigureAdder adder{cr, open, path.lines};
    for (const auto& figure : path.figures) std::visit(adder, figure);
}

// A context for measuring, on a surface of one pixel.
cairo_t* ScratchContext() {
    static cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1, 1);
    static cairo_t* cr = cairo_create(surface);
    return cr;
}

}  // namespace

void FillEllipse(Canvas& canvas, const BoxF& box, uint32_t argb) {
    cairo_new_path(canvas.cr);
    AddEllipse(canvas.cr, box);
    Fill(canvas.cr, argb);
}

void StrokeEllipse(Canvas& canvas, const BoxF& box, const Pen& pen) {
    cairo_new_path(canvas.cr);
    AddEllipse(canvas.cr, box);
    Stroke(canvas.cr, pen);
}

void FillBox(Canvas& canvas, const BoxF& box, uint32_t argb) {
    cairo_new_path(canvas.cr);
    cairo_rectangle(canvas.cr, box.x, box.y, box.width, box.height);
    Fill(canvas.cr, argb);
}

void FillGradient(Canvas& canvas, const Rect& rect, PointF from, PointF to, uint32_t fromArgb, uint32_t toArgb) {
    cairo_pattern_t* gradient = cairo_pattern_create_linear(from.x, from.y, to.x, to.y);
    const auto stop = [gradient](double at, uint32_t argb) {
        cairo_pattern_add_color_stop_rgba(gradient, at, (argb >> 16 & 0xFF) / 255.0, (argb >> 8 & 0xFF) / 255.0,
                                          (argb & 0xFF) / 255.0, (argb >> 24) / 255.0);
    };
    stop(0, fromArgb);
    stop(1, toArgb);
    cairo_pattern_set_extend(gradient, CAIRO_EXTEND_REPEAT);
    cairo_new_path(canvas.cr);
    cairo_rectangle(canvas.cr, rect.left, rect.top, Width(rect), Height(rect));
    cairo_set_source(canvas.cr, gradient);
    cairo_fill(canvas.cr);
    cairo_pattern_destroy(gradient);
}

void FillPolygon(Canvas& canvas, const PointF* points, int32_t count, uint32_t argb) {
    cairo_new_path(canvas.cr);
    for (int32_t i = 0; i < count; ++i) cairo_line_to(canvas.cr, points[i].x, points[i].y);
    cairo_close_path(canvas.cr);
    Fill(canvas.cr, argb);
}

void StrokeLine(Canvas& canvas, const LineF& line, const Pen& pen) {
    cairo_new_path(canvas.cr);
    cairo_move_to(canvas.cr, line.from.x, line.from.y);
    cairo_line_to(canvas.cr, line.to.x, line.to.y);
    Stroke(canvas.cr, pen);
}

void StrokeArc(Canvas& canvas, const BoxF& box, float startDegrees, float sweepDegrees, const Pen& pen) {
    cairo_new_path(canvas.cr);
    if (!AddArc(canvas.cr, box, startDegrees, sweepDegrees)) return;
    Stroke(canvas.cr, pen);
}

void FillPath(Canvas& canvas, const Path& path, uint32_t argb) {
    Build(canvas.cr, path);
    Fill(canvas.cr, argb);
}

void StrokePath(Canvas& canvas, const Path& path, const Pen& pen) {
    Build(canvas.cr, path);
    Stroke(canvas.cr, pen);
}

BoxF PathBounds(const Path& path) {
    cairo_t* cr = ScratchContext();
    Build(cr, path);
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    cairo_path_extents(cr, &x1, &y1, &x2, &y2);
    cairo_new_path(cr);
    return {static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2 - x1), static_cast<float>(y2 - y1)};
}

float LineSpacing(const FontFace* face, int32_t, float em) {
    return face && face->regular ? static_cast<float>(face->lineSpacing * em) : em;
}

void FillText(Canvas& canvas, const wchar_t* text, const TextFont& font, const BoxF& box, TextAlign align,
              uint32_t argb) {
    cairo_t* cr = canvas.cr;
    if (!text || !SelectFont(cr, font.face, kFontRegular, font.installedFamily, font.pixels)) return;
    const std::string line = Utf8(text);
    cairo_new_path(cr);
    MoveToLine(cr, line, box.x, box.x + box.width, box.y + box.height / 2, align == TextAlign::kCentre,
               font.pixels);
    SetColour(cr, argb);
    cairo_show_text(cr, line.c_str());
}

TextSize MeasureText(Canvas& canvas, const wchar_t* text, const TextFont& font, const BoxF&, TextAlign) {
    cairo_t* cr = canvas.cr;
    if (!text || !SelectFont(cr, font.face, kFontRegular, font.installedFamily, font.pixels)) return {};
    cairo_font_extents_t extents;
    cairo_text_extents_t measured;
    cairo_font_extents(cr, &extents);
    cairo_text_extents(cr, Utf8(text).c_str(), &measured);
    // The room GDI+ leaves at each end of a measured line, kept so that the
    // panels come out as wide on every system.
    return {static_cast<float>(measured.x_advance + font.pixels / 3),
            static_cast<float>(font.face ? font.face->lineSpacing * font.pixels : extents.height)};
}

void DrawPosePicture(Canvas& canvas, PosePictureKind pose, const BoxF& box, float opacity) {
    const PosePicture* picture = LoadedPosePicture(pose);
    if (!picture || picture->width < 1 || picture->height < 1) return;
    cairo_t* cr = canvas.cr;
    cairo_save(cr);
    cairo_translate(cr, box.x, box.y);
    cairo_scale(cr, box.width / static_cast<double>(picture->width), box.height / static_cast<double>(picture->height));
    cairo_set_source_surface(cr, picture->surface, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_GOOD);
    if (opacity >= 0.999f) {
        cairo_paint(cr);
    } else if (opacity > 0.001f) {
        cairo_paint_with_alpha(cr, opacity);
    }
    cairo_restore(cr);
}

void SaveState(Canvas& canvas) { cairo_save(canvas.cr); }

void RestoreState(Canvas& canvas) { cairo_restore(canvas.cr); }

void Translate(Canvas& canvas, float dx, float dy) { cairo_translate(canvas.cr, dx, dy); }

void Rotate(Canvas& canvas, float degrees) { cairo_rotate(canvas.cr, degrees * kPi / 180.0); }

void ClipTo(Canvas& canvas, const Rect& rect) {
    cairo_reset_clip(canvas.cr);
    cairo_new_path(canvas.cr);
    cairo_rectangle(canvas.cr, rect.left, rect.top, Width(rect), Height(rect));
    cairo_clip(canvas.cr);
}

BoxF ClipBounds(Canvas& canvas) {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    cairo_clip_extents(canvas.cr, &x1, &y1, &x2, &y2);
    return {static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2 - x1), static_cast<float>(y2 - y1)};
}
