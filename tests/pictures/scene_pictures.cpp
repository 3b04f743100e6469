// Each reference scene composed and compared with its picture. A second
// composition of only the rectangles the play field would repaint must give
// the same pixels: nothing is drawn outside its repaint box. With
// PUFFINO_REMAKE_PICTURES=1 in the environment the rendered pictures replace
// the references instead (after an intended change; look at each).
#include "tests/pictures/scene_pictures.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "play/dirty_region.h"
#include "play/play_field.h"
#include "play/screen_areas.h"
#include "tests/pictures/scenes.h"

std::filesystem::path g_referenceFolder;
std::filesystem::path g_outputFolder;

namespace {

void Compose(DisplayWindow& window, const Rect& playArea) {
    const Rect part = Intersection(playArea, window.playRect);
    if (!IsEmpty(part)) ComposeWindow(window, Offset(part, -window.playRect.left, -window.playRect.top));
}

// The scene's area cut out of the windows' frames, opaque.
Picture Cut(const Scene& scene) {
    const Rect area = SceneArea(scene);
    Picture picture{Width(area), Height(area), std::vector<uint32_t>(Width(area) * Height(area), 0)};
    for (size_t i = 0; i < g_displayWindows.size(); ++i) {
        const Rect& r = g_displayWindows[i].playRect;
        const Rect part = Intersection(area, r);
        for (int32_t y = part.top; y < part.bottom; ++y) {
            for (int32_t x = part.left; x < part.right; ++x) {
                picture.pixels[(y - area.top) * picture.width + (x - area.left)] =
                    0xFF000000 | FramePixel(i, x - r.left, y - r.top);
            }
        }
    }
    return picture;
}

// Stages and composes the scene: once everything, or only the play field's
// repaint rectangles over the bare background.
Picture Render(const Scene& scene, bool onlyRepaintBoxes) {
    ReportPoseSizes();
    StageScene(scene);
    MakeWindowBuffers(scene.plainBackground);
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
    Picture picture = Cut(scene);
    ReleaseWindowBuffers();
    return picture;
}

std::string Where(const Rect& box) {
    return "(" + std::to_string(box.left) + "," + std::to_string(box.top) + ")-(" + std::to_string(box.right) +
           "," + std::to_string(box.bottom) + ")";
}

class ScenePictures : public testing::TestWithParam<Scene> {};

TEST_P(ScenePictures, MatchTheirReferences) {
    const Scene& scene = GetParam();
    const std::string name = scene.name + ".png";
    const Picture boxesOnly = Render(scene, true);
    const Picture picture = Render(scene, false);
    const std::filesystem::path reference = g_referenceFolder / name;
    if (std::getenv("PUFFINO_REMAKE_PICTURES")) {
        ASSERT_TRUE(SavePng(picture, reference)) << "could not write the reference";
        std::printf("remade %s\n", scene.name.c_str());
    }
    SavePng(picture, g_outputFolder / name);
    if (!scene.change) {
        const PictureDifference outside = ComparePictures(boxesOnly, picture);
        EXPECT_EQ(outside.changedPixels, 0) << "drawn outside the repaint boxes within " << Where(outside.changedBox);
    }
    const PictureDifference difference = ComparePictures(picture, LoadPng(reference));
    ASSERT_TRUE(difference.sameSize) << "no reference of this size: remake the pictures";
    if (difference.changedPixels == 0) return;
    SavePng(difference.map, g_outputFolder / (scene.name + ".diff.png"));
    ADD_FAILURE() << difference.changedPixels << " pixels differ within " << Where(difference.changedBox)
                  << "; the picture and its .diff.png (magenta: changed) are in " << g_outputFolder.string();
}

std::vector<Scene> DrawableScenes() {
    std::vector<Scene> drawable;
    for (const Scene& scene : Scenes()) {
        if (BackendDrawsScene(scene)) drawable.push_back(scene);
    }
    return drawable;
}

INSTANTIATE_TEST_SUITE_P(, ScenePictures, testing::ValuesIn(DrawableScenes()),
                         [](const testing::TestParamInfo<Scene>& info) {
                             std::string name = info.param.name;
                             for (char& c : name) c = c == '-' ? '_' : c;
                             return name;
                         });

}  // namespace
