// The penguin's pose pictures, loaded once at start-up from assets\penguin
// beside the executable and kept until the end of the process.
#pragma once

#include <string>

// Loads and cleans up every pose picture found in the folder; missing or
// unreadable pictures leave their slot empty.
void LoadPenguinImages(const std::wstring& folder);

// Frees the pictures; called before GDI+ shuts down.
void ReleasePenguinImages();
