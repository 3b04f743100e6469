// The frame composition under Wine, into off-screen DIB sections: the
// landscape restored exactly, the home window's layers on the home window
// alone and only where their boxes meet the repainted rectangle, and a
// bubble across two windows drawn in each, in play-field coordinates.
// The penguin and label drawers are recording stand-ins here; the penguin's
// paints an opaque block so that the layer order shows in the pixels.
#include <cstdio>

#include "app/display_windows.h"
#include "app/shell.h"
#include "play/play_field.h"
#include "play/screen_areas.h"
#include "render/frame_buffers.h"
#include "render/penguin_sprite_win.h"
#include "settings/language.h"
#include "tests/printers.h"
#include "text/labels_win.h"
#include "tests/wine/gdiplus_test_support_win.h"

PlayField g_playField;

namespace {

// One call of a home-window drawer, with the frame's graphics state then.
struct DrawerCall {
    std::wstring what;
    Gdiplus::RectF clip;          // world coordinates
    float offsetX = 0, offsetY = 0;  // of the world transform
    bool antiAliased = false;     // shapes and text
};
std::vector<DrawerCall> g_drawerCalls;

constexpr uint32_t kPenguinBlock = 0xFF102030;

void Record(Gdiplus::Graphics& graphics, std::wstring what) {
    DrawerCall call;
    call.what = std::move(what);
    graphics.GetClipBounds(&call.clip);
    Gdiplus::Matrix transform;
    graphics.GetTransform(&transform);
    call.offsetX = transform.OffsetX();
    call.offsetY = transform.OffsetY();
    call.antiAliased = graphics.GetSmoothingMode() == Gdiplus::SmoothingModeAntiAlias &&
                       graphics.GetTextRenderingHint() == Gdiplus::TextRenderingHintAntiAliasGridFit;
    g_drawerCalls.push_back(call);
}

std::wstring Hex(uint32_t value) {
    wchar_t text[16];
    std::swprintf(text, 16, L"%06x", value);
    return text;
}

std::vector<std::wstring> Drawn() {
    std::vector<std::wstring> names;
    for (const DrawerCall& call : g_drawerCalls) names.push_back(call.what.substr(0, call.what.find(L' ')));
    return names;
}

}  // namespace

void DrawPenguin(Gdiplus::Graphics& graphics) {
    Record(graphics, L"penguin");
    const Rect& box = g_playField.penguinBox;
    Gdiplus::SolidBrush block{Gdiplus::Color(kPenguinBlock)};
    graphics.FillRectangle(&block, box.left, box.top, Width(box), Height(box));
}
void DrawButton(Gdiplus::Graphics& graphics, const Rect& rect, uint32_t body, uint32_t border,
                const wchar_t* symbol, const wchar_t* label, int32_t symbolSize) {
    Record(graphics, L"button " + std::to_wstring(rect.left) + L"," + std::to_wstring(rect.top) + L" " +
                         Hex(body) + L" " + Hex(border) + L" " + (symbol ? symbol : L"-") + L" " +
                         (label ? label : L"-") + L" " + std::to_wstring(symbolSize));
}
void DrawPill(Gdiplus::Graphics& graphics, float left, float top, const wchar_t* prefix, const wchar_t* text,
              uint32_t textColour, uint32_t borderColour, bool bubbleDot) {
    Record(graphics, L"pill " + std::to_wstring(left) + L"," + std::to_wstring(top) + L" [" + prefix + L"] " +
                         text + L" " + Hex(textColour) + L" " + Hex(borderColour) + (bubbleDot ? L" dot" : L""));
}
void DrawScorePanel(Gdiplus::Graphics& graphics) { Record(graphics, L"score"); }
void DrawPraise(Gdiplus::Graphics& graphics) { Record(graphics, L"praise"); }
void DrawHintBalloon(Gdiplus::Graphics& graphics) { Record(graphics, L"hint"); }

