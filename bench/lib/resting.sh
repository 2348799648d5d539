# The start, the memory, and what Parlune costs while nobody uses it.
# shellcheck shell=bash

# KMouth as it starts for somebody who has used it before: no assistant for the first start.
prepare_kmouth() {
    mkdir -p "$XDG_DATA_HOME/kmouth"
    printf '[General Options]\nShow Menubar=true\n\n[Preferences]\nAutomaticSpeak=No\n' >"$XDG_CONFIG_HOME/kmouthrc"
    printf '\n[Completion]\nList=\nMode=5\n\n[TTS System]\nCodec=Local\nStdIn=true\nuseQtSpeech=true\n' >>"$XDG_CONFIG_HOME/kmouthrc"
    echo '<?xml version="1.0" encoding="UTF-8"?><!DOCTYPE phrasebook><phrasebook></phrasebook>' \
        >"$XDG_DATA_HOME/kmouth/standard.phrasebook"
}
kmouth_window() { xdotool search --onlyvisible --class '^kmouth$' 2>/dev/null | head -n 1; }
kmouth_visible() { [ -n "$(kmouth_window)" ]; }

# look_at PLACE COMMAND...: sets `seen_after` and `pid`.
look_at() {
    local width height left top
    IFS='x+' read -r width height left top <<<"$1"
    shift
    read -r seen_after pid < <("$bin/bench_Eye" "$left" "$top" "$width" "$height" "$@" 2>>"$desktop/started.log") ||
        fail "$1 does not show itself: $(tail -n 3 "$desktop/started.log")"
}

# One uncounted start of each tells where to look, and warms the disk's cache.
find_places() {
    bench_companion
    character_place=$(place_of "$(character_window)")
    parlune_end
    kmouth >"$desktop/kmouth.log" 2>&1 &
    pid=$!
    wait_until 30 kmouth_visible || fail "KMouth does not show its window."
    sleep 2
    kmouth_place=$(place_of "$(kmouth_window)")
    end_process "$pid"
}

start_parlune_once() {
    look_at "$character_place" "$program"
    echo "$seen_after" >>"$desktop/parlune.start"
    greeting_begun=
    wait_until 30 has_greeted || fail "Parlune does not greet."
    pss_of "$pid" >>"$desktop/parlune.pss"
    echo >>"$desktop/parlune.pss"
    end_process "$pid"
}

start_kmouth_once() {
    look_at "$kmouth_place" kmouth
    echo "$seen_after" >>"$desktop/kmouth.start"
    sleep 3
    pss_of "$pid" >>"$desktop/kmouth.pss"
    echo >>"$desktop/kmouth.pss"
    end_process "$pid"
}

figure_start() {
    local run
    is_installed kmouth || fail "KMouth is not installed (Debian package kmouth)."
    desktop_start
    prepare_kmouth
    find_places
    for ((run = 0; run < runs; run++)); do
        start_parlune_once
        start_kmouth_once
    done
    local ours theirs
    ours=$(median <"$desktop/parlune.start") theirs=$(median <"$desktop/kmouth.start")
    row "start to the first pixels of the character" ms 250 "$ours"
    also "KMouth's start to the first pixels of its window" "$theirs ms"
    row "the one to the other" times 0.6 "$(ratio "$ours" "$theirs")"
    ours=$(median <"$desktop/parlune.pss") theirs=$(median <"$desktop/kmouth.pss")
    row "memory after the greeting (PSS)" MB 45 "$ours" "aim 35"
    also "KMouth's memory with its window open" "$theirs MB"
    row "the one to the other" times 0.7 "$(ratio "$ours" "$theirs")"
}

# resting_parlune NAME: one more Parlune beside others, with settings of its own. Sets `pid`.
resting_parlune() {
    export XDG_CONFIG_HOME=$desktop/$1.config XDG_RUNTIME_DIR=$desktop/$1.runtime
    mkdir -m 700 "$XDG_CONFIG_HOME" "$XDG_RUNTIME_DIR"
    put_options=([FirstTime]=0 [ReadGreeting]=0 [SayTime]=0 [StartUpHideInTray]=$2)
    put_option MonitorClipboard 0
    "$program" >"$desktop/$1.log" 2>&1 &
    pid=$!
    desktop_pids+=("$pid")
}

# A minute each, so three runs; both programs rest at the same time.
figure_rest() {
    local run hidden idle ticks_before busy_before
    desktop_start
    desktop_server trayer trayer --edge bottom --height 24
    sleep 1
    resting_parlune hidden 1
    hidden=$pid
    resting_parlune idle 0
    idle=$pid
    wait_until 20 character_visible || fail "Parlune does not show its character."
    sleep 10
    for ((run = 0; run < 3; run++)); do
        ticks_before=$(ticks_of "$hidden") busy_before=$(busy_milliseconds_of "$idle")
        sleep 60
        echo $(($(ticks_of "$hidden") - ticks_before)) >>"$desktop/hidden.ticks"
        awk -v a="$busy_before" -v b="$(busy_milliseconds_of "$idle")" 'BEGIN { printf "%.2f\n", (b - a) / 600 }' >>"$desktop/idle.share"
    done
    row "hidden in the tray: processor ticks in 60 s" ticks 0 "$(median <"$desktop/hidden.ticks")" \
        "three runs, largest $(largest <"$desktop/hidden.ticks")"
    row "idling character: share of a core" % 0.5 "$(median <"$desktop/idle.share")" \
        "three runs of a minute, largest $(largest <"$desktop/idle.share")"
}
