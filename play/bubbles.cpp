// Bubbles: their creation from the two sources, their motion and expiry.
#include "play/bubbles.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "play/display_records.h"
#include "play/play_field.h"
#include "play/random.h"

namespace {

// Soft pastel tints of ordinary bubbles.
constexpr Tint kBubblePalette[6] = {
    {180, 226, 255}, {255, 200, 224}, {210, 255, 220}, {255, 236, 180}, {220, 210, 255}, {200, 245, 245},
};
constexpr Tint kGoldTint = {255, 215, 70};

template <typename T, typename Dead>
void EraseDead(std::vector<T>& items, Dead dead) {
    items.erase(std::remove_if(items.begin(), items.end(), dead), items.end());
}

}  // namespace

bool SpawnBubble(float x, float y, float speedFactor, bool forceGold, bool fromPenguin) {
    PlayField& field = g_playField;
    if (field.bubbles.size() >= kMaxBubbles) return false;
    const float s = g_dpiScale;

    // The draws come in this fixed order; tests replay it from a seed.
    Bubble bubble;
    bubble.radius = RandomRange(18, 44) * s;
    bubble.y = y + bubble.radius;  // the top starts at y: the centre one radius below
    bubble.x = x;
    bubble.vy = -(RandomRange(1.1f, 2.4f) * s) * speedFactor;
    bubble.phase = RandomRange(0, 6.28f);
    bubble.phaseStep = RandomRange(0.03f, 0.08f);
    bubble.sway = RandomRange(0.6f, 1.8f) * s;
    const Tint tint = kBubblePalette[RandomInt(0, 5)];
    bubble.red = tint.red;
    bubble.green = tint.green;
    bubble.blue = tint.blue;
    bubble.fromPenguin = fromPenguin;

    bool gold = false;
    if (forceGold || field.nextBubbleGold) {
        field.nextBubbleGold = false;  // an owed gold bubble is paid here
        gold = true;
    } else {
        gold = RandomInt(1, 100) <= 10;
    }
    if (gold) {
        // Smaller, steadier and much faster: worth five points.
        bubble.red = kGoldTint.red;
        bubble.green = kGoldTint.green;
        bubble.blue = kGoldTint.blue;
        bubble.gold = true;
        bubble.radius *= 0.88f;
        bubble.sway *= 0.55f;
        bubble.vy *= RandomRange(4.2f, 5.8f);
    }
    field.bubbles.push_back(bubble);
    return true;
}

void EmitAmbientBubbles() {
    PlayField& field = g_playField;
    // A desktop 1920 pixels wide earns one bubble every 20 ticks; a wider
    // one proportionally more.
    field.ambientAccumulator += (static_cast<float>(g_virtualWidth) / 1920.0f) * 0.05f;
    while (field.ambientAccumulator >= 1.0f) {
        int32_t total = 0;
        for (const DisplayWindow& window : g_displayWindows) total += Width(window.playRect);
        if (total > 0) {
            // Each monitor in proportion to its width.
            int32_t k = RandomInt(0, total - 1);
            const DisplayWindow* chosen = &g_displayWindows.back();
            for (const DisplayWindow& window : g_displayWindows) {
                if (k < Width(window.playRect)) {
                    chosen = &window;
                    break;
                }
                k -= Width(window.playRect);
            }
            const Rect& area = chosen->playRect;
            const float x = static_cast<float>(area.left) + RandomRange(0, static_cast<float>(Width(area)));
            const float y = static_cast<float>(area.bottom);
            field.ambientCount += 1;
            const bool forceGold = field.ambientCount % 20 == 0;
            if (!SpawnBubble(x, y, 1.0f, forceGold, false) && forceGold) {
                field.nextBubbleGold = true;  // the list was full: the next bubble pays it
            }
        }
        field.ambientAccumulator -= 1.0f;
    }
}

void StepMotion() {
    PlayField& field = g_playField;
    for (Bubble& bubble : field.bubbles) {
        bubble.phase += bubble.phaseStep;
        bubble.y += bubble.vy;
        bubble.x += std::sin(bubble.phase) * bubble.sway;
    }
    // Gone once wholly above the play field, with half a radius to spare.
    EraseDead(field.bubbles, [](const Bubble& b) { return b.y + 1.5f * b.radius < 0; });

    for (PopRing& ring : field.rings) {
        ring.age += 1.4f;
        // Ease-out growth that reaches maxRadius as the ring dies.
        ring.radius = ring.maxRadius * std::sin(std::min(ring.age / ring.life, 1.0f) * 1.5707963f);
    }
    EraseDead(field.rings, [](const PopRing& r) { return r.age >= r.life; });

    if (field.blowing) {
        // A long hold popping everything must not pile up effects.
        if (field.particles.size() > 48) {
            field.particles.erase(field.particles.begin(),
                                  field.particles.begin() + static_cast<std::ptrdiff_t>(field.particles.size() / 2));
        }
        if (field.rings.size() > 12) {
            field.rings.erase(field.rings.begin(), field.rings.end() - 8);
        }
    }

    const float gravity = 0.12f * g_dpiScale;
    for (PopParticle& particle : field.particles) {
        particle.age += 1;
        particle.x += particle.vx;
        particle.y += particle.vy;
        particle.vx *= 0.98f;  // air drag
        particle.vy += gravity;
    }
    EraseDead(field.particles, [](const PopParticle& p) { return p.age >= p.life; });
}

bool BubbleHit(const Bubble& bubble, float x, float y) {
    const float hitRadius = bubble.gold ? bubble.radius * 1.18f : bubble.radius;
    const float dx = x - bubble.x;
    const float dy = y - bubble.y;
    return hitRadius * hitRadius >= dx * dx + dy * dy;
}
