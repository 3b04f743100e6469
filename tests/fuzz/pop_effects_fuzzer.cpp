// Any sequence of pops, bubbles, frame ticks and holds on the penguin: the
// three lists never pass their caps (160 bubbles, 32 rings, 180 particles),
// a pop adds no more than its burst, and the motion drops everything that
// has run its life or risen out of sight, thinning the effects while the
// penguin blows.
#include "app/display_windows.h"
#include "play/bubbles.h"
#include "play/play_field.h"
#include "play/pop_effects.h"
#include "play/random.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/unit/fake_platform.h"

namespace {

void CheckCaps() {
    const PlayField& field = g_playField;
    FUZZ_CHECK(field.bubbles.size() <= kMaxBubbles);
    FUZZ_CHECK(field.rings.size() <= kMaxRings);
    FUZZ_CHECK(field.particles.size() <= kMaxParticles);
}

void Pop(FuzzInput& input) {
    PlayField& field = g_playField;
    const float x = input.FloatIn(-2000, 6000), y = input.FloatIn(-2000, 4000);
    const bool gold = input.Bool(), soft = input.Bool();
    const size_t rings = field.rings.size(), particles = field.particles.size();
    SpawnPopEffect(x, y, input.Byte(), input.Byte(), input.Byte(), gold, soft);
    // A soft pop: one ring and two drops at most, nothing with 90 particles
    // about. A full pop: a flash ring for gold and the main ring, 22 + 6
    // (gold) or 11 + 2 particles.
    const size_t maxRings = soft ? 1 : (gold ? 2 : 1);
    const size_t maxParticles = soft ? 2 : (gold ? 28 : 13);
    FUZZ_CHECK(field.rings.size() >= rings && field.rings.size() - rings <= maxRings);
    FUZZ_CHECK(field.particles.size() >= particles && field.particles.size() - particles <= maxParticles);
    if (soft && particles >= 90) {
        FUZZ_CHECK(field.rings.size() == rings && field.particles.size() == particles);
    }
}

void Step() {
    PlayField& field = g_playField;
    const size_t bubbles = field.bubbles.size();
    StepMotion();
    FUZZ_CHECK(field.bubbles.size() <= bubbles);
    for (const Bubble& b : field.bubbles) FUZZ_CHECK(b.y + 1.5f * b.radius >= 0);
    for (const PopRing& r : field.rings) FUZZ_CHECK(r.age < r.life);
    for (const PopParticle& p : field.particles) FUZZ_CHECK(p.age < p.life);
    if (field.blowing) FUZZ_CHECK(field.rings.size() <= 12 && field.particles.size() <= 90);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    ResetWorld(input.U32());
    g_dpiScale = input.FloatIn(1.0f, 3.0f);
    LayoutPlayField();
    PlayField& field = g_playField;

    for (int op = 0; op < 96 && !input.Empty(); ++op) {
        switch (input.Byte() % 7) {
            case 0:
                Pop(input);
                break;
            case 1:
                Step();
                break;
            case 2: {
                const size_t bubbles = field.bubbles.size();
                const bool made = SpawnBubble(input.FloatIn(-2000, 6000), input.FloatIn(-2000, 4000),
                                              input.FloatIn(0.5f, 2.0f), input.Bool(), input.Bool());
                FUZZ_CHECK(made == (bubbles < kMaxBubbles));
                FUZZ_CHECK(field.bubbles.size() == bubbles + (made ? 1 : 0));
                break;
            }
            case 3:  // many pops in a burst, as a child's palm gives
                for (int i = input.IntIn(1, 40); i > 0; --i) Pop(input);
                break;
            case 4:  // a touch on the penguin starts, keeps on or ends
                field.pressStartTick = g_fake.now - input.IntIn(0, 600);
                field.pressIsTouch = true;
                field.touchHeld = input.Byte() < 0xE0;
                break;
            case 5:  // the frame timer, a little late or early
                g_fake.now += static_cast<uint32_t>(input.IntIn(0, 100));
                AdvanceFrame();
                g_fake.invalidated.clear();
                break;
            default:
                field.blowing = input.Bool();
                EmitAmbientBubbles();
                break;
        }
        CheckCaps();
    }
    return 0;
}
