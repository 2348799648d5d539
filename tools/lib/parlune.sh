# The real program on a private desktop: start it, find its windows, use it like a person does. Source desktop.sh before and set
# `program` to the executable.
# shellcheck shell=bash

parlune_pid=

# put_option NAME VALUE: stores an option before the program starts.
declare -gA put_options=() # Campaigns source this inside a function.
registry_file() { echo "$XDG_CONFIG_HOME/parlune/registry.txt"; }
put_option() {
    local file name
    file=$(registry_file)
    put_options[$1]=$2
    mkdir -p "${file%/*}"
    {
        echo '# Parlune registry 1'
        echo '[CurrentUser\Software\Tarrowind\Parlune]'
        for name in "${!put_options[@]}"; do printf '"%s" = "%s"\n' "$name" "${put_options[$name]}"; done
        echo '# end'
    } >"$file"
}

# What the program has stored for an option; nothing when it has not.
stored_option() { sed -n "s/^\"$1\" = \"\(.*\)\"\$/\1/p" "$(registry_file)"; }

parlune_start() {
    "$program" "$@" >"$desktop/parlune.log" 2>&1 &
    parlune_pid=$!
}

# Ends Parlune as the session's end does; fails if it does not end with exit code 0.
parlune_end() {
    kill -"${1:-TERM}" "$parlune_pid"
    if ! wait_until "$long_enough" has_ended "$parlune_pid"; then parlune_kill; return 1; fi
    local code=0 pid=$parlune_pid
    parlune_pid=
    wait "$pid" || code=$?
    return $code
}

parlune_kill() {
    [ -n "$parlune_pid" ] || return 0
    ! is_child "$parlune_pid" || kill -9 "$parlune_pid" 2>/dev/null || true
    wait "$parlune_pid" 2>/dev/null || true
    parlune_pid=
}

# True when the program has handled everything that it was given: it waits for events, five times in a row, or has ended.
has_caught_up() {
    local i state
    for i in 1 2 3 4 5; do
        state=Z
        read -r _ _ state _ <"/proc/$parlune_pid/stat"
        [ "$state" = S ] || [ "$state" = Z ] || return
        sleep 0.03
    done
}

# press KEY...: one after the other, as a person does who looks at what each does.
press() {
    local key
    for key; do
        xdotool key "$key"
        wait_until "$long_enough" has_caught_up || return
    done
}

# press_repeatedly NUMBER KEY
press_repeatedly() {
    local i
    for ((i = 0; i < $1; i++)); do press "$2"; done
}

# What is pressed next is no double click together with what was pressed before.
let_the_click_end() { sleep 0.6; }

# Two clicks so close that the machine can hardly come between them.
double_click() { xdotool click --repeat 2 --delay 10 1; }

visible_window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1; }
character_window() { visible_window '^Parlune character$'; }
balloon_window() { visible_window '^Parlune balloon$'; }
options_window() { visible_window '^Parlune( - |$)'; } # The editor's file stands behind the name.
character_visible() { [ -n "$(character_window)" ]; }
balloon_visible() { [ -n "$(balloon_window)" ]; }
options_visible() { [ -n "$(options_window)" ]; }

# The place of a window on the screen as WIDTHxHEIGHT+LEFT+TOP.
place_of() {
    [ -n "$1" ] || return # Without a window xwininfo would wait for a click.
    xwininfo -id "$1" | awk '/Absolute upper-left X/ { x = $NF } /Absolute upper-left Y/ { y = $NF } /^ +Width/ { w = $NF }
        /^ +Height/ { h = $NF } END { print w "x" h "+" x "+" y }'
}

# Moves the pointer to the middle of the character.
point_at_character() {
    local place width height left top
    place=$(place_of "$(character_window)")
    IFS='x+' read -r width height left top <<<"$place"
    xdotool mousemove $((left + width / 2)) $((top + height / 2))
}

double_click_character() {
    point_at_character
    double_click
}

# Nothing has been heard for a second: no stream of the program runs.
is_playing() { pactl list sink-inputs | grep -q 'Corked: no'; }
is_silent() {
    local i
    for i in 1 2 3 4 5 6 7 8 9 10; do
        if is_playing || balloon_visible; then return 1; fi
        sleep 0.1
    done
}

# Used once after the start: true when the greeting was begun and is over.
has_greeted() {
    if [ -z "${greeting_begun:-}" ]; then
        balloon_visible && greeting_begun=1
        return 1
    fi
    is_silent
}
