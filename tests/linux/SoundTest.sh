# What happens when the system's sound or its voices are missing.
# shellcheck shell=bash

test_DoubleClick_WithoutASoundServer_ShowsTheTextAtSpeakingPace() {
    desktop_start nosound
    companion_on_desktop
    copy_text "$middle_text"
    double_click_character
    expect_soon "a balloon comes" balloon_visible
    local begun=$EPOCHREALTIME
    expect_soon "the balloon goes" is_silent
    expect "it takes the time of speaking" is_between 3 "$(seconds_since "$begun")" 20
    expect "it ends well" parlune_end
}

test_SoundServerGone_WhileSpeaking_TheTextGoesOn() {
    desktop_start
    companion_on_desktop
    copy_text "$long_text"
    double_click_character
    expect_soon "the speech is heard" is_playing
    kill -9 "$desktop_sound_pid"
    expect_soon "the sound server is gone" has_ended "$desktop_sound_pid"
    expect_soon "the program has seen it" has_caught_up
    expect "the balloon is still there" balloon_visible
    expect_soon "the balloon goes" is_silent
    copy_text "$short_text"
    double_click_character
    expect_soon "the next text is shown" balloon_visible
    expect "it ends well" parlune_end
}

test_DoubleClick_WithoutVoices_ShowsTheText() {
    desktop_start
    hide_voices
    put_option DSSInstalled 1 # They were there at an earlier start.
    companion_on_desktop
    copy_text "$short_text"
    double_click_character
    expect_soon "a balloon comes" balloon_visible
    expect_soon "the balloon goes" is_silent
    expect "it ends well" parlune_end
}

test_Start_WithoutVoices_Cancel_StartsAnyway() {
    desktop_start nosound
    hide_voices
    put_option FirstTime 0
    parlune_start
    expect_soon "it asks what to do" question_visible || return
    expect_not "the character waits for the answer" character_visible
    answer Escape
    expect_soon "the character is on the desktop" character_visible
    expect "it ends well" parlune_end
}

test_Start_WithoutVoices_Ok_Ends() {
    desktop_start nosound
    hide_voices
    parlune_start
    expect_soon "it asks what to do" question_visible || return
    answer Return
    expect_soon "it has ended" has_ended "$parlune_pid"
    expect_not "no character came" character_visible
}

# As on a machine without the speech library's data.
hide_voices() {
    mkdir -p "$desktop/empty/espeak-ng-data"
    export ESPEAK_DATA_PATH=$desktop/empty
}

seconds_since() { awk -v now="$EPOCHREALTIME" -v then="$1" 'BEGIN { print now - then }'; }
