// The labels drawn into off-screen bitmaps as the home window gets them, with
// the real rounded faces and DejaVu Sans standing in for the symbol font;
// the whole home monitor is saved as a PNG per size and language. A copy of
// this program runs away from the "Fonts" folder: panels without text.
#include <algorithm>
#include <cstdlib>
#include <functional>

#include "app/display_windows.h"
#include "assets/fonts_win.h"
#include "play/play_field.h"
#include "play/screen_areas.h"
#include "settings/language.h"
#include "settings/texts.h"
#include "tests/wine/gdiplus_test_support_win.h"
#include "text/labels_win.h"

// The labels read these; the play field itself is not linked.
PlayField g_playField;
int32_t g_bestScore = 0;

namespace {

// Home monitors at the origin, laid out as the play field lays them out.
struct Home {
    const wchar_t* name;
    float s;
    Rect home, finish, sound, penguin;
};
const Home kHomes[] = {
    {L"1920x1080-96dpi", 1.0f, {0, 0, 1920, 1080}, {1592, 968, 1892, 1052}, {28, 968, 112, 1052}, {1637, 714, 1847, 954}},
    {L"1920x1080-144dpi", 1.5f, {0, 0, 1920, 1080}, {1428, 912, 1878, 1038}, {42, 912, 168, 1038}, {1496, 531, 1810, 891}},
    {L"1280x1024-96dpi", 1.0f, {0, 0, 1280, 1024}, {952, 912, 1252, 996}, {28, 912, 112, 996}, {997, 658, 1207, 898}},
};

// Best 12, score 3, and the widest praise word with a bonus (a worst case
// no pop gives), at full size.
void Play(const Home& h, Language language) {
    g_dpiScale = h.s;
    g_playField = PlayField{};
    g_playField.homeRect = h.home, g_playField.penguinBox = h.penguin;
    g_playField.score = 3, g_bestScore = 12;
    g_playField.praiseText = L"さいこうきろく！", g_playField.praiseBonus = 5, g_playField.praiseBig = true;
    g_playField.praiseDuration = 84, g_playField.praiseTimeLeft = 42;
    SetLanguageTexts(language);
}

bool Near(uint32_t pixel, uint32_t colour) {
    int distance = 0;
    for (int shift : {0, 8, 16, 24}) distance += std::abs(int(pixel >> shift & 0xFF) - int(colour >> shift & 0xFF));
    return distance < 60;
}

using Labels = FontTest;

TEST_F(Labels, EachStaysInsideItsRepaintBoxWithTextOnlyWhenAFontIsUsable) {
    const bool fonts = LabelFamily()->IsAvailable();
    for (const Home& h : kHomes) {
        for (const Language language : {Language::kJapanese, Language::kEnglish}) {
            Play(h, language);
            // Sound on in Japanese, off in English: both symbols get drawn.
            const bool english = language == Language::kEnglish;
            const wchar_t* soundSymbol = english ? kSoundOffSymbol.data() : kSoundOnSymbol.data();
            const struct {
                const char* name;
                std::function<void(Gdiplus::Graphics&)> draw;
                Rect area;     // where the repaint bookkeeping redraws it
                uint32_t ink;  // its text colour
            } labels[] = {
                {"finish", [&](auto& g) { DrawButton(g, h.finish, 0xC0BCE8, 0x8E84BA, kFinishSymbol.data(), kFinishLabel.data(), 28); },
                 ButtonPaintArea(h.finish), 0xFF3C3C48},
                {"sound", [&](auto& g) { DrawButton(g, h.sound, 0xB0DAEC, 0x6C9EBC, soundSymbol, nullptr, 34); },
                 ButtonPaintArea(h.sound), 0xFF3C3C48},
                {"score", DrawScorePanel, ScorePanelArea(), 0xFF5A6E96},
                {"instruction", [&](auto& g) { DrawPill(g, 26 * h.s, 26 * h.s, L"", InstructionText.c_str(), 0xFF4678B4, 0xFF8CC8F0, true); },
                 InstructionPillArea(), 0xFF4678B4},
                {"praise", DrawPraise, PraiseArea(), 0xFFFFBE28},
                {"hint", DrawHintBalloon, HintBalloonArea(), 0xFF2D5096},
            };
            const int width = Width(h.home), height = Height(h.home);
            Canvas home(width, height);
            home.graphics.Clear(Gdiplus::Color(0xFFC8E4FA));  // the pale sky behind the scenery
            for (const auto& label : labels) {
                SCOPED_TRACE(testing::Message() << label.name << " " << h.s << " " << width);
                label.draw(home.graphics);
                Canvas alone(width, height);
                label.draw(alone.graphics);
                int outside = 0, drawn = 0, ink = 0;
                const std::vector<uint32_t> pixels = alone.Pixels();
                for (int i = 0; i < width * height; ++i) {
                    if (!pixels[i]) continue;
                    const Rect& a = label.area;
                    ++drawn, ink += Near(pixels[i], label.ink);
                    outside += i % width < a.left || i % width >= a.right || i / width < a.top || i / width >= a.bottom;
                }
                EXPECT_EQ(outside, 0);
                EXPECT_EQ(drawn > 0, fonts || std::string(label.name) != "praise");  // a praise is text alone
                EXPECT_EQ(ink > 30, fonts);
            }
            const std::wstring png = std::wstring(L"home-") + h.name + (english ? L"-en" : L"-ja");
            EXPECT_TRUE(home.SaveAs((png + (fonts ? L".png" : L"-without-fonts.png")).c_str()));
        }
    }
}

TEST_F(Labels, ScorePanelRightAlignedWithBothScoresInFull) {
    Play(kHomes[0], Language::kJapanese);
    Canvas canvas(1920, 200);
    DrawScorePanel(canvas.graphics);
    // Of each pill's rows: the first and last drawn column (the soft shadow
    // aside), and the last column of text ink.
    struct Band { int left = 1920, right = -1, inkRight = -1; };
    auto scan = [pixels = canvas.Pixels()](int top, int bottom, uint32_t colour) {
        Band band;
        for (int i = top * 1920; i < bottom * 1920; ++i) {
            if (pixels[i] >> 24 < 0xC0) continue;
            band.left = std::min(band.left, i % 1920), band.right = std::max(band.right, i % 1920);
            if (Near(pixels[i], colour)) band.inkRight = std::max(band.inkRight, i % 1920);
        }
        return band;
    };
    const Band best = scan(20, 80, 0xFFB47828), current = scan(100, 160, 0xFF5A6E96);
    // The best pill, the wider, ends 26 from the right edge (its 2-wide
    // border straddles the edge); the current pill starts with it.
    EXPECT_NEAR(best.right, 1920 - 26, 1);
    EXPECT_LT(current.right, best.right - 20);
    EXPECT_NEAR(current.left, best.left, 1);
    // Each text runs on to the padding at its pill's right end: none is cut short.
    for (const Band& band : {best, current}) EXPECT_NEAR(band.right - band.inkRight, 22, 8);
}

}  // namespace
