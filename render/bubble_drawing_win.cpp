// Bubbles and pop effects turned into GDI+ fills and outlines; their shapes
// and colours come from bubble_look.cpp.
#include "render/bubble_drawing_win.h"

#include "play/play_field.h"
#include "render/bubble_look.h"

namespace {

// A brush or pen lives for the one ellipse that uses it.
void DrawEllipseLook(Gdiplus::Graphics& graphics, const EllipseLook& look) {
    const Gdiplus::Color colour(look.argb);
    const BoxF& box = look.box;
    if (look.penWidth > 0) {
        Gdiplus::Pen pen(colour, look.penWidth);
        graphics.DrawEllipse(&pen, box.x, box.y, box.width, box.height);
    } else {
        Gdiplus::SolidBrush brush(colour);
        graphics.FillEllipse(&brush, box.x, box.y, box.width, box.height);
    }
}

}  // namespace

void DrawBubble(Gdiplus::Graphics& graphics, const Bubble& bubble) {
    const BubbleLook look = BubbleLookFor(bubble, g_playField.animClock);
    for (int32_t i = 0; i < look.count; ++i) DrawEllipseLook(graphics, look.ellipses[i]);
}

void DrawPopEffects(Gdiplus::Graphics& graphics, const Rect& clip) {
    EllipseLook look;
    for (const PopRing& ring : g_playField.rings) {
        if (RingLook(ring, clip, look)) DrawEllipseLook(graphics, look);
    }
    for (const PopParticle& particle : g_playField.particles) {
        if (ParticleLook(particle, clip, look)) DrawEllipseLook(graphics, look);
    }
}
