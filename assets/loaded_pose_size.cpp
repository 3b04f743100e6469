// The size of a loaded pose picture, as the play field asks for it to place
// the penguin. A file of its own: the play field's tests stand in for it.
#include <algorithm>

#include "assets/penguin_images.h"

bool LoadedPoseSize(PosePictureKind pose, int32_t& width, int32_t& height) {
    const PosePicture* picture = LoadedPosePicture(pose);
    if (!picture) return false;
    PosePictureSize(*picture, width, height);
    // A size that cannot be read counts as one pixel.
    width = std::max<int32_t>(width, 1);
    height = std::max<int32_t>(height, 1);
    return true;
}
