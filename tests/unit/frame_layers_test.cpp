// When the frame hands the instruction pill to the home window's drawers,
// and which buttons get a face (where and how they are drawn is the
// reference pictures' part).
#include <gtest/gtest.h>

#include "play/display_records.h"
#include "play/play_field.h"
#include "render/frame_layers.h"
#include "settings/language.h"
#include "tests/unit/fake_platform.h"

namespace {

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

TEST(FrameLayers, OnlyKnownButtonsHaveAFace) {
    ButtonFace face;
    EXPECT_TRUE(ButtonFaceFor(kFinishButton, true, face) && ButtonFaceFor(kSoundButton, false, face));
    EXPECT_FALSE(ButtonFaceFor(7, true, face));
}

}  // namespace
