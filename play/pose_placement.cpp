// Pose picture choice and placement over the loaded pictures' sizes.
#include "play/pose_placement.h"

#include <algorithm>

namespace {

bool IsLoaded(PoseImage image) {
    int32_t width = 0, height = 0;
    return PoseImageSize(image, width, height);
}

std::optional<PoseImage> FirstLoaded(std::initializer_list<PoseImage> order) {
    for (PoseImage image : order) {
        if (IsLoaded(image)) return image;
    }
    return std::nullopt;
}

}  // namespace

std::optional<PoseImage> SelectPoseImage(int pose) {
    if (pose == kPoseBlowing && IsLoaded(PoseImage::Blow)) return PoseImage::Blow;
    if (pose == kPoseCelebrating && IsLoaded(PoseImage::Celebrate)) return PoseImage::Celebrate;
    return FirstLoaded({PoseImage::Idle, PoseImage::Cheer, PoseImage::Blow, PoseImage::Celebrate});
}

PoseRect PlacePoseImage(std::optional<PoseImage> image, float centreX, float bottom, float height,
                        float offsetY) {
    int32_t imageWidth = 100, imageHeight = 100;  // the stand-in square
    if (image && PoseImageSize(*image, imageWidth, imageHeight)) {
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
    const std::optional<PoseImage> image =
        FirstLoaded({PoseImage::Blow, PoseImage::Idle, PoseImage::Cheer, PoseImage::Celebrate});
    const PoseRect rect = PlacePoseImage(image, centreX, 0, height, 0);
    return rect.x + 0.72f * rect.width;
}
