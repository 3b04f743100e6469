// What a frame costs under Wine: ComposeFrame for the dirty rectangle of a
// typical tick (160 ambient bubbles, one pop effect, the praise) against a
// full repaint of the same window, on the same run, at 1920 x 1080 and at
// 3840 x 2160; and the same in ordinary play, with the bubbles that rise on
// their own. The program's own drawing code, fonts and pose pictures, on a
// real window's buffers. Not a test: `./puffino bench-wine` runs it.
//
//   frame_cost_benchmark.exe [ticks]   (default 10 ticks per scene)
#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "play/display_records.h"
#include "play/sound_bank.h"
#include "play/window_handle_win.h"
#include "assets/asset_paths.h"
#include "assets/fonts.h"
#include "assets/penguin_images.h"
#include "play/bubbles.h"
#include "play/play_field.h"
#include "play/random.h"
#include "play/scoring.h"
#include "render/frame_buffers.h"
#include "settings/high_score.h"
#include "settings/language.h"

namespace {

double Milliseconds() {
    LARGE_INTEGER frequency, counter;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&counter);
    return 1000.0 * static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// The median time of composing these client rectangles of the window, one
// after the other, as consecutive paints would.
double ComposeTime(DisplayWindow& window, const std::vector<Rect>& rects, int repeats) {
    std::vector<double> times;
    for (int i = 0; i < repeats; ++i) {
        const double start = Milliseconds();
        for (const Rect& rect : rects) ComposeFrame(window, rect);
        GdiFlush();
        times.push_back(Milliseconds() - start);
    }
    return Median(times);
}

// The home window's invalid area after one tick: its bounding box, which
// BeginPaint hands to the paint as rcPaint, and its rectangles.
Rect UpdateBox(HWND hwnd, std::vector<Rect>& rects) {
    HRGN region = CreateRectRgn(0, 0, 0, 0);
    GetUpdateRgn(hwnd, region, FALSE);
    const DWORD size = GetRegionData(region, 0, nullptr);
    std::vector<char> buffer(size);
    auto* data = reinterpret_cast<RGNDATA*>(buffer.data());
    GetRegionData(region, size, data);
    DeleteObject(region);
    const auto* parts = reinterpret_cast<const RECT*>(data->Buffer);
    rects.clear();
    for (DWORD i = 0; i < data->rdh.nCount; ++i) {
        rects.push_back({parts[i].left, parts[i].top, parts[i].right, parts[i].bottom});
    }
    const RECT& box = data->rdh.rcBound;
    return {box.left, box.top, box.right, box.bottom};
}

struct Scene {
    int width, height;
    float scale;
    bool crowded;  // 160 bubbles all over; else the bubbles of ordinary play
};

void Measure(const Scene& scene, int ticks) {
    HWND hwnd = CreateWindowExW(0, L"FrameCost", L"FrameCost", WS_POPUP | WS_VISIBLE, 0, 0, scene.width,
                                scene.height, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    DisplayWindow home;
    home.playRect = home.screenRect = {0, 0, scene.width, scene.height};
    home.width = scene.width;
    home.height = scene.height;
    home.window = HandleOf(hwnd);
    home.home = true;
    home.sceneryTheme = 0;  // the seaside: gradients, waves and clouds
    g_displayWindows = {home};
    g_homeWindow = HandleOf(hwnd);
    g_virtualWidth = scene.width;
    g_virtualHeight = scene.height;
    g_dpiScale = scene.scale;
    DisplayWindow& window = g_displayWindows[0];
    CreateWindowBuffers(window);
    RenderScenery(window);

    // Crowded: 160 bubbles all over the monitor. Ordinary play: the bubbles
    // that rise on their own after half a minute, the field's steady state.
    // Then the tenth point is popped (a burst and the praise).
    SeedRandom(20240607);
    g_playField = PlayField{};
    LayoutPlayField();
    g_bestScore = 1000;  // no record: nothing is written to disk
    g_playField.score = 9;
    if (scene.crowded) {
        while (g_playField.bubbles.size() < kMaxBubbles) {
            SpawnBubble(RandomRange(0, static_cast<float>(scene.width)),
                        RandomRange(0, static_cast<float>(scene.height)), 1.0f, false, false);
        }
    } else {
        for (int tick = 0; tick < 900; ++tick) AdvanceFrame();
    }
    // Crowded, as the native benchmark of the cairo canvas has it: a gold
    // bubble popped (its burst and praise) while the penguin blows.
    if (scene.crowded) g_playField.bubbles[g_playField.bubbles.size() / 2].gold = true;
    PopBubble(g_playField.bubbles.size() / 2);
    if (scene.crowded) {
        g_playField.blowing = true;
        g_playField.pressStartTick = 1;
    }
    const Rect full{0, 0, scene.width, scene.height};
    ComposeFrame(window, full);  // every font and picture is loaded by now

    std::vector<double> tickTimes, fullTimes, pieceTimes, boxShares;
    std::vector<Rect> pieces;
    for (int tick = 0; tick < ticks; ++tick) {
        ValidateRect(hwnd, nullptr);
        AdvanceFrame();
        const Rect box = UpdateBox(hwnd, pieces);
        boxShares.push_back(100.0 * Width(box) * Height(box) / (scene.width * scene.height));
        tickTimes.push_back(ComposeTime(window, {box}, 3));
        pieceTimes.push_back(ComposeTime(window, pieces, 1));
        fullTimes.push_back(ComposeTime(window, {full}, 3));
    }
    const double tick = Median(tickTimes), whole = Median(fullTimes);
    std::printf("%d x %d at scale %.1f, %zu bubbles, %zu rings, %zu droplets, praise %s:\n", scene.width,
                scene.height, scene.scale, g_playField.bubbles.size(), g_playField.rings.size(),
                g_playField.particles.size(), g_playField.praiseTimeLeft > 0 ? "on" : "off");
    std::printf("  full repaint        %8.2f ms\n", whole);
    std::printf("  typical tick        %8.2f ms  (%5.1f %% of the full repaint; the paint box is %5.1f %% of "
                "the window)\n",
                tick, 100.0 * tick / whole, Median(boxShares));
    std::printf("  rectangle by rect.  %8.2f ms  (%5.1f %%, were each of the tick's rectangles, %zu at the last "
                "tick, composed on its own)\n",
                Median(pieceTimes), 100.0 * Median(pieceTimes) / whole, pieces.size());
    std::fflush(stdout);

    ReleaseWindowBuffers(window);
    DestroyWindow(hwnd);
    g_displayWindows.clear();
    g_homeWindow = nullptr;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const int ticks = argc > 1 ? std::max(1, _wtoi(argv[1])) : 10;
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    g_soundEnabled = false;
    SetupLanguage(L"ja");
    // The pose pictures the build renders beside Puffino.exe, one folder up;
    // the fonts are in a "Fonts" folder beside this program.
    LoadPenguinImages(JoinPath(JoinPath(ParentFolder(ExecutableFolder()), L"assets"), L"penguin"));

    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"FrameCost";
    RegisterClassExW(&windowClass);

    for (const Scene& scene : {Scene{1920, 1080, 1.0f, true}, Scene{3840, 2160, 1.0f, true},
                               Scene{3840, 2160, 2.0f, true}, Scene{1920, 1080, 1.0f, false}}) {
        Measure(scene, ticks);
    }
    ReleasePenguinImages();
    ReleaseFonts();
    Gdiplus::GdiplusShutdown(token);
    return 0;
}
