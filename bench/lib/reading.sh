# Long texts.
# shellcheck shell=bash

# Median of a benchmark in milliseconds of processor time, which other programs disturb less than the clock.
median_of() { awk -F, -v name="\"$1_median\"" '$1 == name { print $4 }' "$2"; }

figure_cutting() {
    local csv=$desktop_free/cutting.csv name small large
    "$bin/bench_Reading" --benchmark_repetitions="$runs" --benchmark_enable_random_interleaving=true \
        --benchmark_report_aggregates_only=true --benchmark_format=csv >"$csv" 2>/dev/null
    for name in CutIntoLines CutForReading; do
        small=$(median_of "$name/1000000" "$csv") large=$(median_of "$name/10000000" "$csv")
        row "$name: a text of 10 MB" MB/s +200 "$(awk -v ms="$large" 'BEGIN { printf "%.0f", 10000 / ms }')"
        row "$name: time for 10 MB to time for 1 MB" times 11 "$(ratio "$large" "$small")"
    done
}

# Prose of so many bytes: sentences, lines, paragraphs.
prose() {
    awk -v bytes="$1" 'BEGIN {
        for (n = 1; size < bytes; n++) {
            line = "This is sentence " n " of a long story about a reader who never grows tired.  "
            if (n % 3 == 0) line = line "\n"
            if (n % 9 == 0) line = line "\n"
            size += length(line)
            printf "%s", line
        } }'
}

# The longest silence in the lines of a watch after the first so many.
longest_silence() { tail -n "+$(($1 + 1))" "$2" | awk '$2 > longest { longest = $2 } END { printf "%.1f\n", longest }'; }
lines_of() { wc -l <"$1"; }

processor_is_free_of_it() {
    local before
    before=$(busy_milliseconds_of "$parlune_pid")
    sleep 1
    awk -v before="$before" -v after="$(busy_milliseconds_of "$parlune_pid")" 'BEGIN { exit !(after - before < 200) }'
}

figure_long_text() {
    local run from before
    desktop_start
    put_option PlayReadAnimation 0
    prose 1000000 >"$desktop/story.txt"
    for ((run = 0; run < runs; run++)); do
        export LOOP_WATCH_FILE=$desktop/loop.$run LD_PRELOAD=$bin/bench_LoopWatch.so
        put_option FirstTime 0
        put_greetings
        parlune_start
        unset LD_PRELOAD
        wait_until 20 character_visible || fail "Parlune does not show its character."
        greeting_begun=
        wait_until 30 has_greeted || fail "Parlune does not greet."
        point_at_character
        copy_to_clipboard "$desktop/story.txt"
        sleep 1
        before=$(status_of "$parlune_pid" VmRSS)
        echo 5 >"/proc/$parlune_pid/clear_refs" # From now on the peak is counted.
        from=$(lines_of "$desktop/loop.$run")
        xdotool click --repeat 2 --delay 60 1
        wait_until 60 processor_is_free_of_it || fail "It does not end to queue."
        is_playing || fail "The long text is not read."
        longest_silence "$from" "$desktop/loop.$run" >>"$desktop/silences"
        echo $(($(status_of "$parlune_pid" VmHWM) - before)) >>"$desktop/grown"
        from=$(lines_of "$desktop/loop.$run")
        sleep 0.6
        xdotool keydown shift click 1 keyup shift
        sleep 1
        longest_silence "$from" "$desktop/loop.$run" >>"$desktop/stops"
        parlune_end || fail "Parlune does not end well."
    done
    row "1 MB of text read: longest silence of the event loop" ms 50 "$(median <"$desktop/silences")" \
        "longest of all runs $(largest <"$desktop/silences")"
    row "the same: peak of memory, to the text" times 30 \
        "$(median <"$desktop/grown" | awk '{ printf "%.1f", $1 * 1024 / 1000000 }')"
    also "the same: longest silence while all of it is stopped" "$(median <"$desktop/stops") ms"
}
