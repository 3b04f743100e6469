// Bubbles and pop effects turned into fills and outlines; their shapes and
// colours come from bubble_look.cpp.
#include "render/bubble_drawing.h"

#include "play/play_field.h"
#include "render/bubble_look.h"

namespace {

void DrawEllipseLook(Canvas& canvas, const EllipseLook& look) {
    if (look.penWidth > 0) {
        StrokeEllipse(canvas, look.box, Pen{look.argb, look.penWidth});
    } else {
        FillEllipse(canvas, look.box, look.argb);
    }
}

}  // namespace

void DrawBubble(Canvas& canvas, const Bubble& bubble) {
    const BubbleLook look = BubbleLookFor(bubble, g_playField.animClock);
    for (int32_t i = 0; i < look.count; ++i) DrawEllipseLook(canvas, look.ellipses[i]);
}

void DrawPopEffects(Canvas& canvas, const Rect& clip) {
    EllipseLook look;
    for (const PopRing& ring : g_playField.rings) {
        if (RingLook(ring, clip, look)) DrawEllipseLook(canvas, look);
    }
    for (const PopParticle& particle : g_playField.particles) {
        if (ParticleLook(particle, clip, look)) DrawEllipseLook(canvas, look);
    }
}
