// The reference scenes as cairo draws them natively: the frame's layers
// composed by the program's own drawers over cairo image surfaces, the
// landscape copied back under each repainted rectangle first.
#include <cairo.h>
#include <gtest/gtest.h>

#include "assets/fonts.h"
#include "assets/penguin_images.h"
#include "render/canvas_linux.h"
#include "render/frame_buffers.h"
#include "render/window_buffers_linux.h"
#include "render/frame_composition.h"
#include "render/scenery.h"
#include "tests/pictures/scene_pictures.h"
#include "tests/pictures/scenes.h"
#include "tests/unit/fake_platform.h"

namespace {

cairo_surface_t* Frame(size_t window) { return FrameSurface(g_displayWindows[window]); }

void CopyAll(cairo_surface_t* from, cairo_surface_t* to) {
    cairo_t* cr = cairo_create(to);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cr, from, 0, 0);
    cairo_paint(cr);
    cairo_destroy(cr);
}

}  // namespace

// A native test program always finds the fonts of its build.
bool BackendDrawsScene(const Scene& scene) { return !scene.withoutFonts; }

// Among the unit tests the pose sizes come from their stand-in for the
// system, which is told the loaded pictures' sizes.
void ReportPoseSizes() {
    g_fake.poseSizes.clear();
    for (PosePictureKind pose : {PosePictureKind::Idle, PosePictureKind::Blow, PosePictureKind::Celebrate, PosePictureKind::Cheer}) {
        int32_t width = 0, height = 0;
        if (const PosePicture* picture = LoadedPosePicture(pose)) {
            PosePictureSize(*picture, width, height);
            g_fake.poseSizes[pose] = {width, height};
        }
    }
}

// The program's own buffers and landscape; the composition is the
// program's ComposeFrame.
void MakeWindowBuffers(bool plainBackground) {
    for (DisplayWindow& window : g_displayWindows) {
        // Buffers are made only for a window that exists.
        window.window = FakeWindow(static_cast<uintptr_t>(&window - g_displayWindows.data()) + 1);
        CreateWindowBuffers(window);
        if (plainBackground) {
            cairo_t* cr = cairo_create(ScenerySurface(window));
            cairo_set_source_rgb(cr, (kPlainBackground >> 16 & 0xFF) / 255.0,
                                 (kPlainBackground >> 8 & 0xFF) / 255.0, (kPlainBackground & 0xFF) / 255.0);
            cairo_paint(cr);
            cairo_destroy(cr);
        } else {
            RenderScenery(window);
        }
        CopyAll(ScenerySurface(window), FrameSurface(window));
    }
}

void ComposeWindow(DisplayWindow& window, const Rect& dirty) { ComposeFrame(window, dirty); }

uint32_t FramePixel(size_t window, int32_t x, int32_t y) {
    cairo_surface_t* frame = Frame(window);
    cairo_surface_flush(frame);
    const uint8_t* row = cairo_image_surface_get_data(frame) + y * cairo_image_surface_get_stride(frame);
    return reinterpret_cast<const uint32_t*>(row)[x] & 0xFFFFFF;
}

void ReleaseWindowBuffers() {
    for (DisplayWindow& window : g_displayWindows) ::ReleaseWindowBuffers(window);
}

// The pictures are opaque, or wholly transparent outside the windows, so
// cairo's premultiplied pixels are the plain ones.
bool SavePng(const Picture& picture, const std::filesystem::path& file) {
    cairo_surface_t* surface = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(const_cast<uint32_t*>(picture.pixels.data())), CAIRO_FORMAT_ARGB32,
        picture.width, picture.height, picture.width * 4);
    const bool written = cairo_surface_write_to_png(surface, file.c_str()) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(surface);
    return written;
}

Picture LoadPng(const std::filesystem::path& file) {
    cairo_surface_t* surface = cairo_image_surface_create_from_png(file.c_str());
    Picture picture;
    if (cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS) {
        picture.width = cairo_image_surface_get_width(surface);
        picture.height = cairo_image_surface_get_height(surface);
        const uint8_t* data = cairo_image_surface_get_data(surface);
        for (int32_t y = 0; y < picture.height; ++y) {
            const auto* row = reinterpret_cast<const uint32_t*>(data + y * cairo_image_surface_get_stride(surface));
            picture.pixels.insert(picture.pixels.end(), row, row + picture.width);
        }
    }
    cairo_surface_destroy(surface);
    return picture;
}

// The folders come from the build: the references in the source tree, the
// shipped pose pictures and a "Fonts" folder beside this program, read once
// around all the tests.
class PictureFolders : public testing::Environment {
public:
    void SetUp() override {
        g_referenceFolder = PUFFINO_CAIRO_REFERENCES;
        g_outputFolder = PUFFINO_PICTURES_OUT;
        std::filesystem::create_directories(g_outputFolder);
        LoadPenguinImages(std::filesystem::path(PUFFINO_POSE_FOLDER).wstring());
    }
    void TearDown() override {
        ReleasePenguinImages();
        ReleaseFonts();
    }
};
testing::Environment* const g_pictureFolders = testing::AddGlobalTestEnvironment(new PictureFolders);

// fontconfig keeps its configuration and caches for the life of the
// process: not a leak of ours.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }
