# The icon in the notification area and the popup menu that it and the character open.
# shellcheck shell=bash

companion_with_tray() {
    desktop_start "$@"
    desktop_server trayer trayer --edge bottom --height 24
    put_option MinimizeOnClose 1
    companion_on_desktop
    expect_within 10 "its icon is in the tray" icon_in_tray
}

point_at_icon() {
    local tray width height left top
    for tray in $(xdotool search --class trayer); do
        read -r width height left top < <(xwininfo -tree -id "$tray" | sed -n 's/.*"parlune").* \([0-9]*\)x\([0-9]*\)+[-0-9]*+[-0-9]* *+\([0-9]*\)+\([0-9]*\)$/\1 \2 \3 \4/p') &&
            break
    done
    xdotool mousemove $((left + width / 2)) $((top + height / 2))
}

double_click_icon() {
    point_at_icon
    xdotool click --repeat 2 --delay 60 1
}

# A menu is a window of the program right on the screen that bears the program's own name.
popup_menu() {
    local window
    for window in $(xwininfo -root -children | awk '/"parlune": \("parlune" "parlune"\)/ { print $1 }'); do
        xwininfo -id "$window" | grep -q IsViewable && echo "$window" && return
    done
    return 1
}
no_popup_menu() { ! popup_menu; }

open_menu() {
    xdotool click 3
    expect_within 5 "the popup menu opens" popup_menu
}

# choose KEY...: opens the character's menu and presses the keys of its entries.
choose() {
    sleep 0.5 # A second press so soon would be a double click.
    point_at_character
    open_menu
    xdotool key --delay 150 "$@"
    expect_within 5 "the menu closes" no_popup_menu
}

test_TrayIcon_Clicked_ShowsTheWindowAndTheMenu() {
    companion_with_tray nosound
    point_at_icon
    xdotool click 1
    expect_not "one click does nothing" wait_until 2 options_visible
    double_click_icon
    expect_within 5 "a double click shows the window" options_visible
    sleep 1 # Not the third and fourth click of the same hand.
    double_click_icon
    expect_within 5 "another one hides it" eval '! options_visible'
    local times
    for times in 1 2; do
        point_at_icon
        open_menu
        xdotool mousemove 200 200 click 1
        expect_within 5 "a click elsewhere closes the menu" no_popup_menu
    done
    read_places
    sleep 1
    double_click_icon
    expect_within 5 "the window comes back" options_visible
    click_close_button "$(options_window)"
    expect_within 5 "its close button hides it" eval '! options_visible'
    expect "the program runs on" parlune_runs
    point_at_icon
    open_menu
    xdotool key o
    expect_within 5 "the menu's entry shows the window" options_visible
    sleep 1
    point_at_icon
    open_menu
    xdotool key e
    expect_within 10 "Exit ends it" has_ended "$parlune_pid"
}

test_PopupMenu_ByItsKeys_DoesWhatItSays() {
    companion_with_tray
    copy_text "$long_text"
    choose c
    expect_within 5 "Read Clipboard is heard" is_playing
    choose p
    expect_within 4 "Pause silences" is_silent
    choose c
    expect_within 5 "it is read anew" is_playing
    choose s
    expect_within 4 "Stop silences" is_silent
    choose t
    choose a
    copy_text "$short_text"
    expect_within 5 "what is copied is read now" is_playing
    expect_within 20 "the speech ends" is_silent
    choose h
    expect_within 10 "Hide hides" eval '! character_visible'
    point_at_icon
    open_menu
    xdotool key s
    expect_within 10 "Show shows" character_visible
    expect_within 10 "it stands still" stands_still character_window
    xdotool keydown ctrl
    double_click_character
    xdotool keyup ctrl
    expect_within 5 "a double click with Ctrl shows the window" options_visible
    choose e
    expect_within 10 "Exit ends it" has_ended "$parlune_pid"
    expect "the announcements are off" [ "$(stored_option SayTime)" = 0 ]
    expect "the clipboard is watched" [ "$(stored_option MonitorClipboard)" = 1 ]
}

test_ResetDefaults_NoThenYes_KeepsThenForgets() {
    desktop_start nosound
    put_option UserName Ada
    companion_on_desktop
    open_options
    ask_for_reset
    xdotool key Return # "No" is the button of the Return key.
    expect_within 5 "the question goes" no_message_box
    sleep 1
    expect "No leaves the program alone" parlune_runs
    expect "No leaves the options alone" [ "$(stored_option UserName)" = Ada ]
    ask_for_reset
    xdotool key alt+y
    expect_within 5 "it tells what it has done" message_box
    sleep 0.5
    xdotool key Return
    expect_within 10 "it ends" has_ended "$parlune_pid"
    expect "the options are forgotten" [ -z "$(stored_option UserName)" ]
}
ask_for_reset() {
    xdotool windowactivate --sync "$(options_window)"
    xdotool key --delay 200 alt+f r r Return # Two entries have this key.
    expect_within 5 "the question comes" message_box
    sleep 0.5
}
# A box is a dialog window of the program.
message_box() {
    local window
    for window in $(xdotool search --onlyvisible --name '^Parlune$'); do
        xprop -id "$window" WM_TRANSIENT_FOR _NET_WM_STATE | grep -q 'MODAL\|window id' && echo "$window" && return
    done
    return 1
}
no_message_box() { ! message_box; }
