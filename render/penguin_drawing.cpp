// Drawing the penguin from its pose pictures.
#include "render/penguin_drawing.h"

#include "render/penguin_motion.h"
#include "play/pose_placement.h"

void DrawPenguin(Canvas& canvas) {
    const PenguinDraws plan = PlanPenguin(CelebratingIsYatta());
    for (int32_t i = 0; i < plan.count; ++i) {
        const PoseDraw& draw = plan.draws[i];
        const std::optional<PosePictureKind> pose = SelectPosePicture(draw.pose);
        if (!pose || draw.opacity <= 0.001f) continue;  // no pictures at all: no penguin
        const PoseRect placed = PlacePosePicture(pose, draw.centreX, draw.bottom, draw.height, draw.offsetY);
        DrawPosePicture(canvas, *pose, {placed.x, placed.y, placed.width, placed.height}, draw.opacity);
    }
}
