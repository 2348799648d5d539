# The Windows program, measured under Wine. The engine is a stand-in that does nothing but write down its calls.
# shellcheck shell=bash

build_windows() {
    build_preset windows-x86_64 -DPARLUNE_BENCH=ON -- Parlune agentstandin_dll bench_WindowsStart bench_WindowsLongText
}

# in_windows COMMAND...: in a private Windows where the engine seems to be installed, among the programs of the build.
in_windows() {
    # shellcheck disable=SC2016
    "$root/tools/with-wine" bash -c '
        cd "$1" && shift
        mkdir -p "$WINEPREFIX/drive_c/windows/MSAgent/Chars"
        wine regsvr32 /s agentstandin.dll >/dev/null 2>&1
        "$@"' in_windows "$root/build/windows-x86_64/bin" "$@" 2>/dev/null | tr -d '\r'
}

figure_windows_start() {
    local own other times
    build_windows || return
    read -r own other times < <(in_windows wine bench_WindowsStart.exe "$runs" Parlune.exe notepad.exe)
    row "Parlune.exe: start to a window that answers, to Wine's notepad" times 1.5 "${times:-}" "${own:-?} ms to ${other:-?} ms"
}

figure_windows_long_text() {
    local longest took
    build_windows || return
    read -r longest took < <(in_windows wine bench_WindowsLongText.exe Parlune.exe 1024)
    row "Parlune.exe: 1 MB of short lines read, longest silence of the window" ms 50 "${longest:-}" "until all was written down: ${took:-?} ms"
}

figure_windows_size() {
    local preset
    build_preset windows-i686 -- Parlune && build_preset windows-x86_64 -- Parlune || return
    for preset in windows-i686 windows-x86_64; do
        row "Parlune.exe of $preset" KB 1500 "$(($(stat -c %s "$root/build/$preset/bin/Parlune.exe") / 1000))"
    done
}
