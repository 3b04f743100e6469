// Decoding and preparing the pose pictures through GDI+.
#include "assets/penguin_images_win.h"

#include <filesystem>
#include <system_error>

#include "assets/pose_picture_prepare_win.h"

void PosePictureDeleter::operator()(PosePicture* picture) const { delete picture; }

OwnedPosePicture LoadPosePictureFile(const std::wstring& path) {
    if (path.empty()) return nullptr;
    // Ask without raising: nothing there, or no answer, means no picture.
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (error || !std::filesystem::exists(status)) return nullptr;

    // A file GDI+ cannot decode (or a folder with a picture's name) is
    // skipped; the owner disposes of whatever was created.
    std::unique_ptr<Gdiplus::Image> loaded(new Gdiplus::Image(path.c_str()));
    if (loaded->GetLastStatus() != Gdiplus::Ok) return nullptr;

    OwnedPosePicture picture(new PosePicture);
    picture->image = PreparePosePicture(loaded.get());
    if (!picture->image) picture->image = std::move(loaded);  // no working copy could be made: drawn unprepared
    return picture;
}

void PosePictureSize(const PosePicture& picture, int32_t& width, int32_t& height) {
    width = static_cast<int32_t>(picture.image->GetWidth());
    height = static_cast<int32_t>(picture.image->GetHeight());
}
