# Two screens side by side, and one of them taken away.
# shellcheck shell=bash

left_of_character() { place_of "$(character_window)" | sed 's/.*x[0-9]*+\([-0-9]*\)+.*/\1/'; }
stands_between() { is_between "$1" "$(left_of_character)" $(($2 - 128)); }

# drag_character X Y: by its middle.
drag_character() {
    point_at_character
    xdotool mousedown 1
    expect_soon "it is held" has_caught_up
    xdotool mousemove "$1" "$2"
    expect_soon "it is drawn" has_caught_up
    xdotool mouseup 1
}

test_Screen_TakenAwayUnderTheCharacter_BringsItToTheOther() {
    desktop_start nosound
    xrandr --setmonitor one 640/170x800/200+0+0 screen
    xrandr --setmonitor two 640/170x800/200+640+0 none
    companion_on_desktop
    expect "it comes on the first screen, at $(left_of_character)" stands_between 0 640
    drag_character 1000 300
    expect_soon "it is dragged to the second screen" stands_between 640 1280
    expect_soon "it stands still" stands_still character_window
    expect "it stays there" stands_between 640 1280
    xrandr --delmonitor two
    expect_soon "it comes back to the first screen" stands_between 0 640
    expect "it ends well" parlune_end
}
