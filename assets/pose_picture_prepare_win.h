// A loaded pose picture turned into the cleaned-up 32-bit ARGB bitmap the
// penguin is drawn from, once per picture at start-up.
#pragma once

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include <memory>

// A same-size 32-bit ARGB copy of `image` with its specks removed, its
// outline softened and its colours bled into the transparent border; none
// when `image` is none or no working bitmap could be made (the loader then
// keeps the picture as it is). Called by the pose picture loader.
std::unique_ptr<Gdiplus::Bitmap> PreparePosePicture(Gdiplus::Image* image);

// The filters on a GDI+ bitmap: each locks the whole bitmap as 32-bit ARGB
// for reading and writing; a lock that fails leaves the bitmap unchanged.
void RemoveSpecks(Gdiplus::Bitmap& bitmap);
void SoftenOutline(Gdiplus::Bitmap& bitmap);
void BleedColours(Gdiplus::Bitmap& bitmap);
