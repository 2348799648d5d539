# How figures are gathered and told. Source house.sh, desktop.sh and parlune.sh before.
# shellcheck shell=bash

runs=${PARLUNE_BENCH_RUNS:-11}
bin=${program%/*}

# The number in the middle of those on the standard input, one a line; the upper one of two.
median() { sort -g | awk '{ x[NR] = $1 } END { if (NR) print x[int(NR / 2) + 1] }'; }
largest() { sort -g | tail -n 1; }
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }

# row WHAT UNIT BAR VALUE [NOTE]: a line of the table. A bar is the largest value that is still good; with a "+" before, the
# smallest.
row() {
    local verdict=met sense=at\ most
    case $3 in +*) sense=at\ least ;; esac
    if [ -z "$4" ]; then verdict="NOT MEASURED"
    elif ! awk -v value="$4" -v bar="${3#+}" -v least="${3:0:1}" 'BEGIN { exit !(least == "+" ? value >= bar : value <= bar) }'; then
        verdict=MISSED
    fi
    printf '| %s | %s %s | %s | %s | %s |\n' "$1" "$sense" "${3#+} $2" "${4:--} $2" "$verdict" "${5:-}"
}

# A figure that belongs to another one and has no bar.
also() { printf '| %s | | %s | | %s |\n' "$1" "$2" "${3:-}"; }

# One short greeting: whichever is chosen, it is this one.
put_greetings() {
    local number
    for number in 1 2 3 4 5; do put_option "Greeting$number" "I am here, and I am ready to read."; done
}

# Parlune on the desktop at its place, silent, warm: it has spoken before. Options are put before.
bench_companion() {
    put_option FirstTime 0
    put_greetings
    parlune_start
    wait_until 20 character_visible || fail "Parlune does not show its character."
    greeting_begun=
    wait_until 30 has_greeted || fail "Parlune does not greet."
    sleep 1
}

point_at_character() {
    local width height left top
    IFS='x+' read -r width height left top <<<"$(place_of "$(character_window)")"
    xdotool mousemove $((left + width / 2)) $((top + height / 2))
}

copy_text() { printf '%s' "$1" | xclip -selection clipboard -i >/dev/null 2>&1; }

# Memory of a process in MB: its own part and its share of what others use too.
pss_of() { awk '/^Pss:/ { printf "%.1f", $2 / 1024 }' "/proc/$1/smaps_rollup"; }
status_of() { awk -v key="$2:" '$1 == key { print $2 }' "/proc/$1/status"; }

# Processor time of all threads: in hundredths of a second as the system counts it, and in milliseconds.
ticks_of() { awk '{ print $14 + $15 }' "/proc/$1/stat"; }
busy_milliseconds_of() { cat /proc/"$1"/task/*/schedstat | awk '{ sum += $1 } END { printf "%.1f", sum / 1e6 }'; }

is_installed() { command -v "$1" >/dev/null; }
