// Rounded panels and outlined text over the canvas.
#include "text/outlined_text.h"

#include "assets/fonts.h"
#include "text/text_lines.h"

void AddRoundedRect(Path& path, const BoxF& rect, float radius) {
    // Four quarter arcs clockwise from the top-left corner; consecutive arcs
    // of a figure are joined by the straight edges.
    const float d = 2.0f * radius;
    const float right = rect.x + rect.width - d;
    const float bottom = rect.y + rect.height - d;
    path.figures.push_back(PathArc{{rect.x, rect.y, d, d}, 180.0f, 90.0f});
    path.figures.push_back(PathArc{{right, rect.y, d, d}, 270.0f, 90.0f});
    path.figures.push_back(PathArc{{right, bottom, d, d}, 0.0f, 90.0f});
    path.figures.push_back(PathArc{{rect.x, bottom, d, d}, 90.0f, 90.0f});
    path.figures.push_back(PathClose{});
}

void AddTextPath(Path& path, const wchar_t* text, const FontFace* face, int32_t style, float em) {
    // Each line goes in on its own: Wine's GDI+ cuts every line after the
    // first short when they go in together.
    const float lineStep = LineSpacing(face, style, em);
    float y = 0.0f;
    for (const std::wstring& line : SplitLines(text)) {
        if (!line.empty()) {
            path.figures.push_back(PathText{path.lines.size(), face, style, em, y});
            path.lines.push_back(line);
        }
        y += lineStep;
    }
}

void DrawOutlinedText(Canvas& canvas, const wchar_t* text, const FontFace* face, int32_t baseEm,
                      float centreX, float centreY, uint32_t colour, float scale) {
    if (!text || !face) return;
    const float em = OutlinedTextEm(baseEm, scale);
    Path path;
    AddTextPath(path, text, face, PathStyleFor(face), em);

    // Centre the ink, not the layout box: glyphs sit unevenly in their
    // cells, and a label should look centred where it is placed.
    const BoxF ink = PathBounds(path);
    SaveState(canvas);
    Translate(canvas, centreX - ink.width / 2 - ink.x, centreY - ink.height / 2 - ink.y);
    // White with the text's own alpha, so a fading word fades with its rim.
    // The pen straddles the glyph edges; the fill that follows covers its
    // inner half, leaving a rim outside the letters.
    StrokePath(canvas, path, Pen{colour | 0x00FFFFFFu, OutlineWidth(em), false, true});
    FillPath(canvas, path, colour);
    RestoreState(canvas);
}
