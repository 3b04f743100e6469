// Pose picture loading through GDI+.
#include "assets/penguin_images.h"

void LoadPenguinImages(const std::wstring&) {
    // The pose pictures join with the penguin.
}

void ReleasePenguinImages() {}

bool PoseImageSize(PoseImage, int32_t&, int32_t&) {
    return false;  // no picture is loaded yet
}
