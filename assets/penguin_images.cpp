// Which pose picture fills which slot, with the fallback names.
#include "assets/penguin_images.h"

#include "assets/asset_paths.h"

PenguinImages g_penguinImages;

// Names a parent or an artist might give a replacement penguin picture:
// the plain standing names first, so that the standing slot prefers a calm
// picture; then the blowing picture (always fourth); then the other moods
// from calm to lively. A folder holding any single penguin picture under
// one of these names still gives the standing and celebrating slots
// something to draw.
const std::array<std::wstring_view, 9> PoseFallbackNames = {
    L"stand", L"standing", L"penguin", L"bubble", L"blow", L"happy", L"cheer", L"hurray", L"yatta",
};

namespace {

// Loads folder\name.png into the slot unless the slot is already filled.
void LoadPoseSlot(const std::wstring& folder, PoseSlot& slot, std::wstring_view name) {
    if (slot) return;
    slot = LoadSpriteFile(JoinPath(folder, std::wstring(name) + L".png"));
}

void LoadWithFallbacks(const std::wstring& folder, PoseSlot& slot) {
    LoadPoseSlot(folder, slot, L"bubble");
    for (const std::wstring_view name : PoseFallbackNames) LoadPoseSlot(folder, slot, name);
}

}  // namespace

void LoadPenguinImages(const std::wstring& folder) {
    ReleasePenguinImages();
    if (folder.empty()) return;
    PenguinImages& images = g_penguinImages;

    images.blowImage = LoadSpriteFile(JoinPath(folder, L"bubble.png"));

    // The standing and celebrating slots borrow the blowing picture (as a
    // copy of their own) and then any fallback name rather than stay empty.
    LoadPoseSlot(folder, images.idleImage, L"idle");
    LoadWithFallbacks(folder, images.idleImage);

    LoadPoseSlot(folder, images.celebrateImage, L"yatta");
    images.celebratingIsYatta = images.celebrateImage != nullptr;
    LoadPoseSlot(folder, images.celebrateImage, L"happy");
    LoadWithFallbacks(folder, images.celebrateImage);

    LoadPoseSlot(folder, images.cheerImage, L"hurray");
}

void ReleasePenguinImages() {
    // reset() empties the slot before it deletes the picture.
    g_penguinImages.blowImage.reset();
    g_penguinImages.idleImage.reset();
    g_penguinImages.celebrateImage.reset();
    g_penguinImages.cheerImage.reset();
    g_penguinImages.celebratingIsYatta = false;
}

const PosePicture* PoseSlotPicture(PoseImage pose) {
    const PenguinImages& images = g_penguinImages;
    switch (pose) {
        case PoseImage::Idle: return images.idleImage.get();
        case PoseImage::Blow: return images.blowImage.get();
        case PoseImage::Celebrate: return images.celebrateImage.get();
        case PoseImage::Cheer: return images.cheerImage.get();
    }
    return nullptr;
}

bool CelebratingIsYatta() { return g_penguinImages.celebratingIsYatta; }
