// The few drawing operations every drawer of Puffino is written against:
// ellipses, rectangles, polygons, arcs and paths with solid brushes, round
// pens and one vertical gradient; text as a path or as a line in a box, with
// its measures; a pose picture with an opacity; and the state a drawer may
// change and must put back (clip, translation, rotation).
//
// Two backends, chosen by the linker: GDI+ on Windows (canvas_win.cpp),
// making each pen, brush, path and format for the one operation that uses it,
// and cairo with FreeType and fontconfig on Linux (canvas_linux.cpp),
// anti-aliased. Colours are 32-bit ARGB; lengths are world units, which the
// frame composition makes play-field pixels.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "play/geometry.h"
#include "assets/penguin_images.h"
#include "text/text_metrics.h"

// The backend's drawing context, and a font family it can draw with (a
// rounded face loaded from its file, or an installed family).
struct Canvas;
struct FontFace;

// Font styles as a face offers them.
enum FontStyle : int32_t { kFontRegular = 0, kFontBold = 1 };

// A solid pen, with flat or round line ends and mitred or round joins.
struct Pen {
    uint32_t argb = 0;
    float width = 1;
    bool roundCaps = false;
    bool roundJoins = false;
};

// A path is a list of figures built here and drawn by the backend: arcs and
// straight lines joined into closed figures, and lines of text turned into
// glyph outlines.
struct PathArc {
    BoxF box;  // of the whole ellipse
    float startDegrees = 0;
    float sweepDegrees = 0;
};
// Up to four points joined by straight lines (the balloon's tail needs three).
struct PathLines {
    std::array<PointF, 4> points{};
    int32_t count = 0;
};
struct PathClose {};
// One line of text, centred on (0, y) horizontally and vertically; its
// characters are the path's line of that index.
struct PathText {
    size_t line = 0;
    const FontFace* face = nullptr;
    int32_t style = kFontRegular;
    float em = 0;
    float y = 0;
};
struct Path {
    std::vector<std::variant<PathArc, PathLines, PathClose, PathText>> figures;
    std::vector<std::wstring> lines;  // the texts of the PathText figures
};

// Text in a box: the rounded face, or an installed family by name (a missing
// one draws nothing), at a size in pixels.
struct TextFont {
    const FontFace* face = nullptr;
    const wchar_t* installedFamily = nullptr;
    float pixels = 0;
};
enum class TextAlign { kNear, kCentre };

void FillEllipse(Canvas& canvas, const BoxF& box, uint32_t argb);
void StrokeEllipse(Canvas& canvas, const BoxF& box, const Pen& pen);
void FillBox(Canvas& canvas, const BoxF& box, uint32_t argb);
// A linear gradient between two points, repeated beyond them, over a
// rectangle.
void FillGradient(Canvas& canvas, const Rect& rect, PointF from, PointF to, uint32_t fromArgb,
                  uint32_t toArgb);
void FillPolygon(Canvas& canvas, const PointF* points, int32_t count, uint32_t argb);
void StrokeLine(Canvas& canvas, const LineF& line, const Pen& pen);
// Angles clockwise from the x axis, as on a screen.
void StrokeArc(Canvas& canvas, const BoxF& box, float startDegrees, float sweepDegrees, const Pen& pen);
void FillPath(Canvas& canvas, const Path& path, uint32_t argb);
void StrokePath(Canvas& canvas, const Path& path, const Pen& pen);
// The ink box of the path's figures; empty for an empty path.
BoxF PathBounds(const Path& path);

// The space between two lines of the face's text at that em.
float LineSpacing(const FontFace* face, int32_t style, float em);
// One line in the box, never wrapped, centred vertically; nothing without a
// usable face.
void FillText(Canvas& canvas, const wchar_t* text, const TextFont& font, const BoxF& box, TextAlign align,
              uint32_t argb);
// The size of the box the text takes when drawn so; zero when it cannot be
// measured.
TextSize MeasureText(Canvas& canvas, const wchar_t* text, const TextFont& font, const BoxF& box,
                     TextAlign align);

// The pose picture scaled into the box, smoothly, its alpha multiplied by
// the opacity; nothing when the pose has no picture.
void DrawPosePicture(Canvas& canvas, PosePictureKind pose, const BoxF& box, float opacity);

// Saves the clip and the transformation; each save is undone by one restore.
void SaveState(Canvas& canvas);
void RestoreState(Canvas& canvas);
void Translate(Canvas& canvas, float dx, float dy);
void Rotate(Canvas& canvas, float degrees);
// Replaces the clip by the rectangle, in world units.
void ClipTo(Canvas& canvas, const Rect& rect);
BoxF ClipBounds(Canvas& canvas);
