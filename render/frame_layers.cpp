// The home window's buttons and instruction pill as the frame shows them.
#include "render/frame_layers.h"

#include "play/display_records.h"
#include "play/play_field.h"
#include "settings/language.h"
#include "settings/texts.h"

bool ButtonFaceFor(int32_t kind, bool soundEnabled, ButtonFace& face) {
    switch (kind) {
    case kFinishButton:
        face = {ColourFromRgb(232, 188, 192), ColourFromRgb(186, 132, 142), kFinishSymbol.data(),
                kFinishLabel.data(), 28};
        return true;
    case kSoundButton:
        face = {ColourFromRgb(236, 218, 176), ColourFromRgb(188, 158, 108),
                (soundEnabled ? kSoundOnSymbol : kSoundOffSymbol).data(), nullptr, 34};
        return true;
    default:
        return false;
    }
}

bool InstructionPillShows() {
    const PlayField& field = g_playField;
    return field.score < 10 && !InstructionText.empty() && !IsEmpty(field.homeRect);
}

PointF InstructionPillOrigin() {
    const Rect& home = g_playField.homeRect;
    return {static_cast<float>(home.left) + 26 * g_dpiScale, static_cast<float>(home.top) + 26 * g_dpiScale};
}
