# The options window, used like a person does: by keyboard and by mouse.
# shellcheck shell=bash

# The window of a first run, in front.
options_on_desktop() {
    desktop_start nosound
    put_option ReadGreeting 0
    parlune_start
    expect_within 20 "the options window comes" options_visible || return
    expect_within 20 "the character comes" character_visible || return
    window=$(options_window)
    xdotool windowactivate --sync "$window"
    let_it_rest # What the start still does is over.
}

page_picture() { import -window "$window" "$1"; }

# The pictures of all pages are kept.
test_Pages_TurnedByKey_AreSevenDifferentOnes() {
    options_on_desktop || return
    local page
    for page in 0 1 2 3 4 5 6; do
        let_it_rest # The lists of a page fill when it is first seen.
        page_picture "$kept/page$page.png"
        xdotool key ctrl+Page_Down
    done
    expect "seven different pages" [ "$(md5sum "$kept"/page?.png | cut -d ' ' -f 1 | sort -u | wc -l)" = 7 ]
    expect "it ends well" parlune_end
}

test_Box_TickedByKeyAndExitByMenu_IsStored() {
    options_on_desktop || return
    xdotool key --delay 100 Tab space # From the box that has the focus to the next one, "Minimize when clicking Close button".
    xdotool key --delay 200 alt+f x
    expect_within 10 "Exit ends the program" has_ended "$parlune_pid"
    expect "the box is cleared" [ "$(stored_option MinimizeOnClose)" = 0 ]
}

# The last button of the title bar: a little left of the window's right edge and above its top.
click_close_button() {
    local window=${1:-$window}
    local place width height left top
    place=$(place_of "$window")
    IFS='x+' read -r width height left top <<<"$place"
    xdotool mousemove $((left + width - 10)) $((top - 10)) click 1
}

test_Window_ClosedByItsButton_StaysReachable() {
    options_on_desktop || return
    click_close_button
    expect_within 5 "the window goes" eval '! options_visible'
    expect "the program runs on" parlune_runs
    timeout 5 "$program"
    expect_within 5 "a second start brings the window back" options_visible
    expect "it ends well" parlune_end
}
