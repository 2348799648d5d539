# What the tests here do again and again.
# shellcheck shell=bash

# A desktop with Parlune on it, its character visible and silent. Options are put before.
companion_on_desktop() {
    put_option FirstTime 0
    put_option ReadGreeting 0
    parlune_start "$@"
    expect_soon "the character is on the desktop" character_visible
    expect_soon "the character stands still" stands_still character_window
}

# True when the window is there and keeps its place for half a second: the character moves to its place on its first way.
stands_still() {
    local place i
    place=$(place_of "$("$1")") || return
    for i in 1 2 3 4 5; do
        sleep 0.1
        [ "$place" = "$(place_of "$("$1")")" ] || return
    done
}

# A question of the program; its windows bear the program's name.
question_visible() { options_visible; }

# answer KEY: presses a key in the question that is on the screen.
answer() {
    xdotool windowactivate --sync "$(options_window)"
    xdotool key "$1"
}

settings_folder() { echo "$XDG_CONFIG_HOME/Tarrowind/Parlune"; }

# copy_text TEXT: as another program does it.
copy_text() { printf '%s' "$1" | xclip -selection clipboard -i >/dev/null 2>&1; }

copy_picture() {
    convert -size 32x32 xc:orange "$desktop/picture.png"
    xclip -selection clipboard -t image/png -i "$desktop/picture.png" >/dev/null 2>&1
}

# add_sink NAME RATE: a loudspeaker, the one that is played to from now on. Sets `sink` to what removes it.
add_sink() {
    sink=$(pactl load-module module-null-sink sink_name="$1" rate="$2" channels=1 norewinds=1)
    pactl set-default-sink "$1"
}

# Seconds in a recording that are not silence.
seconds_heard() {
    sox -t raw -r 22050 -e signed -b 16 -c 1 "$1" -n silence -l 1 0.02 1% -1 0.15 1% stat 2>&1 | awk '/Length/ { print $3 }'
}

# is_between LOW X HIGH, with fractions.
is_between() { awk -v low="$1" -v x="$2" -v high="$3" 'BEGIN { exit !(low <= x && x <= high) }'; }

# From then on a start of the program brings this one to the front.
answers_another_start() { [ -S "$XDG_RUNTIME_DIR/parlune.socket" ] && has_caught_up; }

# While the options window is hidden: it has the same name.
splash_window() { visible_window '^Parlune$'; }
splash_visible() { [ -n "$(splash_window)" ]; }

parlune_runs() { ! has_ended "$parlune_pid"; }

# Processor time of the program so far, in hundredths of a second.
processor_ticks() { awk '{ print $14 + $15 }' "/proc/$parlune_pid/stat"; }

# Something that takes about two, five and twelve seconds to say, and some minutes: its silence has another reason than its end.
short_text="This is the second text."
middle_text="The first text is longer. It talks about the weather, which is fine today, and about nothing else."
long_text="The long text goes on and on. It talks about the weather, which is fine today, and about the garden. Then it talks about
the roses in the garden, about the bees in the roses, and about the honey that the bees will make of them in the summer."
endless_text=$(for _ in {1..20}; do echo "$long_text"; done)
