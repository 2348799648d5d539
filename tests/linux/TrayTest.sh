# Waiting in the tray.
# shellcheck shell=bash

test_Start_HiddenInTheTray_CostsNothing() {
    desktop_start
    desktop_server trayer trayer --edge bottom --height 24
    put_option FirstTime 0
    put_option StartUpHideInTray 1
    put_option SayTime 0
    parlune_start
    expect_soon "its icon is in the tray" icon_in_tray
    expect_not "no character comes" wait_until 3 character_visible
    expect_soon "no processor time in five seconds" at_rest
    expect "it ends well" parlune_end
}
# Fails when the program uses more than one tick of processor time in five seconds.
at_rest() {
    local before
    before=$(processor_ticks)
    sleep 5
    [ $(($(processor_ticks) - before)) -le 1 ]
}
# The icon is a window somewhere inside one of the tray's windows; some of those are never seen.
icon_in_tray() {
    local window
    for window in $(xdotool search --class trayer); do
        xwininfo -tree -id "$window" | grep -qi '"parlune"' && return
    done
    return 1
}
