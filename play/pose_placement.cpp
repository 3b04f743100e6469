// Pose picture choice and placement over the loaded pictures' sizes.
#include "play/pose_placement.h"

#include <algorithm>

namespace {

bool IsLoaded(PosePictureKind image) {
    int32_t width = 0, height = 0;
    return LoadedPoseSize(image, width, height);
}

std::optional<PosePictureKind> FirstLoaded(std::initializer_list<PosePictureKind> order) {
    for (PosePictureKind image : order) {
        if (IsLoaded(image)) return image;
    }
    return std::nullopt;
}

}  // namespace

std::optional<PosePictureKind> SelectPosePicture(int pose) {
    if (pose == kPoseBlowing && IsLoaded(PosePictureKind::Blow)) return PosePictureKind::Blow;
    if (pose == kPoseCelebrating && IsLoaded(PosePictureKind::Celebrate)) return PosePictureKind::Celebrate;
    return FirstLoaded({PosePictureKind::Idle, PosePictureKind::Cheer, PosePictureKind::Blow, PosePictureKind::Celebrate});
}

PoseRect PlacePosePicture(std::optional<PosePictureKind> image, float centreX, float bottom, float height,
                        float offsetY) {
    int32_t imageWidth = 100, imageHeight = 100;  // the stand-in square
    if (image && LoadedPoseSize(*image, imageWidth, imageHeight)) {
        // A size that could not be read counts as one pixel.
        imageWidth = std::max(imageWidth, 1);
        imageHeight = std::max(imageHeight, 1);
    } else {
        imageWidth = imageHeight = 100;
    }
    const float drawnHeight = std::max(height, 40.0f);
    const float k = drawnHeight / static_cast<float>(imageHeight);
    const float dh = k * static_cast<float>(imageHeight);
    const float dw = k * static_cast<float>(imageWidth);
    return {centreX - dw / 2, bottom - dh + offsetY, dw, dh};
}

float MouthX(float centreX, float height) {
    const std::optional<PosePictureKind> image =
        FirstLoaded({PosePictureKind::Blow, PosePictureKind::Idle, PosePictureKind::Cheer, PosePictureKind::Celebrate});
    const PoseRect rect = PlacePosePicture(image, centreX, 0, height, 0);
    return rect.x + 0.72f * rect.width;
}
