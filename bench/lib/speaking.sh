# From the double click to the sound, from the Stop to silence, and the balloon beside the voice.
# shellcheck shell=bash

spoken_text="We are alone on a lone lane, you and I, all year long, and now we are away, as we were a year or more ago."
paused_words="moon, lane, row, ear, wall, ring, lamb, way, year, lion, iron, rain, name, man, yellow, hair, mow, wire, line, alone, \
no, new, low, air, ray, mail, rule, inner, loyal, mule, rhyme, owl, annoy, ally, loan, roar, lime, wool, our, anyone."

double_click_onset() { "$bin/bench_Ear" onset "xdotool click 1" xdotool click 1; }

# The two programs take turns, so that a busy machine slows down both. Sets `ours`, `theirs` and `longest`.
onsets() {
    local run
    bench_companion
    point_at_character
    copy_text "$spoken_text"
    for ((run = 0; run < runs; run++)); do
        double_click_onset >>"$desktop/parlune.onset"
        wait_until 30 is_silent || fail "It does not fall silent."
        "$bin/bench_Ear" onset "" espeak-ng -v en-us "$spoken_text" >>"$desktop/espeak.onset"
        sleep 0.3
    done
    ours=$(median <"$desktop/parlune.onset") theirs=$(median <"$desktop/espeak.onset")
    longest=$(largest <"$desktop/parlune.onset")
    parlune_end
}

figure_onset() {
    local ours theirs longest
    desktop_start
    put_option PlayReadAnimation 0
    put_option IdleOn 0
    onsets
    row "double click to first sound, warm, a character at rest" ms 100 "$ours" "aim 50; longest $longest"
    also "the \`espeak-ng\` command to its first sound, same text" "$theirs ms"
    row "the one to the other" times 3 "$(ratio "$ours" "$theirs")"
}

# A character that is idling ends that movement before it speaks.
figure_onset_idling() {
    local ours theirs longest
    desktop_start
    put_option PlayReadAnimation 0
    onsets
    row "double click to first sound, idle animations on" ms 100 "$ours" "longest $longest"
}

# As it comes out of the box: the character takes out its book first.
figure_onset_with_animation() {
    local ours theirs longest
    desktop_start
    onsets
    row "double click to first sound, all options as at first" ms 100 "$ours" "longest $longest"
}

figure_stop() {
    local run
    desktop_start
    put_option PlayReadAnimation 0
    bench_companion
    point_at_character
    copy_text "$spoken_text"
    for ((run = 0; run < runs; run++)); do
        xdotool click --repeat 2 --delay 60 1
        sleep "1.$((run * 83 % 100))" # Somewhere in the text; and a click sooner would be the double click's third.
        xdotool keydown shift
        "$bin/bench_Ear" silence "" xdotool click 1 >>"$desktop/stop"
        xdotool keyup shift
        wait_until 10 is_silent || fail "It does not fall silent."
    done
    row "Stop (Shift and click) to silence" ms 50 "$(median <"$desktop/stop")" "longest $(largest <"$desktop/stop")"
    parlune_end
}

figure_words() {
    local run
    desktop_start
    for ((run = 0; run < 3; run++)); do
        "$bin/bench_Words" "$bin/characters" "$paused_words" >>"$desktop/words" || return
    done
    row "words seen at most 45 ms after and 125 ms before they are heard" % +95 \
        "$(awk '{ n++; good += $1 <= 45 && $1 >= -125 } END { printf "%.1f", 100 * good / n }' "$desktop/words")" \
        "$(wc -l <"$desktop/words") words, three runs"
    row "a word seen late or early, 95 of 100 words" ms 40 "$(awk '{ print $1 < 0 ? -$1 : $1 }' "$desktop/words" | sort -g |
        awk '{ x[NR] = $1 } END { print x[int(NR * 0.95)] }')" "an aim; median $(median <"$desktop/words"), negative is early"
}
