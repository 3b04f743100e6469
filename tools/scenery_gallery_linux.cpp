// Paints every landscape at 1920 x 1080 and at 1280 x 1024 into PNG files
// through the Linux edition's own scenery painting, so that the harness
// knows each theme as the native windows show it.
//
//   scenery_gallery FOLDER   (made if missing)
#include <cairo.h>

#include <filesystem>
#include <string>

#include "render/frame_buffers.h"
#include "render/window_buffers_linux.h"
#include "render/scenery_layout.h"

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    std::error_code ignored;
    std::filesystem::create_directories(argv[1], ignored);
    const char* const themes[kSceneryThemeCount] = {"seaside", "mountains", "park", "garden", "flower-field"};
    int failures = 0;
    for (const auto& [width, height] : {std::pair{1920, 1080}, std::pair{1280, 1024}}) {
        for (uint32_t theme = 0; theme < kSceneryThemeCount; ++theme) {
            DisplayWindow window;
            window.width = width;
            window.height = height;
            window.sceneryTheme = theme;
            window.buffers = std::make_shared<WindowBuffers>();
            window.buffers->scenerySurface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
            RenderScenery(window);
            const std::string file = std::string(argv[1]) + "/" + themes[theme] + "-" + std::to_string(width) +
                                     "x" + std::to_string(height) + ".png";
            if (cairo_surface_write_to_png(ScenerySurface(window), file.c_str()) != CAIRO_STATUS_SUCCESS) ++failures;
            cairo_surface_destroy(ScenerySurface(window));
        }
    }
    return failures == 0 ? 0 : 1;
}
