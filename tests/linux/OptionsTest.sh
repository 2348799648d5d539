# Every option, changed by mouse and by keyboard alone, as it is found in the store afterwards.
# shellcheck shell=bash

# Page, box, option, what it is at first.
option_boxes() {
    cat <<'BOXES'
general chkShowSplash ShowSplash 0
general chkStartWithWindows StartWithWindows 0
general chkMinimizeOnClose MinimizeOnClose 1
general chkMonitorClipboard MonitorClipboard 0
general chkReadClipBoardOnDblClick ReadClipboardOnDblClick 1
general chkQueueReadCommands QueueReadCommands 1
general chkSayTime SayTime 1
general chkSayTimeShowIfHidden SayTimeShowIfHidden 1
character chkCustomSize CharSize 0
character chkPlayReadAnimation PlayReadAnimation 1
character chkIdleOn IdleOn 1
character chkSoundEffectsOn SoundEffectsOn 1
character chkStartUpHideInTray StartUpHideInTray 0
character chkSavePosOnClose SavePosOnClose 1
greetings chkReadGreeting ReadGreeting 0
BOXES
}

# Every box has become the other of what it was at first.
expect_boxes_changed() {
    local option first
    while read -r _ _ option first; do
        expect "$option is $((1 - first)), not $(stored_option "$option")" [ "$(stored_option "$option")" = $((1 - first)) ]
    done < <(option_boxes)
    expect "the session starts Parlune" [ "$(stored_option Parlune)" = "${program%/*}/Parlune.exe" ]
    expect "the session's entry is there" test -s "$XDG_CONFIG_HOME/autostart/parlune.desktop"
    expect "the browser's menu entry is there" grep -q 'MenuExt.Read with Parlune\]$' "$(registry_file)"
}

test_Options_ChangedByMouse_AreStored() {
    desktop_start nosound
    companion_on_desktop
    open_options
    local page box
    for page in general character greetings; do
        go_to_tab "$page"
        while read -r box; do click_at "$box"; done < <(option_boxes | awk -v page="$page" '$1 == page { print $2 }')
        [ "$page" != general ] || click_at chkIEMenu
    done
    expect "it ends well" parlune_end
    expect_boxes_changed
    start_again
    open_options
    go_to_tab general
    click_at chkStartWithWindows
    click_at chkIEMenu
    expect "it ends well again" parlune_end
    expect "the session starts it no more" [ -z "$(stored_option Parlune)" ]
    expect_not "the session's entry is gone" test -e "$XDG_CONFIG_HOME/autostart/parlune.desktop"
    expect_not "the browser's menu entry is gone" grep -q 'MenuExt.Read with Parlune\]$' "$(registry_file)"
    expect "the hidden start has its effect" [ "$(stored_option StartUpHideInTray)" = 1 ]
}

# What is stored decides whether a character comes.
# The splash window would take the first clicks.
start_again() {
    parlune_start
    expect_soon "the splash window comes" splash_visible
    expect_soon "it goes" eval '! splash_visible'
    expect_soon "it has started" answers_another_start
    expect_not "the character is hidden at the start" character_visible
}

# The Tab key goes from one control to the next, the space bar ticks and presses.
test_Options_ChangedByKeyboard_AreStored() {
    desktop_start
    companion_on_desktop
    open_options
    change_general_page
    turn_pages 1
    change_character_page
    turn_pages 4
    change_greetings_page
    expect "it ends well" parlune_end
    expect_boxes_changed
    expect_stored SayTimeInterval 7
    expect_stored SayTimeFormat "h:nn AM/PM"
    expect_stored SayTimeText "Now {Time}"
    expect_stored CharWidth 160
    expect_stored CharHeight 200
    expect_stored UserName Grace
    expect_stored Greeting2 "Hello {UserName}"
}

expect_stored() { expect "$1 is $2, not $(stored_option "$1")" [ "$(stored_option "$1")" = "$2" ]; }

# turn_pages NUMBER [KEY]: a page takes the focus to one of its controls.
turn_pages() {
    press_repeatedly "$1" "ctrl+${2:-Page_Down}"
}

change_general_page() {
    copy_text "$short_text"
    turn_pages 1
    turn_pages 1 Page_Up # The page takes the focus to its second box.
    press shift+Tab space Tab space Tab space Tab space
    press Tab space Tab space Tab space
    press Tab space
    expect_soon "the button reads the clipboard" is_playing
    expect_soon "the speech ends" is_silent
    press Tab space Tab ctrl+a
    xdotool type 7
    press Tab Down
    press Tab ctrl+a
    xdotool type "Now {Time}"
    press Tab space
}

change_character_page() {
    press Tab Tab Tab space # From the list over two buttons.
    press ctrl+a
    xdotool type 160
    press Tab ctrl+a
    xdotool type 200
    press Tab
    expect_soon "the character is as large as asked for" character_measures 160x200
    press Tab space Tab space Tab space Tab space Tab space
    press Tab space
    expect_soon "the place is stored at once" stored_option_is CharLeft
}
character_measures() { [[ $(place_of "$(character_window)") == "$1"+* ]]; }
stored_option_is() { [ -n "$(stored_option "$1")" ]; }

change_greetings_page() {
    press ctrl+a
    xdotool type Grace
    press Tab space Tab Right Tab ctrl+a
    xdotool type "Hello {UserName}"
}