namespace {

using Compose = GdiplusTest;

// A display window with both buffers as 32-bit DIB sections, so that the
// test reads their pixels directly. The frame starts as the window's first
// full paint leaves it.
class TestWindow {
public:
    TestWindow(const Rect& playRect, bool isMain, uint32_t theme) {
        window.playRect = playRect;
        window.width = Width(playRect);
        window.height = Height(playRect);
        window.isMain = isMain;
        window.sceneryTheme = theme;
        frame = Buffer(window.frameDC, window.frameBitmap, window.frameOldBitmap);
        scenery = Buffer(window.sceneryDC, window.sceneryBitmap, window.sceneryOldBitmap);
        RenderScenery(window);
        GdiFlush();
        Compose(ClientArea());
    }
    TestWindow(const TestWindow&) = delete;
    ~TestWindow() { ReleaseWindowBuffers(window); }

    Rect ClientArea() const { return {0, 0, window.width, window.height}; }
    void Compose(const Rect& dirty) {
        ComposeFrame(window, dirty);
        GdiFlush();
    }
    // Pixels as 0xRRGGBB, by client coordinates.
    uint32_t Frame(int32_t x, int32_t y) const { return Pixel(frame, x, y); }
    uint32_t Scenery(int32_t x, int32_t y) const { return Pixel(scenery, x, y); }
    std::vector<uint32_t> FramePixels() const { return {frame, frame + window.width * window.height}; }
    std::vector<uint32_t> SceneryPixels() const { return {scenery, scenery + window.width * window.height}; }
    void FillScenery(uint32_t rgb) {
        std::fill(scenery, scenery + window.width * window.height, rgb);
        Compose(ClientArea());
    }

