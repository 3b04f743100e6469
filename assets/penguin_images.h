// The penguin's pose pictures, loaded once at start-up from assets\penguin
// beside the executable and kept until the end of the process. Which file
// fills which slot is decided here; decoding a file into a prepared picture
// is the drawing backend's (penguin_images_win.cpp, penguin_images_linux.cpp).
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

// The four pose pictures: standing, blowing, celebrating, cheering.
enum class PosePictureKind { Idle, Blow, Celebrate, Cheer };

// A decoded, cleaned-up picture as the backend draws it.
struct PosePicture;
struct PosePictureDeleter {
    void operator()(PosePicture* picture) const;
};
// One owned pose picture, the only owner of its picture: putting a new one in
// deletes the old one.
using OwnedPosePicture = std::unique_ptr<PosePicture, PosePictureDeleter>;

// Filled once by LoadPenguinImages and emptied by ReleasePenguinImages;
// only the penguin's drawing and its hit test read it.
struct PenguinImages {
    OwnedPosePicture blowPicture;       // blowing bubbles: "bubble.png"
    OwnedPosePicture idlePicture;       // standing
    OwnedPosePicture celebratePicture;  // celebrating a new record or a gold bubble
    OwnedPosePicture cheerPicture;      // cheering: "hurray.png"; only stands in for a missing pose
    // celebratePicture came from "yatta.png" itself: only then does the
    // celebration cross-fade into it.
    bool celebratingIsYatta = false;
};
extern PenguinImages g_penguinImages;

// Further file stems (without ".png") tried, in order, for a missing
// standing or celebrating picture.
extern const std::array<std::wstring_view, 9> PoseFallbackNames;

// Loads and cleans up every pose picture found in the folder; missing or
// unreadable pictures leave their slot empty, and a missing standing or
// celebrating picture is looked for under further names. Called once by
// start-up before the windows exist.
void LoadPenguinImages(const std::wstring& folder);

// Frees the pictures and empties every slot. Called by start-up and by the
// teardown before the drawing backend shuts down.
void ReleasePenguinImages();

// The picture in a pose's slot, or null while the slot is empty.
const PosePicture* LoadedPosePicture(PosePictureKind pose);

// The size in pixels of a loaded pose picture, each side at least 1; false
// when that slot is empty. The play field places the penguin and its hit
// test with it.
bool LoadedPoseSize(PosePictureKind image, int32_t& width, int32_t& height);

// Whether the celebrating picture came from "yatta.png" itself.
bool CelebratingIsYatta();

// The backend's part. The picture at `path`, decoded and cleaned up, or
// none when nothing is there or it does not decode.
OwnedPosePicture LoadPosePictureFile(const std::wstring& path);
// The picture's size as its backend reads it (0 when it cannot).
void PosePictureSize(const PosePicture& picture, int32_t& width, int32_t& height);
