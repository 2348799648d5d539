# What happens when sound server, loudspeaker or the owner of the clipboard fail in the middle.
# shellcheck shell=bash

test_SoundServer_StandsStillWhileSpeaking_TheProgramAnswersAndCanBeStopped() {
    desktop_start
    companion_on_desktop
    copy_text "$endless_text"
    double_click_character
    expect_soon "the speech is heard" is_playing
    kill -STOP "$desktop_sound_pid"
    expect "the program answers meanwhile" "$program"
    expect "the balloon is still there" balloon_visible
    kill -CONT "$desktop_sound_pid"
    point_at_character
    xdotool keydown shift click 1 keyup shift
    expect_soon "it falls silent" is_silent
    expect "it ends well" parlune_end
}

# The text after the loss asks for the server, and is heard if that is there soon enough; the one after it is.
test_SoundServer_ComesBackAfterItsEnd_TextsAreHeardAgain() {
    desktop_start
    companion_on_desktop
    copy_text "$middle_text"
    double_click_character
    expect_soon "the speech is heard" is_playing
    end_process "$desktop_sound_pid"
    desktop_start_sound
    expect_soon "the text comes to its end" is_silent
    copy_text "$short_text"
    double_click_character
    expect_soon "the next text is shown" balloon_visible
    expect_soon "and comes to its end" is_silent
    copy_text "$endless_text"
    double_click_character
    expect_soon "a text is heard" is_playing
    expect "it ends well" parlune_end
}

test_Loudspeaker_ReplacedWhileSpeaking_TheTextComesToItsEnd() {
    local sink former
    desktop_start
    companion_on_desktop
    add_sink telephone 8000
    copy_text "$middle_text"
    double_click_character
    expect_soon "the speech is heard" is_playing
    former=$sink
    add_sink studio 192000
    pactl unload-module "$former"
    expect_soon "the text comes to its end" is_silent
    copy_text "$middle_text"
    double_click_character
    expect_soon "the next text is heard" is_playing
    expect_soon "and comes to its end" is_silent
    expect "it ends well" parlune_end
}

# bad_copy WAY: a copy whose owner ends or stands still while its text is fetched.
bad_copy() {
    "${program%/*}/bad_owner" "$1" 10 0 >"$desktop/owner.log" 2>&1 &
    owner=$!
    desktop_pids+=("$owner")
}

stands_still_itself() { [[ $(ps -o stat= -p "$1") == T* ]]; }

test_Monitor_OfAnOwnerThatDiesWhileItsTextIsFetched_ReadsTheNextCopy() {
    local owner
    watching_companion
    bad_copy dies
    expect_soon "the owner has died" has_ended "$owner"
    expect "the program answers" "$program"
    copy_text "$short_text"
    expect_soon "the next copy is read" balloon_visible
    expect "it ends well" parlune_end
}

test_Monitor_OfAnOwnerThatStandsStillWhileItsTextIsFetched_ReadsTheNextCopy() {
    local owner
    watching_companion
    bad_copy stalls
    expect_soon "the owner stands still" stands_still_itself "$owner"
    copy_text "$short_text"
    expect_soon "the next copy is read" balloon_visible
    kill -9 "$owner"
    expect "it ends well" parlune_end
}
