// The GDI+ side of the pose-picture clean-up: the working copy and the pixel locks
// around the portable filters.
#include "assets/pose_picture_prepare_win.h"

#include <algorithm>

#include "assets/pose_picture_filters.h"

namespace {

// Runs a portable filter over the whole bitmap's pixels inside one lock.
void FilterLocked(Gdiplus::Bitmap& bitmap, void (*filter)(const PicturePixels&)) {
    const INT width = static_cast<INT>(bitmap.GetWidth());
    const INT height = static_cast<INT>(bitmap.GetHeight());
    Gdiplus::Rect whole(0, 0, width, height);
    Gdiplus::BitmapData data{};
    const UINT mode = Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeWrite;
    if (bitmap.LockBits(&whole, mode, PixelFormat32bppARGB, &data) != Gdiplus::Ok) return;
    filter({static_cast<uint8_t*>(data.Scan0), width, height, data.Stride});
    bitmap.UnlockBits(&data);
}

}  // namespace

void RemoveSpecks(Gdiplus::Bitmap& bitmap) { FilterLocked(bitmap, RemoveSpecks); }
void SoftenOutline(Gdiplus::Bitmap& bitmap) { FilterLocked(bitmap, SoftenOutline); }
void BleedColours(Gdiplus::Bitmap& bitmap) { FilterLocked(bitmap, BleedColours); }

std::unique_ptr<Gdiplus::Bitmap> PreparePosePicture(Gdiplus::Image* image) {
    if (!image) return nullptr;
    // A size that cannot be read counts as one pixel.
    const INT width = std::max<INT>(static_cast<INT>(image->GetWidth()), 1);
    const INT height = std::max<INT>(static_cast<INT>(image->GetHeight()), 1);

    std::unique_ptr<Gdiplus::Bitmap> bitmap(new Gdiplus::Bitmap(width, height, PixelFormat32bppARGB));
    if (bitmap->GetLastStatus() != Gdiplus::Ok) return nullptr;

    {
        // A 1:1 copy with source-copy compositing: the picture's alpha is
        // copied, not blended over the cleared background.
        Gdiplus::Graphics graphics(bitmap.get());
        graphics.SetCompositingMode(Gdiplus::CompositingModeSourceCopy);
        graphics.Clear(Gdiplus::Color(0, 0, 0, 0));
        graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
        graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHighQuality);
        graphics.SetCompositingQuality(Gdiplus::CompositingQualityHighQuality);
        graphics.SetSmoothingMode(Gdiplus::SmoothingModeHighQuality);
        graphics.DrawImage(image, Gdiplus::Rect(0, 0, width, height), 0, 0, width, height,
                           Gdiplus::UnitPixel);
    }

    RemoveSpecks(*bitmap);
    SoftenOutline(*bitmap);
    BleedColours(*bitmap);
    return bitmap;
}
