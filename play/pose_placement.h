// Where the penguin's picture goes: which pose picture stands in for a pose,
// the rectangle it is drawn into, and the mouth point the blown bubbles
// come from. The penguin drawing, the layout and the penguin hit test all
// place the picture through these, so what a child touches is what is drawn.
#pragma once

#include <optional>

#include "assets/penguin_images.h"

// The poses the penguin is drawn in.
enum Pose : int {
    kPoseStanding = 0,
    kPoseBlowing = 1,
    kPoseCelebrating = 2,
};

// A drawn picture's rectangle in play-field pixels.
struct PoseRect {
    float x = 0, y = 0, width = 0, height = 0;
};

// The picture to draw for a pose: its own when loaded, else the first loaded
// of standing, cheering, blowing, celebrating; none when no picture loaded.
std::optional<PosePictureKind> SelectPosePicture(int pose);

// The rectangle a picture fills when it is scaled uniformly to the height
// max(height, 40) and stands centred on (centreX, bottom), moved down by
// offsetY. Without a picture it is placed as if 100 x 100 pixels.
PoseRect PlacePosePicture(std::optional<PosePictureKind> image, float centreX, float bottom, float height,
                        float offsetY);

// The x from which the penguin blows: 72 % across the blowing picture (or
// its stand-in) placed centred on centreX at that height. The bobbing moves
// the picture up and down only, so the layout works it out once.
float MouthX(float centreX, float height);
