# The pages of the options window whose buttons speak: voices, modifiers, balloon and greetings.
# shellcheck shell=bash

settings_file() { echo "$(settings_folder)/Parlune.ini"; }
# What is stored for the character under a key.
stored_setting() { sed -n "s/^$1=\(.*\)\$/\1/p" "$(settings_file)" 2>/dev/null | tr -d '\r'; }
setting_is() { [ "$(stored_setting "$1")" = "$2" ]; }
setting_is_there() { [ -n "$(stored_setting "$1")" ]; }

# is_heard "WHAT" COMMAND...: the command lets the character speak, with a balloon, for half a second or more.
expect_heard() {
    local what=$1 seconds
    shift
    start_recording "$desktop/heard.raw"
    "$@"
    expect_soon "$what: a balloon comes" balloon_visible
    expect_soon "$what: it ends" is_silent
    end_recording
    seconds=$(seconds_heard "$desktop/heard.raw")
    expect "$what: it is heard, not $seconds s" is_between 0.5 "$seconds" 15
}

# type_into NAME TEXT: replaces what is in a box.
type_into() {
    click_at "$1"
    press ctrl+a
    xdotool type "$2"
}

test_VoicePage_UsedByMouse_IsHeardAndStored() {
    desktop_start
    companion_on_desktop
    open_options
    copy_text "$short_text"
    expect_heard "Read Clipboard Now" click_at cmdReadClipboard
    go_to_tab voice
    click_at lstTTS # One of those in the middle.
    expect_heard "Test" click_at "cmdTTSVoice(0)"
    expect_not "a test stores nothing" setting_is_there TTSModeID
    expect_heard "Set" click_at "cmdTTSVoice(2)"
    expect "the voice is stored" setting_is_there TTSModeID
    local voice
    voice=$(stored_setting TTSModeID)
    click_at tabTTS/1
    click_at "chkAdvSpkTags(0)"
    click_at "sldAdvSpeak(0)"
    press End
    expect_heard "Test of the modifiers" click_at "cmdTTSVoice(0)"
    click_at "cmdTTSVoice(2)"
    expect_soon "the modifiers are stored" modifiers_are "$voice" "10000,400,"
    expect_heard "Reset of the modifiers" click_at "cmdTTSVoice(1)"
    expect_not "the modifiers are gone" grep -q 10000,400 "$(settings_file)"
    click_at tabTTS/0
    expect_heard "Reset" click_at "cmdTTSVoice(1)"
    expect_not "the voice is gone" setting_is_there TTSModeID
    expect "it ends well" parlune_end
}
modifiers_are() { grep -Fq "$1=$2" "$(settings_file)"; }

test_BalloonAndGreetingsPages_UsedByMouse_AreHeardAndStored() {
    desktop_start
    companion_on_desktop
    open_options
    go_to_tab balloon
    type_into cboFontName "DejaVu Sans Mono"
    type_into cboFontSize 14
    type_into txtCharsPerLine 20
    type_into txtNumberOfLines 2
    click_at "chkBalloon(1)" # No longer sized to the text: two lines of twenty letters.
    click_at "cmdSetFont(0)"
    expect_soon "the font is stored" setting_is FontName "DejaVu Sans Mono"
    expect "its size is stored" setting_is FontSize 14
    # Lines, letters, and the bits for showing, hiding and pacing.
    expect "the style is stored, not $(stored_setting BalloonStyle)" setting_is BalloonStyle "&H0214000D"
    go_to_tab greetings
    type_into "txtGreeting(0)" "Good day. I can be heard and read."
    click_at cmdTestWelcome
    expect_soon "a greeting is shown" balloon_visible
    expect_soon "the greeting ends" is_silent
    go_to_tab balloon
    click_at "cmdSetFont(1)"
    expect_soon "the font is stored no more" eval '! setting_is FontName "DejaVu Sans Mono"'
    go_to_tab greetings
    expect_heard "Test Greeting" click_at cmdTestWelcome
    expect "it ends well" parlune_end
}

# What the program gives to the desktop to be opened is written down.
put_opener() {
    mkdir "$desktop/bin"
    printf '#!/bin/sh\necho "$1" >>"%s"\n' "$desktop/opened" >"$desktop/bin/xdg-open"
    chmod +x "$desktop/bin/xdg-open"
    export PATH=$desktop/bin:$PATH
}

# expect_opened ADDRESS COMMAND...: the command opens this page and no other.
expect_opened() {
    local address=$1
    shift
    rm -f "$desktop/opened"
    "$@"
    expect_soon "$address is opened" test -s "$desktop/opened"
    expect "it is that page: $(cat "$desktop/opened")" [ "$(<"$desktop/opened")" = "$address" ]
}

test_AboutPageAndDownloadMenu_ByMouseAndKeyboard_OpenWebPages() {
    desktop_start nosound
    put_opener
    companion_on_desktop
    open_options
    press alt+h a # "About..."
    expect_opened https://parlune.example/ click_at imgParlune
    expect_opened https://parlune.example/agent-ring click_at imgAgentRing
    expect_opened https://parlune.example/ click_at "lblURL(2)"
    expect_opened https://parlune.example/agent-ring click_at "lblURL(1)"
    expect_opened https://parlune.example/scripting click_at "lblURL(0)"
    press Tab # From the last link to the last picture.
    expect_opened https://parlune.example/agent-ring press space
    expect_opened https://parlune.example/characters press alt+d Return
    expect_opened https://parlune.example/speech-engines press alt+d Down Return
    expect "it ends well" parlune_end
}

test_VoiceBalloonAndGreetingsPages_ByKeyboard_AreHeardAndStored() {
    desktop_start
    companion_on_desktop
    open_options
    turn_pages 2
    use_voices
    use_modifiers
    turn_pages 1
    use_balloon
    turn_pages 2
    press Tab Tab Tab
    xdotool type "Hello, can you hear me?"
    press Tab Tab # Over the animation to the button.
    expect_heard "Test Greeting" press space
    expect "it ends well" parlune_end
    expect "the greeting is stored" [ "$(stored_option Greeting1)" = "Hello, can you hear me?" ]
}

# From the tabs of the page over the list and the text to the buttons Test, Set and Reset to Default.
use_voices() {
    press Tab Tab Down Tab Tab
    expect_heard "Test" press space
    press Tab
    expect_heard "Set" press space
    expect "the voice is stored" setting_is_there TTSModeID
    press Tab
    expect_heard "Reset" press space
    expect_not "the voice is gone" setting_is_there TTSModeID
}

use_modifiers() {
    press_repeatedly 5 shift+Tab
    press Right Tab space Tab End  # Pitch.
    press_repeatedly 6 Tab         # Over speed and volume.
    press Down                     # The first characteristic; it ticks its box.
    press_repeatedly 5 Tab         # Over the context and the text to Set.
    press space
    expect_soon "the modifiers are stored" grep -q '=10010,400,[0-9]*,32767,0,-1' "$(settings_file)"
    expect_soon "what it says ends" is_silent
}

use_balloon() {
    press ctrl+a
    xdotool type "DejaVu Serif"
    press Tab ctrl+a
    xdotool type 12
    press Tab # A box of numbers is selected when it is entered.
    xdotool type 24
    press Tab
    xdotool type 2
    press Tab space
    expect_soon "the font is stored" setting_is FontName "DejaVu Serif"
    expect "its size is stored" setting_is FontSize 12
    expect "the style is stored, not $(stored_setting BalloonStyle)" setting_is BalloonStyle "&H0218000F"
}
