# The icon in the notification area and the popup menu that it and the character open.
# shellcheck shell=bash

companion_with_tray() {
    desktop_start "$@"
    desktop_server trayer trayer --edge bottom --height 24
    put_option MinimizeOnClose 1
    companion_on_desktop
    expect_soon "its icon is in the tray" icon_in_tray
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
    double_click
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
    expect_soon "the popup menu opens" popup_menu
}

# choose KEY...: opens the character's menu and presses the keys of its entries.
choose() {
    let_the_click_end
    point_at_character
    open_menu
    press "$@"
    expect_soon "the menu closes" no_popup_menu
}

test_TrayIcon_Clicked_ShowsTheWindowAndTheMenu() {
    companion_with_tray nosound
    point_at_icon
    xdotool click 1
    expect_not "one click does nothing" wait_until 2 options_visible
    double_click_icon
    expect_soon "a double click shows the window" options_visible
    let_the_click_end
    double_click_icon
    expect_soon "another one hides it" eval '! options_visible'
    local times
    for times in 1 2; do
        point_at_icon
        open_menu
        xdotool mousemove 200 200 click 1
        expect_soon "a click elsewhere closes the menu" no_popup_menu
    done
    read_places
    let_the_click_end
    double_click_icon
    expect_soon "the window comes back" options_visible
    click_close_button "$(options_window)"
    expect_soon "its close button hides it" eval '! options_visible'
    expect "the program runs on" parlune_runs
    point_at_icon
    open_menu
    xdotool key o
    expect_soon "the menu's entry shows the window" options_visible
    let_the_click_end
    point_at_icon
    open_menu
    xdotool key e
    expect_soon "Exit ends it" has_ended "$parlune_pid"
}

test_PopupMenu_ByItsKeys_DoesWhatItSays() {
    companion_with_tray
    copy_text "$endless_text"
    choose c
    expect_soon "Read Clipboard is heard" is_playing
    choose p
    expect_soon "Pause silences" is_silent
    choose c
    expect_soon "it is read anew" is_playing
    choose s
    expect_soon "Stop silences" is_silent
    choose t
    choose a
    copy_text "$short_text"
    expect_soon "what is copied is read now" is_playing
    expect_soon "the speech ends" is_silent
    choose h
    expect_soon "Hide hides" eval '! character_visible'
    point_at_icon
    open_menu
    xdotool key s
    expect_soon "Show shows" character_visible
    expect_soon "it stands still" stands_still character_window
    xdotool keydown ctrl
    double_click_character
    xdotool keyup ctrl
    expect_soon "a double click with Ctrl shows the window" options_visible
    choose e
    expect_soon "Exit ends it" has_ended "$parlune_pid"
    expect "the announcements are off" [ "$(stored_option SayTime)" = 0 ]
    expect "the clipboard is watched" [ "$(stored_option MonitorClipboard)" = 1 ]
}

test_ResetDefaults_NoThenYes_KeepsThenForgetsAndStartsAnew() {
    desktop_start nosound
    put_option UserName Ada
    companion_on_desktop
    open_options
    ask_for_reset
    press Return # "No" is the button of the Return key.
    expect_soon "the question goes" no_message_box
    expect "No leaves the program alone" parlune_runs
    expect "No leaves the options alone" [ "$(stored_option UserName)" = Ada ]
    ask_for_reset
    local question
    question=$(message_box)
    xdotool key alt+y
    expect_soon "it tells what it has done" another_message_box "$question"
    focus_message_box
    xdotool key Return
    expect_soon "it ends" has_ended "$parlune_pid"
    expect "the options are forgotten" [ -z "$(stored_option UserName)" ]
    expect "the greetings too" [ -z "$(stored_option Greeting1)" ]
    parlune_start
    expect_soon "the character is on the desktop again" character_visible
    expect "it ends well" parlune_end
    expect "the greetings are back" [ -n "$(stored_option Greeting5)" ]
}
ask_for_reset() {
    xdotool windowactivate --sync "$(options_window)"
    press alt+f r r # Two entries have this key.
    xdotool key Return
    expect_soon "the question comes" message_box
    focus_message_box
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
another_message_box() { message_box && [ "$(message_box)" != "$1" ]; }
focus_message_box() {
    xdotool windowactivate --sync "$(message_box)"
    expect_soon "the box waits for an answer" has_caught_up
}
