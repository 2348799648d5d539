# What the scripts of this repository share. Source it with `root` set to the top folder.
# shellcheck shell=bash

logs=$root/build/logs
export CCACHE_DIR=${CCACHE_DIR:-$HOME/.cache/ccache} CCACHE_SLOPPINESS=pch_defines,time_macros
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi

fail() { echo "$*" >&2; exit 1; }

# logged NAME COMMAND...: runs a command with its output in a log file. On failure shows the errors and says where the
# rest is.
logged() {
    local log=$logs/$1.log
    shift
    mkdir -p "$logs"
    "$@" >"$log" 2>&1 && return
    grep -nE -m 12 '(error|Error|FAILED|undefined reference)' "$log" >&2 || tail -n 20 "$log" >&2
    echo "Failed: $* (everything it said: ${log#"$root"/})" >&2
    return 1
}

# build_preset PRESET [CMAKE OPTION...] [-- TARGET...]. `patience`, if set, is how far it steps back behind other work (0 to 19).
build_preset() {
    local preset=$1 options=()
    shift
    while [ $# -gt 0 ] && [ "$1" != -- ]; do options+=("$1"); shift; done
    [ $# -eq 0 ] || shift
    logged "configure-$preset" cmake -S "$root" --preset "$preset" "${options[@]}" &&
        logged "build-$preset" nice -n "${patience:-0}" cmake --build "$root/build/$preset" ${1:+--target "$@"}
}

# Seconds after which something that should happen will not happen any more, on a machine that has much else to do.
long_enough=60

# wait_until SECONDS COMMAND...: runs the command again and again until it succeeds. Fails when the time is over.
wait_until() {
    local looks=$(($1 * 20))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $((looks -= 1)) -ge 0 ] || return 1
        sleep 0.05
    done
}
