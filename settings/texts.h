// Every fixed text the program shows. Only the instruction and the hint
// exist in English as well (language.h picks one); every other word on
// screen is Japanese whatever the language. The Japanese texts separate
// words with the ASCII space.
#pragma once

#include <string_view>

// The instruction pill.
inline constexpr std::wstring_view kInstructionEnglish = L"Pop the bubbles!";
inline constexpr std::wstring_view kInstructionJapanese = L"しゃぼんだまを けしてね";
// The hint balloon beside the penguin: the line feed splits it into two
// centred lines.
inline constexpr std::wstring_view kHintEnglish = L"Hold me down\nto blow lots of bubbles!";
inline constexpr std::wstring_view kHintJapanese = L"ぼくを ながく おすと\nしゃぼんだまが たくさん でるよ";

// The score pills: prefix, number, counter word.
inline constexpr std::wstring_view kBestScorePrefix = L"さいこう ";
inline constexpr std::wstring_view kCurrentScorePrefix = L"いま ";
inline constexpr std::wstring_view kCounterWord = L" こ";
// The finish button's label and the prefix of the bonus points above a
// praise word.
inline constexpr std::wstring_view kFinishLabel = L"おわりにする";
inline constexpr std::wstring_view kBonusPrefix = L"+";

// The button symbols.
inline constexpr std::wstring_view kFinishSymbol = L"\u2716";    // ✖
inline constexpr std::wstring_view kSoundOnSymbol = L"\u266A";   // ♪
inline constexpr std::wstring_view kSoundOffSymbol = L"\u2715";  // ✕
