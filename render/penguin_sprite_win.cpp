// Drawing the penguin from its pose pictures.
#include "render/penguin_sprite_win.h"

#include "assets/penguin_images_win.h"
#include "render/penguin_motion.h"
#include "render/pose_drawing_win.h"

void DrawPenguin(Gdiplus::Graphics& graphics) {
    const PenguinDraws plan = PlanPenguin(g_penguinImages.celebratingIsYatta);
    for (int32_t i = 0; i < plan.count; ++i) DrawPoseImage(graphics, plan.draws[i]);
}
