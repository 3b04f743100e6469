// The penguin's pose pictures, loaded once at start-up from assets\penguin
// beside the executable and kept until the end of the process.
#pragma once

#include <cstdint>
#include <string>

// The four pose pictures: standing, blowing, celebrating, cheering.
enum class PoseImage { Idle, Blow, Celebrate, Cheer };

// Loads and cleans up every pose picture found in the folder; missing or
// unreadable pictures leave their slot empty, and a missing standing or
// celebrating picture is looked for under further names. Called once by
// start-up after GDI+ has started and before the windows exist.
void LoadPenguinImages(const std::wstring& folder);

// Frees the pictures and empties every slot. Called by start-up and by the
// teardown before GDI+ shuts down.
void ReleasePenguinImages();

// The size in pixels of a loaded pose picture, each side at least 1; false
// when that slot is empty. The play field places the penguin and its hit
// test with it.
bool PoseImageSize(PoseImage image, int32_t& width, int32_t& height);

// Whether the celebrating picture came from "yatta.png" itself: only then
// does the celebration cross-fade into it.
bool CelebratingIsYatta();
