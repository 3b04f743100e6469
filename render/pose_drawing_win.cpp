// A pose picture drawn through GDI+, its alpha scaled by a colour matrix.
#include "render/pose_drawing_win.h"

#include "assets/penguin_images_win.h"
#include "render/pose_placement.h"

namespace {

// Puts the graphics object's quality modes and world transform back as they
// were when it was made, whichever way the drawing leaves.
class SavedGraphicsState {
public:
    explicit SavedGraphicsState(Gdiplus::Graphics& graphics)
        : graphics_(graphics),
          interpolation_(graphics.GetInterpolationMode()),
          pixelOffset_(graphics.GetPixelOffsetMode()),
          compositing_(graphics.GetCompositingQuality()),
          smoothing_(graphics.GetSmoothingMode()) {
        graphics.GetTransform(&transform_);
    }
    ~SavedGraphicsState() {
        graphics_.SetTransform(&transform_);
        graphics_.SetInterpolationMode(interpolation_);
        graphics_.SetPixelOffsetMode(pixelOffset_);
        graphics_.SetCompositingQuality(compositing_);
        graphics_.SetSmoothingMode(smoothing_);
    }
    SavedGraphicsState(const SavedGraphicsState&) = delete;
    SavedGraphicsState& operator=(const SavedGraphicsState&) = delete;

private:
    Gdiplus::Graphics& graphics_;
    Gdiplus::Matrix transform_;
    Gdiplus::InterpolationMode interpolation_;
    Gdiplus::PixelOffsetMode pixelOffset_;
    Gdiplus::CompositingQuality compositing_;
    Gdiplus::SmoothingMode smoothing_;
};

}  // namespace

void DrawPoseImage(Gdiplus::Graphics& graphics, const PoseDraw& request) {
    const std::optional<PoseImage> pose = SelectPoseImage(request.pose);
    Gdiplus::Image* image = pose ? PoseSlotImage(*pose) : nullptr;
    if (!image) return;  // no pictures at all: no penguin
    const PoseRect placed =
        PlacePoseImage(pose, request.centreX, request.bottom, request.height, request.offsetY);
    const Gdiplus::RectF rect(placed.x, placed.y, placed.width, placed.height);

    const SavedGraphicsState saved(graphics);
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBilinear);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    graphics.SetCompositingQuality(Gdiplus::CompositingQualityHighQuality);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeHighQuality);

    if (request.opacity >= 0.999f) {
        graphics.DrawImage(image, rect);
    } else if (request.opacity > 0.001f) {
        // Only alpha is scaled; colours pass through unchanged.
        Gdiplus::ColorMatrix matrix{};
        matrix.m[0][0] = matrix.m[1][1] = matrix.m[2][2] = 1;
        matrix.m[3][3] = request.opacity;
        Gdiplus::ImageAttributes attributes;
        attributes.SetColorMatrix(&matrix, Gdiplus::ColorMatrixFlagsDefault,
                                  Gdiplus::ColorAdjustTypeBitmap);
        graphics.DrawImage(image, rect, 0, 0, static_cast<Gdiplus::REAL>(image->GetWidth()),
                           static_cast<Gdiplus::REAL>(image->GetHeight()), Gdiplus::UnitPixel,
                           &attributes);
    }
}
