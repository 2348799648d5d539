#pragma once
#include <cstdint>
#include <optional>

// The steps of loading that give the new current character the user's settings. Each reports its failures and goes on.
namespace character {

// The name under which the session's procedures report.
inline constexpr char SessionModule[] = "Parlune";

// Position and size on the screen, in pixels.
struct ScreenFrame {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

// Shows the voice modifiers that are stored for the character's present voice.
void CharLoad_AdvSpeechTags();
// Gives the balloon the stored font, else leaves it the character's own.
void CharLoad_BalloonFont();
// Gives the balloon the stored style and shows it, else changes nothing.
void CharLoad_BalloonStyle();
// Applies the custom size, if it is switched on, and shows the character's size.
void CharLoad_CustomSize();
// Moves the character to the stored position, on the centre of the character that it replaces (`former`), or to the
// bottom right corner; never more than half off the screen.
void CharLoad_Placement(const std::optional<ScreenFrame>& former);

}
