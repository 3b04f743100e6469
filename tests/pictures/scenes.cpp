// The reference scenes as play-field states.
#include "tests/pictures/scenes.h"

#include <algorithm>

#include "play/display_records.h"
#include "play/sound_bank.h"
#include "play/bubbles.h"
#include "play/play_field.h"
#include "play/pop_effects.h"
#include "play/random.h"
#include "play/screen_areas.h"
#include "settings/high_score.h"

namespace {

Bubble MakeBubble(float x, float y, float radius, Tint tint, bool gold = false, bool fromPenguin = false) {
    Bubble b;
    b.x = x;
    b.y = y;
    b.radius = radius;
    b.vy = -1;
    b.phase = 0.7f;
    b.red = tint.red;
    b.green = tint.green;
    b.blue = tint.blue;
    b.gold = gold;
    b.fromPenguin = fromPenguin;
    return b;
}

void SomeBubbles() {
    auto& bubbles = g_playField.bubbles;
    bubbles.push_back(MakeBubble(50, 90, 22, {255, 150, 200}));
    bubbles.push_back(MakeBubble(140, 85, 42, {120, 190, 255}));
    bubbles.push_back(MakeBubble(245, 90, 30, {255, 215, 0}, true));
    bubbles.push_back(MakeBubble(320, 95, 20, {170, 255, 170}, false, true));
}

// Bursts 12, 6 and 2 ticks old, the youngest gold, and a soft pop.
void PopsOfSeveralAges() {
    SpawnPopEffect(80, 110, 255, 120, 160, false, false);
    for (int i = 0; i < 6; ++i) StepMotion();
    SpawnPopEffect(250, 110, 100, 180, 255, false, false);
    for (int i = 0; i < 4; ++i) StepMotion();
    SpawnPopEffect(420, 110, 255, 215, 0, true, false);
    SpawnPopEffect(530, 110, 150, 230, 140, false, true);
    for (int i = 0; i < 2; ++i) StepMotion();
}

void NoHint() { g_playField.blownOnce = true; }
void Blowing() {
    NoHint();
    g_playField.blowing = true;
    g_playField.pressStartTick = 1;
    g_playField.blowPhase = 1.1f;
}
// Past the cross-fade, at the top of the third hop.
void MidHop() {
    NoHint();
    g_playField.celebrateTimeLeft = 60;
    g_playField.celebratePhase = 2 * 0.85f + 0.42f;
}
// Halfway through the cross-fade into the celebrating picture, on the ground.
void CrossFade() {
    NoHint();
    g_playField.celebrateTimeLeft = 74;
}
Rect PenguinCrop() { return PenguinPaintArea(); }

void ShowPraise(const wchar_t* text, bool big, int32_t bonus) {
    PlayField& field = g_playField;
    field.praiseText = text;
    field.praiseDuration = 60;
    field.praiseTimeLeft = 30;
    field.praiseBig = big;
    field.praiseBonus = bonus;
}
void Score(int32_t score, int32_t best) {
    g_playField.score = score;
    g_bestScore = best;
}
void LabelsWithPraise() {
    Score(7, 23);
    ShowPraise(L"すごい！", false, 0);
}
void GoldPraise() {
    NoHint();
    ShowPraise(L"キラキラ！", true, 5);
}
Rect PraiseCrop() { return PraiseArea(); }

// A bubble across the seam of the two windows, more on each, a burst on the
// home window, and past the instruction and the hint.
void BusyFrame() {
    auto& bubbles = g_playField.bubbles;
    bubbles.push_back(MakeBubble(800, 200, 40, {120, 190, 255}));
    bubbles.push_back(MakeBubble(180, 250, 28, {255, 150, 200}));
    bubbles.push_back(MakeBubble(620, 330, 26, {190, 160, 255}));
    bubbles.push_back(MakeBubble(1000, 160, 30, {255, 215, 0}, true));
    bubbles.push_back(MakeBubble(1100, 380, 24, {170, 255, 170}));
    SpawnPopEffect(400, 300, 255, 120, 160, false, false);
    for (int i = 0; i < 4; ++i) StepMotion();
    Score(12, 40);
    NoHint();
}
void BubblesGone() { g_playField.bubbles.clear(); }

std::vector<Scene> MakeScenes() {
    std::vector<Scene> scenes;
    const char* themes[] = {"seaside", "mountains", "park", "garden", "flower-field"};
    for (uint32_t theme = 0; theme < 5; ++theme) {
        scenes.push_back({.name = std::string("landscape-") + themes[theme],
                          .windows = {{{0, 0, 480, 270}, theme, false}}});
    }
    scenes.push_back({.name = "bubbles", .windows = {{{0, 0, 360, 180}}}, .plainBackground = true,
                      .setUp = SomeBubbles});
    // At 144 dpi: the droplets and rings grow with the scale.
    scenes.push_back({.name = "pop-effects", .windows = {{{0, 0, 600, 220}}}, .scale = 1.5f,
                      .plainBackground = true, .setUp = PopsOfSeveralAges});
    const Rect penguinHome{0, 0, 560, 700};  // room above for the hops
    const std::pair<const char*, void (*)()> poses[] = {
        {"penguin-standing", NoHint}, {"penguin-blowing", Blowing},
        {"penguin-mid-hop", MidHop}, {"penguin-cross-fade", CrossFade}};
    for (const auto& [name, pose] : poses) {
        scenes.push_back({.name = name, .windows = {{penguinHome, 0, true}}, .plainBackground = true,
                          .setUp = pose, .crop = PenguinCrop});
    }
    // Every label in both languages at 96 and 144 dpi, the sound button on
    // and off; the big praise of a gold bubble on its own.
    const Rect home96{0, 0, 960, 640}, home144{0, 0, 1440, 960};
    scenes.push_back({.name = "labels-ja-96", .windows = {{home96, 0, true}}, .plainBackground = true,
                      .setUp = LabelsWithPraise});
    scenes.push_back({.name = "labels-en-96", .windows = {{home96, 0, true}}, .language = Language::kEnglish,
                      .soundOn = false, .plainBackground = true, .setUp = LabelsWithPraise});
    scenes.push_back({.name = "labels-ja-144", .windows = {{home144, 0, true}}, .scale = 1.5f,
                      .soundOn = false, .plainBackground = true, .setUp = LabelsWithPraise});
    scenes.push_back({.name = "labels-en-144", .windows = {{home144, 0, true}}, .scale = 1.5f,
                      .language = Language::kEnglish, .plainBackground = true, .setUp = LabelsWithPraise});
    scenes.push_back({.name = "praise-gold-96", .windows = {{home96, 0, true}}, .plainBackground = true,
                      .setUp = GoldPraise, .crop = PraiseCrop});
    scenes.push_back({.name = "praise-gold-144", .windows = {{home144, 0, true}}, .scale = 1.5f,
                      .plainBackground = true, .setUp = GoldPraise, .crop = PraiseCrop});
    // Without a usable font family the panels stay, without their words.
    scenes.push_back({.name = "labels-without-fonts", .windows = {{home96, 0, true}}, .plainBackground = true,
                      .withoutFonts = true, .setUp = LabelsWithPraise});
    // The right half of the second window is painted again after the
    // bubbles have gone: they vanish there and stay everywhere else.
    scenes.push_back({.name = "frame-two-windows",
                      .windows = {{{0, 0, 800, 500}, 0, true}, {{800, 0, 1200, 500}, 4, false}},
                      .setUp = BusyFrame, .change = BubblesGone, .redraw = {1000, 0, 1200, 500}});
    return scenes;
}

}  // namespace

const std::vector<Scene>& Scenes() {
    static const std::vector<Scene> scenes = MakeScenes();
    return scenes;
}

void StageScene(const Scene& scene) {
    g_displayWindows.clear();
    Rect all{0, 0, 0, 0};
    for (const SceneWindow& w : scene.windows) {
        DisplayWindow window;
        window.playRect = window.screenRect = w.playRect;
        window.width = Width(w.playRect);
        window.height = Height(w.playRect);
        window.sceneryTheme = w.theme;
        window.home = w.home;
        g_displayWindows.push_back(window);
        all = Union(all, w.playRect);
    }
    g_virtualWidth = Width(all);
    g_virtualHeight = Height(all);
    g_dpiScale = scene.scale;
    SetLanguageTexts(scene.language);
    g_soundEnabled = scene.soundOn;
    g_bestScore = 0;
    g_playField = PlayField{};
    SeedRandom(20261124);
    LayoutPlayField();
    if (scene.setUp) scene.setUp();
}

Rect SceneArea(const Scene& scene) {
    Rect all = scene.windows.front().playRect;
    for (const SceneWindow& w : scene.windows) all = Union(all, w.playRect);
    return scene.crop ? Intersection(scene.crop(), all) : all;
}
