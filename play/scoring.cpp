// Popping, scoring, praise and the penguin's celebration.
#include "play/scoring.h"

#include <algorithm>

#include "play/sound_bank.h"
#include "play/platform.h"
#include "play/play_field.h"
#include "play/pop_effects.h"
#include "play/random.h"
#include "play/sound_bank.h"
#include "settings/high_score.h"

const std::wstring_view kRecordWords[4] = {L"さいこうきろく！", L"きろくこうしん！", L"すごいね！", L"やったね！"};
const std::wstring_view kGoldWords[5] = {L"はやい！", L"キラキラ！", L"キャッチ！", L"すばらしい！", L"ぴったり！"};
const std::wstring_view kMilestoneWords[6] = {L"すごい！",   L"じょうず！", L"やったね！",
                                              L"すごいね！", L"はなまる！", L"いいね！"};

namespace {

// Praise lengths in frame ticks.
constexpr float kRecordTicks = 84;
constexpr float kGoldTicks = 78;
constexpr float kMilestoneTicks = 66;

// A new praise replaces the one on show from its start.
void GivePraise(std::wstring_view word, bool big, int32_t bonus, float ticks) {
    PlayField& field = g_playField;
    field.praiseText = word;
    field.praiseBig = big;
    field.praiseBonus = bonus;
    field.praiseDuration = ticks;
    field.praiseTimeLeft = ticks;
}

// Normal pops sound at most once per 20 ms. A soft pop (another finger
// popping while the penguin blows) needs 100 ms since the last pop sound,
// and then only every fourth one that gets that far is heard.
void PlayPopSound(bool soft) {
    PlayField& field = g_playField;
    if (!g_soundEnabled || g_soundBank.popSounds.empty()) return;
    const uint32_t now = TickCount();
    if (now - field.lastPopSoundTick < (soft ? 100u : 20u)) return;
    if (soft && ++field.softPopCount % 4 != 0) return;
    field.lastPopSoundTick = now;
    const auto count = static_cast<int32_t>(g_soundBank.popSounds.size());
    PlayMemorySound(g_soundBank.popSounds[static_cast<size_t>(RandomInt(0, count - 1))]);
}

}  // namespace

void PopBubble(std::size_t index) {
    PlayField& field = g_playField;
    if (index >= field.bubbles.size()) return;
    const Bubble bubble = field.bubbles[index];
    const bool soft = field.blowing && !bubble.gold;

    SpawnPopEffect(bubble.x, bubble.y, bubble.red, bubble.green, bubble.blue, bubble.gold, soft);
    PlayPopSound(soft);
    field.bubbles.erase(field.bubbles.begin() + static_cast<std::ptrdiff_t>(index));
    field.score += bubble.gold ? 5 : 1;

    if (field.score > g_bestScore) {
        const int32_t previousBest = g_bestScore;
        g_bestScore = field.score;
        SaveBestScore();  // on every pop that raises it
        // A run announces at most one record. The very first run has no
        // record to beat: its first point uses up the announcement silently,
        // or its second point would "beat" the first.
        if (!field.recordAnnounced) {
            field.recordAnnounced = true;
            if (previousBest >= 1) {
                GivePraise(kRecordWords[RandomInt(0, 3)], true, 0, kRecordTicks);
                field.celebrateTimeLeft = kRecordTicks;
                field.celebratePhase = 0;
                if (g_soundEnabled) PlayMemorySound(g_soundBank.cheerSound);
            }
        }
    }

    if (bubble.gold) {
        GivePraise(kGoldWords[RandomInt(0, 4)], true, 5, kGoldTicks);
    } else if (!field.blowing && field.score % 10 == 0) {
        // Blowing suppresses milestones; a gold bubble's five points can
        // jump over one.
        GivePraise(kMilestoneWords[std::max(field.score / 10 - 1, 0) % 6], false, 0, kMilestoneTicks);
    } else {
        return;  // a record praise of this pop stays on show
    }
    // The cheer starts again if the record already started it.
    if (g_soundEnabled) PlayMemorySound(g_soundBank.cheerSound);
}
