// What composing a frame costs natively with the cairo canvas, at 1920 x
// 1080: the landscape copied back and every layer drawn over the whole
// window, as a full repaint does. Crowded: 160 bubbles, a gold bubble just
// popped (its burst and praise), the penguin blowing. Ordinary: the 26
// bubbles of ordinary play, the penguin standing. Run by `./puffino bench`.
#include <benchmark/benchmark.h>

#include <cairo.h>

#include <filesystem>

#include "play/display_records.h"
#include "assets/fonts.h"
#include "assets/penguin_images.h"
#include "play/bubbles.h"
#include "play/play_field.h"
#include "play/random.h"
#include "play/scoring.h"
#include "render/canvas_linux.h"
#include "render/frame_buffers.h"
#include "render/frame_composition.h"
#include "render/scenery.h"
#include "settings/high_score.h"
#include "settings/language.h"
#include "tests/unit/fake_platform.h"

namespace {

constexpr int32_t kWidth = 1920, kHeight = 1080;

// The home window, its pose pictures and the play field of the scene.
void SetUpScene(std::size_t bubbles, bool crowded) {
    ResetWorld(20240607);
    SetLanguageTexts(Language::kJapanese);
    LoadPenguinImages(std::filesystem::path(PUFFINO_POSE_FOLDER).wstring());
    for (PosePictureKind pose : {PosePictureKind::Idle, PosePictureKind::Blow, PosePictureKind::Celebrate, PosePictureKind::Cheer}) {
        if (const PosePicture* picture = LoadedPosePicture(pose)) {
            int32_t width = 0, height = 0;
            PosePictureSize(*picture, width, height);
            g_fake.poseSizes[pose] = {width, height};
        }
    }
    LayoutPlayField();
    g_bestScore = 1000;  // no record, so nothing is written to disk
    while (g_playField.bubbles.size() < bubbles) {
        SpawnBubble(RandomRange(0, kWidth), RandomRange(0, kHeight), 1.0f, false, false);
    }
    if (crowded) {
        g_playField.bubbles.back().gold = true;
        PopBubble(g_playField.bubbles.size() - 1);
        SpawnBubble(RandomRange(0, kWidth), RandomRange(0, kHeight), 1.0f, false, false);
        g_playField.blowing = true;
        g_playField.pressStartTick = 1;
    }
}

void ComposeFrames(benchmark::State& state, std::size_t bubbles, bool crowded) {
    SetUpScene(bubbles, crowded);
    const DisplayWindow& window = g_displayWindows.front();
    cairo_surface_t* scenery = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kWidth, kHeight);
    cairo_surface_t* frame = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kWidth, kHeight);
    cairo_t* sceneryContext = cairo_create(scenery);
    Canvas sceneryCanvas{sceneryContext};
    DrawScenery(sceneryCanvas, {0, 0, kWidth, kHeight}, 0);
    cairo_destroy(sceneryContext);
    for (auto _ : state) {
        cairo_t* cr = cairo_create(frame);
        cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
        cairo_set_source_surface(cr, scenery, 0, 0);
        cairo_paint(cr);
        cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
        Canvas canvas = FrameCanvas(cr);
        DrawFrameLayers(canvas, window, {0, 0, kWidth, kHeight});
        cairo_destroy(cr);
        cairo_surface_flush(frame);
    }
    state.counters["bubbles"] = static_cast<double>(g_playField.bubbles.size());
    cairo_surface_destroy(frame);
    cairo_surface_destroy(scenery);
    ReleasePenguinImages();
    ReleaseFonts();
}

void ComposeCrowdedFrame(benchmark::State& state) { ComposeFrames(state, kMaxBubbles, true); }
void ComposeOrdinaryFrame(benchmark::State& state) { ComposeFrames(state, 26, false); }

BENCHMARK(ComposeCrowdedFrame)->Unit(benchmark::kMillisecond);
BENCHMARK(ComposeOrdinaryFrame)->Unit(benchmark::kMillisecond);

}  // namespace
