# The options window, used like a person does: by keyboard and by mouse.
# shellcheck shell=bash

# The window of a first run, in front.
options_on_desktop() {
    desktop_start nosound
    put_option ReadGreeting 0
    parlune_start
    expect_soon "the options window comes" options_visible || return
    expect_soon "the character comes" character_visible || return
    window=$(options_window)
    xdotool windowactivate --sync "$window"
    expect_soon "the start is over" has_caught_up
}

page_picture() { import -window "${2:-$window}" "$1"; }

# The pictures of all pages are kept.
test_Pages_TurnedByKey_AreSevenDifferentOnes() {
    options_on_desktop || return
    local page
    for page in 0 1 2 3 4 5 6; do
        page_picture "$kept/page$page.png"
        press ctrl+Page_Down
    done
    expect "seven different pages" [ "$(md5sum "$kept"/page?.png | cut -d ' ' -f 1 | sort -u | wc -l)" = 7 ]
    expect "it ends well" parlune_end
}

test_Box_TickedByKeyAndExitByMenu_IsStored() {
    options_on_desktop || return
    press Tab space # From the box that has the focus to the next one, "Minimize when clicking Close button".
    press alt+f x
    expect_soon "Exit ends the program" has_ended "$parlune_pid"
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
    expect_soon "the window goes" eval '! options_visible'
    expect "the program runs on" parlune_runs
    timeout "$long_enough" "$program"
    expect_soon "a second start brings the window back" options_visible
    expect "it ends well" parlune_end
}

# The start is over within a tenth of a second; the splash window stays until a person has seen it. Its picture is kept.
test_Start_WithSplash_CanBeSeenAndGoes() {
    desktop_start nosound
    put_option ShowSplash 1
    put_option FirstTime 0
    put_option ReadGreeting 0
    parlune_start
    expect_soon "it is there" splash_visible || return
    expect_soon "the character is on the desktop" character_visible
    page_picture "$kept/splash.png" "$(splash_window)"
    expect_soon "it goes" eval '! splash_visible'
    expect "the program runs on" parlune_runs
    expect "it ends well" parlune_end
}
