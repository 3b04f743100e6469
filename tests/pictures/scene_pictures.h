// The reference-picture test over any drawing backend: the scenes are
// staged, composed by the backend into small off-screen windows, cut out
// and compared with the pictures in a folder of references.
#pragma once

#include <cstdint>
#include <filesystem>

#include "play/display_records.h"
#include "tests/pictures/picture_compare.h"

// Where the references are, where the pictures and difference maps of a run
// go; set by the backend's main before the tests run.
extern std::filesystem::path g_referenceFolder;
extern std::filesystem::path g_outputFolder;

struct Scene;

// The backend's part. Whether it can draw the scene as it is meant (a
// scene without fonts needs a program that finds none).
bool BackendDrawsScene(const Scene& scene);
// Called before a scene is staged: the play field lays the penguin out by
// the sizes of the pose pictures as the system reports them.
void ReportPoseSizes();
// Buffers for every display window, with the landscape
// (or the plain background) in place in both.
void MakeWindowBuffers(bool plainBackground);
// Puts the landscape back under the client rectangle and composes the
// frame's layers over it, as a paint does.
void ComposeWindow(DisplayWindow& window, const Rect& dirty);
// A pixel of the window's frame as 0x00RRGGBB, by client coordinates.
uint32_t FramePixel(size_t window, int32_t x, int32_t y);
void ReleaseWindowBuffers();
bool SavePng(const Picture& picture, const std::filesystem::path& file);
// The picture in the file; empty when there is none.
Picture LoadPng(const std::filesystem::path& file);
