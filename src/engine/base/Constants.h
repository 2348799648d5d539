#pragma once
#include <cstddef>
#include <cstdint>

// The numbers behind the engine's behaviour, in one place. Times are milliseconds, lengths pixels.
namespace engine::constants {

// Idling: the wait before the first idle animation and between two of them, and how long a level lasts.
inline constexpr std::int32_t IdleFirstWait = 5000;
inline constexpr std::int32_t IdleWait = 4000;
inline constexpr std::int32_t IdleLevelLength = 30000;

// Balloon.
inline constexpr std::int32_t BalloonAutoHide = 2000;
inline constexpr std::int32_t BalloonScrollTick = 20;
inline constexpr std::int32_t BalloonScrollTicksPerLine = 6;
inline constexpr std::int32_t BalloonPadding = 8;
inline constexpr std::int32_t BalloonOutline = 1;
inline constexpr std::int32_t BalloonTailLength = 14;
inline constexpr std::int32_t BalloonTailMargin = 16;  // From the body's corners to the middle of the tail.

// Speech.
inline constexpr std::int32_t SpeechPoll = 20;
inline constexpr std::int32_t SoundStallLimit = 3000;        // A sound output that stands still this long is given up.
inline constexpr std::size_t SpeechPieceCharacters = 1500;   // A longer text is synthesised piece by piece.
inline constexpr std::int32_t SpeechPieceLead = 5000;        // Sound left to play when the next piece is ordered.
inline constexpr std::size_t ReadingCharactersPerWord = 12;  // Longer words take the time of several.

// Moving.
inline constexpr std::int32_t DefaultMoveTime = 1000;
inline constexpr std::int32_t SlideTick = 20;
inline constexpr std::int32_t DragThreshold = 4;

// Animation: frames without duration that are passed before the player pauses for one hundredth of a second.
inline constexpr int StepsWithoutPause = 100;
inline constexpr std::int32_t EndlessStepPause = 10;
inline constexpr std::int32_t EffectRepeatLimit = 100;  // A sound effect is not begun again within this time.

inline constexpr std::size_t SoundFileLimit = 64u << 20;  // Bytes.

}
