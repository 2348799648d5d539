# The options window as a hand on the mouse finds it: where its controls are, and clicks on them. Source parlune.sh before; the
# program list_places lies beside `program`.
# shellcheck shell=bash

declare -gA control_places=()

# Reads the places once for a desktop.
read_places() {
    local name x y width height
    [ ${#control_places[@]} -eq 0 ] || return 0
    while read -r name x y width height; do
        control_places[$name]="$x $y $width $height"
    done < <("${program%/*}/list_places" 2>"$desktop/places.log")
    [ ${#control_places[@]} -gt 100 ] || fail "The places of the controls are not known: $(cat "$desktop/places.log")"
}

# Brings the options window up as a second start of the program does, and to the front.
open_options() {
    read_places
    "$program"
    wait_until "$long_enough" options_visible || fail "The options window does not come."
    xdotool windowactivate --sync "$(options_window)"
    wait_until "$long_enough" has_caught_up
}

# point_at NAME: moves the pointer to a control. A check box is where its mark is, at its left end.
point_at() {
    local x y width height window_x window_y
    read -r x y width height <<<"${control_places[$1]:?There is no control $1.}"
    IFS='x+' read -r _ _ window_x window_y <<<"$(place_of "$(options_window)")"
    case $1 in chk*) width=20 ;; esac
    xdotool mousemove $((window_x + x + width / 2)) $((window_y + y + height / 2))
}

click_at() {
    point_at "$1"
    xdotool click 1
    wait_until "$long_enough" has_caught_up
}

double_click_at() {
    point_at "$1"
    double_click
}

# go_to_tab NAME: opens a page of the options window.
declare -gA tab_numbers=([general]=0 [character]=1 [voice]=2 [balloon]=3 [read]=4 [greetings]=5 [about]=6)
go_to_tab() { click_at "tabMain/${tab_numbers[$1]}"; }

# picture_of_window WINDOW FILE: the window as it is seen, with its frame.
picture_of_window() {
    local width height left top frame_left frame_right frame_top frame_bottom
    IFS='x+' read -r width height left top <<<"$(place_of "$1")"
    IFS=', ' read -r frame_left frame_right frame_top frame_bottom <<<"$(xprop -id "$1" _NET_FRAME_EXTENTS | sed 's/.*= //')"
    width=$((width + frame_left + frame_right)) height=$((height + frame_top + frame_bottom))
    screenshot "$desktop/screen.png"
    convert "$desktop/screen.png" -crop "${width}x$height+$((left - frame_left))+$((top - frame_top))" +repage -strip "$2"
}
