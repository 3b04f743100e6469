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
void LoadPosePicture(const std::wstring& folder, OwnedPosePicture& slot, std::wstring_view name) {
    if (slot) return;
    slot = LoadPosePictureFile(JoinPath(folder, std::wstring(name) + L".png"));
}

void LoadWithFallbacks(const std::wstring& folder, OwnedPosePicture& slot) {
    LoadPosePicture(folder, slot, L"bubble");
    for (const std::wstring_view name : PoseFallbackNames) LoadPosePicture(folder, slot, name);
}

}  // namespace

void LoadPenguinImages(const std::wstring& folder) {
    ReleasePenguinImages();
    if (folder.empty()) return;
    PenguinImages& images = g_penguinImages;

    images.blowPicture = LoadPosePictureFile(JoinPath(folder, L"bubble.png"));

    // The standing and celebrating slots borrow the blowing picture (as a
    // copy of their own) and then any fallback name rather than stay empty.
    LoadPosePicture(folder, images.idlePicture, L"idle");
    LoadWithFallbacks(folder, images.idlePicture);

    LoadPosePicture(folder, images.celebratePicture, L"yatta");
    images.celebratingIsYatta = images.celebratePicture != nullptr;
    LoadPosePicture(folder, images.celebratePicture, L"happy");
    LoadWithFallbacks(folder, images.celebratePicture);

    LoadPosePicture(folder, images.cheerPicture, L"hurray");
}

void ReleasePenguinImages() {
    // reset() empties the slot before it deletes the picture.
    g_penguinImages.blowPicture.reset();
    g_penguinImages.idlePicture.reset();
    g_penguinImages.celebratePicture.reset();
    g_penguinImages.cheerPicture.reset();
    g_penguinImages.celebratingIsYatta = false;
}

const PosePicture* LoadedPosePicture(PosePictureKind pose) {
    const PenguinImages& images = g_penguinImages;
    switch (pose) {
        case PosePictureKind::Idle: return images.idlePicture.get();
        case PosePictureKind::Blow: return images.blowPicture.get();
        case PosePictureKind::Celebrate: return images.celebratePicture.get();
        case PosePictureKind::Cheer: return images.cheerPicture.get();
    }
    return nullptr;
}

bool CelebratingIsYatta() { return g_penguinImages.celebratingIsYatta; }
