// Decoding the pose pictures with libpng into the plain buffer the clean-up
// filters work on, then into cairo surfaces.
#include "assets/penguin_images_linux.h"

#include <png.h>

#include <optional>
#include <string>
#include <vector>

#include "assets/file_paths.h"
#include "assets/pose_picture_filters.h"
#include "assets/whole_file.h"

void PosePictureDeleter::operator()(PosePicture* picture) const {
    if (picture && picture->surface) cairo_surface_destroy(picture->surface);
    delete picture;
}

namespace {

// The file's bytes as blue, green, red, alpha bytes, not premultiplied: the
// layout the filters take. Empty when they do not decode.
std::vector<uint8_t> DecodePng(const std::string& file, int32_t& width, int32_t& height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, file.data(), file.size())) return {};
    image.format = PNG_FORMAT_BGRA;
    std::vector<uint8_t> pixels(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr)) {
        png_image_free(&image);
        return {};
    }
    width = static_cast<int32_t>(image.width);
    height = static_cast<int32_t>(image.height);
    return pixels;
}

}  // namespace

OwnedPosePicture LoadPosePictureFile(const std::wstring& path) {
    if (path.empty()) return nullptr;
    // Read whole before decoding: a folder or a fifo with a picture's name,
    // or a file that cannot be read, is no picture.
    const std::optional<std::string> file = ReadWholeFile(FilePath(path));
    if (!file) return nullptr;
    int32_t width = 0, height = 0;
    std::vector<uint8_t> pixels = DecodePng(*file, width, height);
    if (pixels.empty()) return nullptr;

    const PicturePixels picturePixels{pixels.data(), width, height, static_cast<ptrdiff_t>(width) * 4};
    RemoveSpecks(picturePixels);
    SoftenOutline(picturePixels);
    BleedColours(picturePixels);

    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(surface);
        return nullptr;
    }
    cairo_surface_flush(surface);
    uint8_t* data = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    for (int32_t y = 0; y < height; ++y) {
        const uint8_t* from = pixels.data() + static_cast<size_t>(y) * width * 4;
        auto* to = reinterpret_cast<uint32_t*>(data + static_cast<size_t>(y) * stride);
        for (int32_t x = 0; x < width; ++x, from += 4) {
            const uint32_t a = from[3];
            const auto premultiplied = [a](uint32_t c) { return (c * a + 127) / 255; };
            to[x] = a << 24 | premultiplied(from[2]) << 16 | premultiplied(from[1]) << 8 | premultiplied(from[0]);
        }
    }
    cairo_surface_mark_dirty(surface);
    return OwnedPosePicture(new PosePicture{surface, width, height});
}

void PosePictureSize(const PosePicture& picture, int32_t& width, int32_t& height) {
    width = picture.width;
    height = picture.height;
}
