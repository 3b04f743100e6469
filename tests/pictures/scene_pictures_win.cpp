// The reference scenes as GDI+ draws them: each composed by the program's
// own frame composition into off-screen 32-bit buffers, one per display
// window, and compared with its picture in the reference folder. A second
// composition of only the rectangles the play field would repaint must
// give the same pixels: nothing is drawn outside its repaint box.
//
//   scene_pictures.exe REFERENCE_FOLDER OUTPUT_FOLDER POSE_FOLDER [GoogleTest options]
//
// With PUFFINO_REMAKE_PICTURES=1 in the environment the rendered pictures
// replace the references instead (after an intended change; look at each).
#include <cstdlib>
#include <memory>

#include "app/display_windows.h"
#include "assets/penguin_images.h"
#include "play/dirty_region.h"
#include "play/play_field.h"
#include "play/screen_areas.h"
#include "render/frame_buffers.h"
#include "tests/pictures/picture_compare.h"
#include "tests/pictures/scenes.h"
#include "tests/wine/gdiplus_test_support_win.h"

namespace {

std::wstring g_referenceFolder, g_outputFolder;

// Both buffers of a display window as DIB sections, whose pixels the test
// reads directly.
struct Buffers {
    explicit Buffers(DisplayWindow& window) : window(window) {
        frame = Make(window.frameDC, window.frameBitmap, window.frameOldBitmap);
        scenery = Make(window.sceneryDC, window.sceneryBitmap, window.sceneryOldBitmap);
    }
    ~Buffers() { ReleaseWindowBuffers(window); }
    uint32_t* Make(HDC__*& dc, HBITMAP__*& bitmap, void*& old) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), window.width, -window.height, 1, 32, BI_RGB};
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

// The landscape, or the plain background, in the scenery buffer and the
// frame.
void PaintBackground(Buffers& buffers, bool plain) {
    DisplayWindow& w = buffers.window;
    if (plain) {
        std::fill(buffers.scenery, buffers.scenery + w.width * w.height, kPlainBackground);
    } else {
        RenderScenery(w);
    }
    GdiFlush();
    BitBlt(w.frameDC, 0, 0, w.width, w.height, w.sceneryDC, 0, 0, SRCCOPY);
}

void Compose(DisplayWindow& window, const Rect& playArea) {
    const Rect part = Intersection(playArea, window.playRect);
    if (!IsEmpty(part)) ComposeFrame(window, Offset(part, -window.playRect.left, -window.playRect.top));
    GdiFlush();
}

// The scene's area cut out of the windows' frames, opaque.
Picture Cut(const Scene& scene, const std::vector<Buffers*>& windows) {
    const Rect area = SceneArea(scene);
    Picture picture{Width(area), Height(area), std::vector<uint32_t>(Width(area) * Height(area), 0)};
    for (const Buffers* b : windows) {
        const Rect& r = b->window.playRect;
        const Rect part = Intersection(area, r);
        for (int32_t y = part.top; y < part.bottom; ++y) {
            for (int32_t x = part.left; x < part.right; ++x) {
                picture.pixels[(y - area.top) * picture.width + (x - area.left)] =
                    0xFF000000 | b->frame[(y - r.top) * b->window.width + (x - r.left)];
            }
        }
    }
    return picture;
}

// Composes the staged scene: once everything, or only the play field's
// repaint rectangles over the bare background.
Picture Render(const Scene& scene, bool onlyRepaintBoxes) {
    std::vector<std::unique_ptr<Buffers>> buffers;
    std::vector<Buffers*> windows;
    for (DisplayWindow& window : g_displayWindows) {
        buffers.push_back(std::make_unique<Buffers>(window));
        windows.push_back(buffers.back().get());
        PaintBackground(*buffers.back(), scene.plainBackground);
    }
    DirtyRegion region;
    CollectDynamicDirty(region);
    AddDirtyRect(region, ScorePanelArea());
    AddDirtyRect(region, InstructionPillArea());
    for (const UiButton& button : g_playField.buttons) AddDirtyRect(region, ButtonPaintArea(button.rect));
    for (DisplayWindow& window : g_displayWindows) {
        if (!onlyRepaintBoxes) Compose(window, window.playRect);
        for (int32_t i = 0; onlyRepaintBoxes && i < region.count; ++i) Compose(window, region.rects[i]);
    }
    if (scene.change && !onlyRepaintBoxes) {
        scene.change();
        for (DisplayWindow& window : g_displayWindows) Compose(window, scene.redraw);
    }
    return Cut(scene, windows);
}

bool SavePng(const Picture& picture, const std::wstring& path) {
    Gdiplus::Bitmap bitmap(picture.width, picture.height, picture.width * 4, PixelFormat32bppARGB,
                           reinterpret_cast<BYTE*>(const_cast<uint32_t*>(picture.pixels.data())));
    return ::SavePng(bitmap, path);
}

// The picture in the file; empty when there is none.
Picture LoadPng(const std::wstring& path) {
    if (!std::filesystem::exists(path)) return {};
    Gdiplus::Bitmap bitmap(path.c_str());
    return {static_cast<int32_t>(bitmap.GetWidth()), static_cast<int32_t>(bitmap.GetHeight()), PixelsOf(bitmap)};
}

std::wstring Wide(const std::string& text) { return std::wstring(text.begin(), text.end()); }

class ScenePictures : public testing::TestWithParam<Scene> {};

TEST_P(ScenePictures, MatchTheirReferences) {
    const Scene& scene = GetParam();
    const std::wstring name = Wide(scene.name) + L".png";
    StageScene(scene);
    const Picture boxesOnly = Render(scene, true);
    StageScene(scene);
    const Picture picture = Render(scene, false);
    const std::wstring reference = JoinPath(g_referenceFolder, name);
    if (std::getenv("PUFFINO_REMAKE_PICTURES")) {
        ASSERT_TRUE(SavePng(picture, reference)) << "could not write the reference";
        std::printf("remade %s\n", scene.name.c_str());
    }
    SavePng(picture, JoinPath(g_outputFolder, name));
    if (!scene.change) {
        const PictureDifference outside = ComparePictures(boxesOnly, picture);
        const Rect& box = outside.changedBox;
        EXPECT_EQ(outside.changedPixels, 0) << "drawn outside the repaint boxes within (" << box.left << ","
                                            << box.top << ")-(" << box.right << "," << box.bottom << ")";
    }
    const PictureDifference difference = ComparePictures(picture, LoadPng(reference));
    ASSERT_TRUE(difference.sameSize) << "no reference of this size: remake the pictures";
    if (difference.changedPixels == 0) return;
    SavePng(difference.map, JoinPath(g_outputFolder, Wide(scene.name) + L".diff.png"));
    const Rect& box = difference.changedBox;
    ADD_FAILURE() << difference.changedPixels << " pixels differ within (" << box.left << "," << box.top << ")-("
                  << box.right << "," << box.bottom << "); the picture and its .diff.png (magenta: changed) are "
                  << "in the output folder";
}

INSTANTIATE_TEST_SUITE_P(, ScenePictures, testing::ValuesIn(Scenes()),
                         [](const testing::TestParamInfo<Scene>& info) {
                             std::string name = info.param.name;
                             for (char& c : name) c = c == '-' ? '_' : c;
                             return name;
                         });

}  // namespace

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
