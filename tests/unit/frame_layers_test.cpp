// What the frame hands to the home window's drawers: the button faces and
// when the instruction pill shows.
#include <gtest/gtest.h>

#include <string>

#include "app/display_windows.h"
#include "play/play_field.h"
#include "render/frame_layers.h"
#include "settings/language.h"
#include "tests/unit/fake_platform.h"

namespace {

std::wstring Text(const wchar_t* text) { return text ? text : L"(none)"; }

TEST(FrameLayers, ButtonFacesByKind) {
    const struct {
        int32_t kind;
        bool sound;
        ColourRef body, border;
        std::wstring symbol, label;
        int32_t symbolSize;
    } cases[] = {
        {kFinishButton, true, 0xC0BCE8, 0x8E84BA, L"✖", L"おわりにする", 28},
        {kSoundButton, true, 0xB0DAEC, 0x6C9EBC, L"♪", L"(none)", 34},
        {kSoundButton, false, 0xB0DAEC, 0x6C9EBC, L"✕", L"(none)", 34},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.kind << " sound " << c.sound);
        ButtonFace face;
        ASSERT_TRUE(ButtonFaceFor(c.kind, c.sound, face));
        EXPECT_EQ(face.body, c.body);
        EXPECT_EQ(face.border, c.border);
        EXPECT_EQ(Text(face.symbol), c.symbol);
        EXPECT_EQ(Text(face.label), c.label);
        EXPECT_EQ(face.symbolSize, c.symbolSize);
    }
    for (int32_t unknown : {0, 1, 4, -3}) {
        ButtonFace face;
        EXPECT_FALSE(ButtonFaceFor(unknown, true, face)) << unknown;
    }
}

TEST(FrameLayers, InstructionPillShowsUntilTheTenthPoint) {
    const struct {
        int32_t score;
        bool english, emptyText;
        Rect home;
        bool shows;
    } cases[] = {
        {9, false, false, {0, 0, 1920, 1080}, true},
        {9, true, false, {0, 0, 1920, 1080}, true},
        {10, false, false, {0, 0, 1920, 1080}, false},
        {0, false, true, {0, 0, 1920, 1080}, false},
        {0, false, false, {1920, 0, 1920, 1024}, false},
        {0, false, false, {1920, 50, 3200, 50}, false},
    };
    for (const auto& c : cases) {
        ResetWorld();
        SetLanguageTexts(c.english ? Language::kEnglish : Language::kJapanese);
        if (c.emptyText) InstructionText.clear();
        g_playField.score = c.score;
        g_playField.homeRect = c.home;
        EXPECT_EQ(InstructionPillShows(), c.shows) << c.score << " " << c.english << " " << c.emptyText;
    }
}

}  // namespace
