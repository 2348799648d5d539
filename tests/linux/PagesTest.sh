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
    expect_within 5 "$what: a balloon comes" balloon_visible
    expect_within 20 "$what: it ends" is_silent
    end_recording
    seconds=$(seconds_heard "$desktop/heard.raw")
    expect "$what: it is heard, not $seconds s" is_between 0.5 "$seconds" 15
}

# type_into NAME TEXT: replaces what is in a box.
type_into() {
    click_at "$1"
    xdotool key ctrl+a
    xdotool type "$2"
}

test_VoicePage_UsedByMouse_IsHeardAndStored() {
    desktop_start
    companion_on_desktop
    open_options
    go_to_tab voice
    sleep 1 # The list fills.
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
    xdotool key End
    expect_heard "Test of the modifiers" click_at "cmdTTSVoice(0)"
    click_at "cmdTTSVoice(2)"
    expect_within 5 "the modifiers are stored" modifiers_are "$voice" "10000,400,"
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
    sleep 1 # The list fills.
    type_into cboFontName "DejaVu Sans Mono"
    type_into cboFontSize 14
    type_into txtCharsPerLine 20
    type_into txtNumberOfLines 2
    click_at "chkBalloon(1)" # No longer sized to the text: two lines of twenty letters.
    click_at "cmdSetFont(0)"
    expect_within 3 "the font is stored" setting_is FontName "DejaVu Sans Mono"
    expect "its size is stored" setting_is FontSize 14
    # Lines, letters, and the bits for showing, hiding and pacing.
    expect "the style is stored, not $(stored_setting BalloonStyle)" setting_is BalloonStyle "&H0214000D"
    go_to_tab greetings
    type_into "txtGreeting(0)" "Good day. I can be heard and read."
    click_at cmdTestWelcome
    expect_within 5 "a greeting is shown" balloon_visible
    expect_within 20 "the greeting ends" is_silent
    go_to_tab balloon
    click_at "cmdSetFont(1)"
    expect_within 3 "the font is stored no more" eval '! setting_is FontName "DejaVu Sans Mono"'
    go_to_tab greetings
    expect_heard "Test Greeting" click_at cmdTestWelcome
    expect "it ends well" parlune_end
}
