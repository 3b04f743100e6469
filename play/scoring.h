// The one operation that pops a bubble: its burst, its pop sound (spaced so
// that a burst of pops does not become noise), the score, the best score on
// disk, and the praise word with its cheer.
#pragma once

#include <cstddef>
#include <string_view>

// The praise words, the same in every interface language.
extern const std::wstring_view kRecordWords[4];     // a new best score
extern const std::wstring_view kGoldWords[5];       // a gold bubble
extern const std::wstring_view kMilestoneWords[6];  // every ten points

// Pops the bubble at that position of the list; a position past the end
// does nothing. Called only by PointerDown for the bubble hit.
void PopBubble(std::size_t index);
