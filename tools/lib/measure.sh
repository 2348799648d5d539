# What a running program takes from the system, and how fast it answers. Source parlune.sh before.
# shellcheck shell=bash

# Its own memory: unlike PSS it does not depend on who else runs the same program.
own_kilobytes() { awk '/^Anonymous:/ { print $2 }' "/proc/$parlune_pid/smaps_rollup"; }
descriptor_count() { find "/proc/$parlune_pid/fd" -mindepth 1 | wc -l; }
thread_count() { find "/proc/$parlune_pid/task" -mindepth 1 -maxdepth 1 | wc -l; }

# Milliseconds until the program answers another start of it, from its event loop; its window comes up.
answer_milliseconds() {
    local begun
    begun=$(date +%s%N)
    "$program" >/dev/null 2>&1 || return
    echo $((($(date +%s%N) - begun) / 1000000))
}

# note_answer: asks, and keeps the longest in `longest_answer`.
longest_answer=0
note_answer() {
    local took
    took=$(answer_milliseconds) || return
    [ "$took" -le "$longest_answer" ] || longest_answer=$took
}
