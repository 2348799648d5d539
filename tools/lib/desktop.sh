# A private desktop without a screen: X server, window manager, session bus, sound server and home folder, all below one
# temporary folder. Source house.sh before. Everything started here is ended by desktop_end, by process id.
# shellcheck shell=bash

desktop_pids=()

# Starts a server in the background and remembers it. Its output goes to FOLDER/NAME.log.
desktop_server() {
    local name=$1
    shift
    "$@" >"$desktop/$name.log" 2>&1 &
    desktop_pids+=($!)
}

# True for a process that this shell or subshell has started. The number of one that has ended may belong to somebody else's by now.
is_child() { [ "$(ps -o ppid= -p "$1" | tr -d ' ')" = "$BASHPID" ]; }

# Ends the process and waits for it; after five seconds by force.
end_process() {
    local pid=$1
    is_child "$pid" || return 0
    kill "$pid" 2>/dev/null || return 0
    wait_until 5 has_ended "$pid" || kill -9 "$pid" 2>/dev/null
    wait "$pid" 2>/dev/null || true
}

# True when the process is gone or only waits for its parent to notice.
has_ended() { case $(ps -o stat= -p "$1") in "" | Z*) return 0 ;; *) return 1 ;; esac; }

# desktop_start [nosound]: sets `desktop` to the folder, and the environment of everything started afterwards.
desktop_start() {
    desktop=$(mktemp -d "${TMPDIR:-/tmp}/parlune.XXXXXX")
    mkdir -m 700 "$desktop/runtime" "$desktop/home"
    mkdir "$desktop/config" "$desktop/data"
    export HOME=$desktop/home XDG_RUNTIME_DIR=$desktop/runtime XDG_CONFIG_HOME=$desktop/config XDG_DATA_HOME=$desktop/data
    export XDG_CACHE_HOME=$desktop/home/.cache XDG_STATE_HOME=$desktop/state LANG=C.UTF-8 LC_ALL=C.UTF-8
    export PULSE_SERVER=unix:$desktop/runtime/pulse/native
    unset WAYLAND_DISPLAY DISPLAY XAUTHORITY PULSE_SINK PULSE_SOURCE PULSE_COOKIE QT_QPA_PLATFORM SESSION_MANAGER
    desktop_start_display
    desktop_server bus dbus-daemon --session --nofork --nopidfile --address="unix:path=$desktop/runtime/bus"
    export DBUS_SESSION_BUS_ADDRESS=unix:path=$desktop/runtime/bus
    desktop_server openbox openbox --config-file "$root/tools/lib/openbox.xml"
    wait_until "$long_enough" test -S "$desktop/runtime/bus" || fail "The session bus did not start: $(cat "$desktop/bus.log")"
    wait_until "$long_enough" window_manager_runs || fail "The window manager did not start: $(cat "$desktop/openbox.log")"
    [ "${1:-}" = nosound ] || desktop_start_sound
}

# Servers that start at the same moment may choose the same number; all but one then end. Without noreset the server would
# begin anew when its first client, a short question, leaves, and turn away whoever comes at that moment.
desktop_start_display() {
    mkfifo "$desktop/display"
    exec 7<>"$desktop/display"
    local number='' attempt
    for attempt in 1 2 3; do
        desktop_server xvfb Xvfb -displayfd 7 -screen 0 1280x800x24 -dpi 96 -nolisten tcp -noreset
        desktop_display_pid=${desktop_pids[-1]}
        wait_for_display && break
    done
    exec 7>&-
    [ -n "$number" ] || fail "The X server did not start, attempt $attempt: $(cat "$desktop/xvfb.log")"
    export DISPLAY=:$number
}

# The server writes the number and the end of the line one after the other: what had come when the second was over is kept.
wait_for_display() {
    local i part
    number=''
    for ((i = 0; i < 60; i++)); do
        if read -r -t 1 part <&7; then number+=$part; return; fi
        number+=$part
        has_ended "${desktop_pids[-1]}" && return 1
    done
    return 1
}

window_manager_runs() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }

desktop_start_compositor() {
    desktop_server picom picom --backend xrender --config /dev/null
    wait_until "$long_enough" xdotool search --name '^picom$' || fail "The compositor did not start: $(cat "$desktop/picom.log")"
}

# A sound server with one sink that goes nowhere. Without norewinds its buffer is two seconds long and the first sound late.
desktop_start_sound() {
    desktop_server pulseaudio pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no \
        -L "module-native-protocol-unix" \
        -L "module-null-sink sink_name=null rate=22050 channels=1 norewinds=1"
    desktop_sound_pid=${desktop_pids[-1]}
    wait_until "$long_enough" pactl info || fail "The sound server did not start: $(cat "$desktop/pulseaudio.log")"
}

# Ends all servers, newest first, and removes the folder.
desktop_end() {
    local i
    for ((i = ${#desktop_pids[@]} - 1; i >= 0; i--)); do end_process "${desktop_pids[i]}"; done
    desktop_pids=()
    [ -z "${desktop:-}" ] || rm -rf "$desktop"
}

# A plain, calm background instead of black. A compositor would not show it.
paint_background() {
    convert -size 1280x800 gradient:'#5b7d95-#2c4257' "$desktop/background.png"
    display -window root "$desktop/background.png" 2>/dev/null || true # Its exit code says nothing.
}

copy_to_clipboard() { xclip -selection clipboard -i "$1" >/dev/null 2>&1; }
screenshot() { import -window root "$1"; }

# start_recording FILE.raw: what the sound server plays from now on, 16 bit mono at 22050 Hz.
start_recording() {
    parec -d null.monitor --format=s16le --rate=22050 --channels=1 --latency-msec=20 --raw >"$1" 2>"$desktop/parec.log" &
    recording_pid=$!
    desktop_pids+=("$recording_pid")
    wait_until "$long_enough" test -s "$1"
}

end_recording() { end_process "$recording_pid"; }
