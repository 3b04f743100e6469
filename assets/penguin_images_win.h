// The pose pictures as GDI+ images: the slots the penguin is drawn from and
// the loader's pieces.
#pragma once

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "assets/penguin_images.h"

// One pose slot, the only owner of its picture: putting a new picture in
// deletes the old one, and deleting the image disposes of it in GDI+.
using PoseSlot = std::unique_ptr<Gdiplus::Image>;

// Filled once by LoadPenguinImages and emptied by ReleasePenguinImages;
// only the penguin's drawing and its hit test read it. Each slot normally
// holds the prepared 32-bit ARGB copy of its file.
struct PenguinImages {
    PoseSlot blowImage;       // blowing bubbles: "bubble.png"
    PoseSlot idleImage;       // standing
    PoseSlot celebrateImage;  // celebrating a new record or a gold bubble
    PoseSlot cheerImage;      // cheering: "hurray.png"; only stands in for a missing pose
    // celebrateImage came from "yatta.png" itself: only then does the
    // celebration cross-fade into it.
    bool celebratingIsYatta = false;
};

extern PenguinImages g_penguinImages;

// The picture in a pose's slot, or null while the slot is empty. Read by
// the penguin's drawing and for the pictures' sizes.
Gdiplus::Image* PoseSlotImage(PoseImage pose);

// Further file stems (without ".png") tried, in order, for a missing
// standing or celebrating picture.
extern const std::array<std::wstring_view, 9> PoseFallbackNames;

// Loads folder\name.png into the slot unless the slot is already filled or
// the name is empty; a file that does not load leaves the slot empty.
void LoadPoseSlot(const std::wstring& folder, PoseSlot& slot, std::wstring_view name);

// The picture at `path`, decoded and cleaned up, or none when nothing is
// there or it does not decode. Used by the loader (and its tests).
PoseSlot LoadSpriteFile(const std::wstring& path);
