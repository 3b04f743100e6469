// Pose picture loading through GDI+.
#include "assets/penguin_images.h"

void LoadPenguinImages(const std::wstring&) {
    // The pose pictures join with the penguin.
}

void ReleasePenguinImages() {}
