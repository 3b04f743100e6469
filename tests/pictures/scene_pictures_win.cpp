// The reference scenes as GDI+ draws them: composed by the program's own
// frame composition into 32-bit DIB sections, one pair per display window.
//
//   scene_pictures.exe REFERENCE_FOLDER OUTPUT_FOLDER POSE_FOLDER [GoogleTest options]
#include <memory>

#include "assets/fonts.h"
#include "assets/penguin_images.h"
#include "render/frame_buffers.h"
#include "render/window_buffers_win.h"
#include "tests/pictures/scene_pictures.h"
#include "tests/pictures/scenes.h"
#include "tests/wine/gdiplus_test_support_win.h"

namespace {

// Both buffers of a display window as DIB sections, whose pixels the test
// reads directly.
struct Buffers {
    explicit Buffers(DisplayWindow& window) : window(window) {
        window.buffers = std::make_shared<WindowBuffers>();
        WindowBuffers& buffers = *window.buffers;
        frame = Make(buffers.frameDC, buffers.frameBitmap, buffers.frameOldBitmap);
        scenery = Make(buffers.sceneryDC, buffers.sceneryBitmap, buffers.sceneryOldBitmap);
    }
    ~Buffers() { ::ReleaseWindowBuffers(window); }
    uint32_t* Make(HDC& dc, HBITMAP& bitmap, HGDIOBJ& old) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
        info.bmiHeader.biWidth = window.width;
        info.bmiHeader.biHeight = -window.height;  // top-down rows
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        dc = CreateCompatibleDC(nullptr);
        bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        old = SelectObject(dc, bitmap);
        return static_cast<uint32_t*>(bits);
    }
    DisplayWindow& window;
    uint32_t* frame = nullptr;
    uint32_t* scenery = nullptr;
};
std::vector<std::unique_ptr<Buffers>> g_buffers;

}  // namespace

// The copy of this program away from the "Fonts" folder draws the scenes
// without fonts; each run chooses its scenes by name.
bool BackendDrawsScene(const Scene&) { return true; }

// The program's own loader answers for the sizes.
void ReportPoseSizes() {}

void MakeWindowBuffers(bool plainBackground) {
    for (DisplayWindow& window : g_displayWindows) {
        Buffers& b = *g_buffers.emplace_back(std::make_unique<Buffers>(window));
        if (plainBackground) {
            std::fill(b.scenery, b.scenery + window.width * window.height, kPlainBackground);
        } else {
            RenderScenery(window);
        }
        GdiFlush();
        BitBlt(FrameDC(window), 0, 0, window.width, window.height, SceneryDC(window), 0, 0, SRCCOPY);
    }
}

void ComposeWindow(DisplayWindow& window, const Rect& dirty) {
    ComposeFrame(window, dirty);
    GdiFlush();
}

uint32_t FramePixel(size_t window, int32_t x, int32_t y) {
    const Buffers& b = *g_buffers[window];
    return b.frame[y * b.window.width + x] & 0xFFFFFF;
}

void ReleaseWindowBuffers() { g_buffers.clear(); }

bool SavePng(const Picture& picture, const std::filesystem::path& file) {
    Gdiplus::Bitmap bitmap(picture.width, picture.height, picture.width * 4, PixelFormat32bppARGB,
                           reinterpret_cast<BYTE*>(const_cast<uint32_t*>(picture.pixels.data())));
    return SavePng(bitmap, file.wstring());
}

Picture LoadPng(const std::filesystem::path& file) {
    if (!std::filesystem::exists(file)) return {};
    Gdiplus::Bitmap bitmap(file.wstring().c_str());
    return {static_cast<int32_t>(bitmap.GetWidth()), static_cast<int32_t>(bitmap.GetHeight()), PixelsOf(bitmap)};
}

int wmain(int argc, wchar_t** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (argc < 4) return 2;
    g_referenceFolder = argv[1];
    g_outputFolder = argv[2];
    std::filesystem::create_directories(g_outputFolder);
    Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    // The fonts come from the "Fonts" folder beside this program, if any.
    LoadPenguinImages(argv[3]);
    const int result = RUN_ALL_TESTS();
    ReleasePenguinImages();
    ReleaseFonts();
    Gdiplus::GdiplusShutdown(token);
    return result;
}
