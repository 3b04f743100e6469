// The penguin's bob, hops and cross-fade, planned over the play field.
#include "render/penguin_motion.h"

#include <algorithm>
#include <cmath>

#include "assets/penguin_images.h"
#include "play/display_records.h"
#include "play/play_field.h"
#include "play/pose_placement.h"

float BobOffset(float animClock, bool blowing, float blowPhase, float scale) {
    float bob = 3 * scale * std::sin(2 * animClock);
    if (blowing) bob += 4 * scale * std::sin(3 * blowPhase);
    return bob;
}

HopPose HopAt(float celebratePhase, float bottom, float height) {
    const float u = celebratePhase / 0.85f;
    const float n = std::floor(u);
    if (n >= 9) return {bottom, height};  // the hops are over: stand still, full size

    // p rises from 0 at take-off to 1 at the top of the hop and back to 0
    // at landing; every other hop is lower.
    const float f = u - n;
    const float p = 4 * f * (1 - f);
    const bool odd = std::fmod(n, 2.0f) != 0;
    const float lift = p * height * 0.38f * (odd ? 0.62f : 1.0f);
    const float squash = 1 - 0.1f * (1 - p) * (1 - p);
    return {bottom - lift, height * squash};
}

float CrossFadeIn(float celebrateTimeLeft) {
    const float a = std::min((84 - celebrateTimeLeft) / 20, 1.0f);
    return (3 - 2 * a) * a * a;
}

PenguinDraws PlanPenguin(bool fadeIntoCelebrating) {
    const PlayField& field = g_playField;
    const Rect& box = field.penguinBox;
    // The centre is a whole pixel, as the layout's is.
    const float centreX = static_cast<float>((box.left + box.right) / 2);
    const float bottom = static_cast<float>(box.bottom);
    const float height = static_cast<float>(box.bottom - box.top);
    const int32_t pose = field.blowing ? kPoseBlowing : kPoseStanding;

    PenguinDraws plan;
    const auto draw = [&plan](const PoseDraw& request) { plan.draws[plan.count++] = request; };

    if (field.celebrateTimeLeft > 0) {
        const HopPose hop = HopAt(field.celebratePhase, bottom, height);
        int32_t width = 0, celebrateHeight = 0;
        if (fadeIntoCelebrating && LoadedPoseSize(PosePictureKind::Celebrate, width, celebrateHeight)) {
            const float e = CrossFadeIn(field.celebrateTimeLeft);
            if (e > 0.001f) {
                // The standing (or blowing) picture fades out under the
                // celebrating one fading in.
                if (e < 0.999f) draw({centreX, hop.bottom, hop.height, 0, pose, 1 - e});
                draw({centreX, hop.bottom, hop.height, 0, kPoseCelebrating, e});
                return plan;
            }
        }
        // A celebrating penguin does not bob.
        draw({centreX, hop.bottom, hop.height, 0, pose, 1});
        return plan;
    }

    const float bob = BobOffset(field.animClock, field.blowing, field.blowPhase, g_dpiScale);
    draw({centreX, bottom, height, bob, pose, 1});
    return plan;
}
