# What takes away the place on which the character stands.
# shellcheck shell=bash

top_of_character() { place_of "$(character_window)" | sed 's/.*+//'; }
bottom_of_character_is() { [ $(($(top_of_character) + 128)) -eq "$1" ]; }

# The panel takes the lowest 200 of 800 pixels, and with them more than half of the character.
test_Panel_ThatComesUnderTheCharacter_PushesItIntoTheWorkArea() {
    desktop_start nosound
    companion_on_desktop
    expect "the character stands low" [ "$(top_of_character)" -gt 540 ]
    desktop_server trayer trayer --edge bottom --height 200 --widthtype percent --width 100 --SetDockType true \
        --SetPartialStrut true
    expect_soon "the character stands on the panel" bottom_of_character_is 600
    expect "it ends well" parlune_end
}
