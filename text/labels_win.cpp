// The labels drawn from outlined text and rounded panels.
#include "text/labels_win.h"

// The labels join with their drawings; until then they draw nothing.
void DrawButton(Gdiplus::Graphics&, const Rect&, uint32_t, uint32_t, const wchar_t*, const wchar_t*,
                int32_t) {}
void DrawPill(Gdiplus::Graphics&, float, float, const wchar_t*, const wchar_t*, uint32_t, uint32_t, bool) {}
void DrawScorePanel(Gdiplus::Graphics&) {}
void DrawPraise(Gdiplus::Graphics&) {}
void DrawHintBalloon(Gdiplus::Graphics&) {}