    DisplayWindow window;

private:
    uint32_t* Buffer(HDC__*& dc, HBITMAP__*& bitmap, void*& old) const {
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
    uint32_t Pixel(const uint32_t* pixels, int32_t x, int32_t y) const {
        return pixels[y * window.width + x] & 0xFFFFFF;
    }

    uint32_t* frame = nullptr;
    uint32_t* scenery = nullptr;
};

constexpr Rect kLeftMonitor{0, 0, 1920, 1080};
constexpr Rect kRightMonitor{1920, 0, 3200, 1024};

Bubble MakeBubble(float x, float y, float radius, bool gold = false, bool fromPenguin = false) {
    Bubble b;
    b.x = x;
    b.y = y;
    b.radius = radius;
    b.red = gold ? 255 : 210;
    b.green = gold ? 215 : 255;
    b.blue = gold ? 70 : 220;
    b.gold = gold;
    b.fromPenguin = fromPenguin;
    return b;
}

// The right-hand 1280 x 1024 monitor as the home monitor at scale 1, laid
// out as the play field lays it out: finish (2872, 912, 3172, 996), sound
// (1948, 912, 2032, 996), penguin (2917, 658, 3127, 898).
void LayOutRightHome() {
    g_playField = PlayField{};
    g_dpiScale = 1;
    g_soundEnabled = true;
    SetLanguageTexts(Language::kJapanese);
    g_playField.homeRect = kRightMonitor;
    g_playField.buttons = {{{2872, 912, 3172, 996}, kFinishButton}, {{1948, 912, 2032, 996}, kSoundButton}};
    g_playField.penguinBox = {2917, 658, 3127, 898};
    g_drawerCalls.clear();
}

int Differing(const TestWindow& w, const Rect& area) {
    int count = 0;
    for (int32_t y = area.top; y < area.bottom; ++y) {
        for (int32_t x = area.left; x < area.right; ++x) count += w.Frame(x, y) != w.Scenery(x, y);
    }
    return count;
}

TEST_F(Compose, ARectangleThatMeetsOnlyTheSceneryRestoresItExactly) {
    LayOutRightHome();
    g_playField.bubbles = {MakeBubble(500, 500, 40), MakeBubble(900, 600, 30, true)};
    g_playField.rings = {{700, 300, 40, 50, 4, 18, 120, 200, 255}};
    TestWindow home(kLeftMonitor, true, 0);  // the seaside
    const Rect wasThere = BubbleBounds(g_playField.bubbles[0]);
    ASSERT_GT(Differing(home, wasThere), 1000) << "the bubble is drawn";
    ASSERT_GT(Differing(home, {650, 250, 750, 350}), 100) << "the ring is drawn";

    // The bubble rises clear of its old box; only that box is repainted.
    g_playField.bubbles[0].y = 380;
    const std::vector<uint32_t> before = home.FramePixels();
    home.Compose(wasThere);
    const std::vector<uint32_t> after = home.FramePixels(), scenery = home.SceneryPixels();
    int trail = 0, changedOutside = 0;
    for (int32_t y = 0; y < 1080; ++y) {
        for (int32_t x = 0; x < 1920; ++x) {
            const size_t i = y * 1920 + x;
            if (Meets(wasThere, {x, y, x + 1, y + 1})) {
                trail += after[i] != scenery[i];
            } else {
                changedOutside += after[i] != before[i];
            }
        }
    }
    EXPECT_EQ(trail, 0) << "the landscape is back where the bubble was";
    EXPECT_EQ(changedOutside, 0) << "nothing outside the dirty rectangle is repainted";

    // An empty rectangle composes nothing.
    g_playField.bubbles[0].y = 500;
    home.Compose({460, 460, 460, 540});
    EXPECT_TRUE(home.FramePixels() == after);
}

TEST_F(Compose, OnlyTheHomeWindowCarriesPenguinButtonsAndLabels) {
    // The whole home layout lies on the right-hand window in play-field
    // coordinates; as a window that is not the home window it still shows
    // only its landscape, the bubbles and the pop effects.
    for (bool isMain : {false, true}) {
        SCOPED_TRACE(isMain ? "home window" : "other window");
        LayOutRightHome();
        g_playField.praiseTimeLeft = 30;
        g_playField.bubbles = {MakeBubble(2200, 400, 40), MakeBubble(3022, 700, 30, false, true)};
        g_playField.particles = {{2400, 700, 0, 0, 1, 20, 6, 255, 120, 160}};
        TestWindow right(kRightMonitor, isMain, 2);
        const std::vector<std::wstring> homeLayers = {L"penguin", L"button", L"button", L"score",
                                                      L"pill",    L"praise", L"hint"};
        EXPECT_EQ(Drawn(), isMain ? homeLayers : std::vector<std::wstring>{});
        EXPECT_GT(Differing(right, {220, 300, 360, 500}), 1000) << "the floating bubble";
        EXPECT_GT(Differing(right, {1060, 660, 1140, 740}), 1000) << "the blown bubble";
        EXPECT_GT(Differing(right, {470, 690, 490, 710}), 50) << "the droplet";
        EXPECT_EQ(right.Frame(1102, 800) == (kPenguinBlock & 0xFFFFFF), isMain) << "the penguin";
        EXPECT_EQ(Differing(right, {600, 200, 900, 500}), 0) << "elsewhere the landscape";
    }
}

TEST_F(Compose, LayersComeInOrderInPlayFieldCoordinatesWithTheirArguments) {
    LayOutRightHome();
    // A floating bubble behind the penguin and a blown one in front of it.
    g_playField.bubbles = {MakeBubble(2970, 780, 30), MakeBubble(3070, 780, 30, false, true)};
    g_playField.buttons.push_back({{2000, 500, 2100, 600}, 7});  // no known kind: not drawn
    TestWindow home(kRightMonitor, true, 4);
    const std::vector<std::wstring> expected = {
        L"penguin",
        L"button 2872,912 c0bce8 8e84ba ✖ おわりにする 28",
        L"button 1948,912 b0daec 6c9ebc ♪ - 34",
        L"score",
        L"pill 1946.000000,26.000000 [] しゃぼんだまを けしてね ff4678b4 ff8cc8f0 dot",
        L"praise",
        L"hint",
    };
    ASSERT_EQ(g_drawerCalls.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        const DrawerCall& call = g_drawerCalls[i];
        EXPECT_EQ(call.what, expected[i]);
        EXPECT_EQ(call.offsetX, -1920.0f);
        EXPECT_EQ(call.offsetY, 0.0f);
        EXPECT_TRUE(call.clip.X == 1920 && call.clip.Y == 0 && call.clip.Width == 1280 && call.clip.Height == 1024)
            << call.clip.X << "," << call.clip.Y << " " << call.clip.Width << "x" << call.clip.Height;
        EXPECT_TRUE(call.antiAliased);
    }
    EXPECT_EQ(home.Frame(1050, 780), kPenguinBlock & 0xFFFFFF) << "the floating bubble is behind the penguin";
    EXPECT_NE(home.Frame(1150, 780), kPenguinBlock & 0xFFFFFF) << "the blown bubble is in front of it";

    // A small dirty rectangle is the clip, in play-field coordinates; from
    // the tenth point the instruction pill is gone, and the sound button
    // shows sound off.
    g_playField.score = 10;
    g_soundEnabled = false;
    g_drawerCalls.clear();
    home.Compose({0, 800, 200, 1000});
    ASSERT_EQ(g_drawerCalls.size(), 1u);
    EXPECT_EQ(g_drawerCalls[0].what, L"button 1948,912 b0daec 6c9ebc ✕ - 34");
    const Gdiplus::RectF& clip = g_drawerCalls[0].clip;
    EXPECT_TRUE(clip.X == 1920 && clip.Y == 800 && clip.Width == 200 && clip.Height == 200);
    g_drawerCalls.clear();
    home.Compose(home.ClientArea());
    EXPECT_EQ(Drawn(), (std::vector<std::wstring>{L"penguin", L"button", L"button", L"score", L"praise", L"hint"}));
    // A rectangle that meets only the raised part of a hopping penguin's
    // paint area still redraws it, and nothing else.
    g_drawerCalls.clear();
    home.Compose({1000, 582, 1010, 620});
    EXPECT_EQ(Drawn(), std::vector<std::wstring>{L"penguin"});
}

TEST_F(Compose, ABubbleAcrossTwoWindowsIsDrawnInEachItsOwnPart) {
    // On one plain colour, the two windows side by side must show what one
    // window spanning both shows. Wine's rasterizer may round a shape's edge
    // by a pixel differently once shifted, so a pixel may match its
    // neighbour in the wide window instead.
    LayOutRightHome();
    g_playField.homeRect = g_playField.penguinBox = {};
    g_playField.buttons.clear();
    g_playField.bubbles = {MakeBubble(1920, 300, 40), MakeBubble(1915.5f, 700, 33, true)};
    g_playField.rings = {{1922, 500, 45, 50, 6, 18, 255, 255, 255}};
    constexpr uint32_t kPlain = 0x4080C0;
    TestWindow wide({0, 0, 3200, 1024}, false, 0), left(kLeftMonitor, false, 0), right(kRightMonitor, false, 0);
    for (TestWindow* w : {&wide, &left, &right}) w->FillScenery(kPlain);
    int differing = 0, drawn = 0;
    for (int32_t y = 200; y < 800; ++y) {
        for (int32_t x = 1820; x < 2020; ++x) {
            const uint32_t part = x < 1920 ? left.Frame(x, y) : right.Frame(x - 1920, y);
            bool found = false;
            for (int32_t dy = -1; dy <= 1; ++dy) {
                for (int32_t dx = -1; dx <= 1; ++dx) found |= part == wide.Frame(x + dx, y + dy);
            }
            differing += !found;
            drawn += part != kPlain;
        }
    }
    EXPECT_EQ(differing, 0);
    EXPECT_GT(drawn, 8000);
}

}  // namespace
