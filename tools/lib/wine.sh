# A private Windows: a Wine prefix of its own on a private desktop. Source house.sh and desktop.sh before. wine_end leaves
# neither a process nor the prefix behind.
# shellcheck shell=bash

# Quiet, without the components for web pages and managed programs, which would ask to be fetched.
wine_environment() {
    local width
    width=$(getconf LONG_BIT) # Of the programs around us, not of the processor.
    export WINEPREFIX=$desktop/prefix WINEARCH=win$width WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml="
    unset WINESERVER WINELOADER
}

# wine_start: a desktop without sound, and a prefix that is ready for programs. Set PARLUNE_WINE_TEMPLATE to the folder of a
# prefix to copy that one; it is made when it is not there.
wine_start() {
    desktop_start nosound
    wine_environment
    local template=${PARLUNE_WINE_TEMPLATE:-}
    if [ -n "$template" ] && [ -d "$template" ]; then
        cp -a "$template" "$WINEPREFIX"
    else
        wine_make_prefix
        [ -z "$template" ] || cp -a "$WINEPREFIX" "$template"
    fi
    wine_keep_server
}

wine_make_prefix() {
    wineboot -i >"$desktop/wineboot.log" 2>&1 </dev/null || fail "The prefix could not be made: $(tail -n 5 "$desktop/wineboot.log")"
    # Debian's Wine does not look for its own fonts there.
    local font
    for font in /usr/share/wine/fonts/*.ttf; do ln -sf "$font" "$WINEPREFIX/drive_c/windows/Fonts/"; done
    # A program that crashes shall end, not wait in a debugger's window.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null 2>&1 </dev/null
    wineserver -w
}

# The server stays while no program runs, and must be asked for outside of any pipe: it would keep it open. The display must be
# set before the first program.
wine_keep_server() {
    wineserver -p >/dev/null 2>&1
    wine cmd /c exit >/dev/null 2>&1 </dev/null
}

wine_end() {
    [ -z "${WINEPREFIX:-}" ] || wineserver -k >/dev/null 2>&1 || true
    desktop_end
}
