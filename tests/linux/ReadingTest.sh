# Reading aloud, as a person starts it and hears it.
# shellcheck shell=bash

test_DoubleClick_TextOnTheClipboard_IsHeardAndShown() {
    desktop_start
    companion_on_desktop
    copy_text "$middle_text"
    start_recording "$desktop/heard.raw"
    double_click_character
    expect_soon "a balloon comes" balloon_visible
    expect_soon "the speech ends and the balloon goes" is_silent
    end_recording
    expect "three to nine seconds of speech, heard: $(seconds_heard "$desktop/heard.raw")" \
        is_between 3 "$(seconds_heard "$desktop/heard.raw")" 9
    expect "it ends well" parlune_end
}

test_DoubleClick_WhileSpeaking_ReplacesTheSpeech() {
    desktop_start
    put_option QueueReadCommands 0
    companion_on_desktop
    copy_text "$endless_text"
    start_recording "$desktop/heard.raw"
    double_click_character
    expect_soon "the first speech is heard" is_playing
    copy_text "$short_text"
    double_click_character
    expect_soon "the speech ends" is_silent
    end_recording
    expect "little more than the second text, heard: $(seconds_heard "$desktop/heard.raw")" \
        is_between 0.8 "$(seconds_heard "$desktop/heard.raw")" 60
    expect "it ends well" parlune_end
}

test_DoubleClick_WhileSpeaking_WithQueueing_WaitsItsTurn() {
    desktop_start
    put_option QueueReadCommands 1
    companion_on_desktop
    copy_text "$middle_text"
    start_recording "$desktop/heard.raw"
    double_click_character
    expect_soon "the first speech is heard" is_playing
    copy_text "$middle_text"
    double_click_character
    expect_soon "the speech ends" is_silent
    end_recording
    expect "both texts, heard: $(seconds_heard "$desktop/heard.raw")" \
        is_between 7.5 "$(seconds_heard "$desktop/heard.raw")" 18
    expect "it ends well" parlune_end
}

test_DoubleClick_PictureOnTheClipboard_DoesNothing() {
    desktop_start
    companion_on_desktop
    copy_picture
    double_click_character
    expect_not "no balloon comes" wait_until 2 balloon_visible
    expect "nothing is heard" is_silent
    copy_text "$short_text"
    double_click_character
    expect_soon "a text is read afterwards" balloon_visible
    expect "it ends well" parlune_end
}

test_Copy_WithTheClipboardWatched_IsReadAloud() {
    desktop_start
    put_option MonitorClipboard 1
    companion_on_desktop
    expect_not "it is silent at first" balloon_visible
    copy_text "$short_text"
    expect_soon "a balloon comes" balloon_visible
    expect_soon "it is heard" is_playing
    expect "it ends well" parlune_end
}

test_ShiftClick_WhileSpeaking_Silences() {
    desktop_start
    companion_on_desktop
    copy_text "$endless_text"
    double_click_character
    expect_soon "the speech is heard" is_playing
    let_the_click_end
    xdotool keydown shift click 1 keyup shift
    expect_soon "it is silent" is_silent
    expect "it ends well" parlune_end
}
