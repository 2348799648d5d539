# Notification areas that come and go.
# shellcheck shell=bash

start_tray() {
    desktop_server trayer trayer --edge bottom --height 24
    tray_pid=${desktop_pids[-1]}
}

waiting_in_the_tray() {
    put_option FirstTime 0
    put_option StartUpHideInTray 1
    parlune_start
}

no_icon_in_tray() { ! icon_in_tray; }

test_Tray_StartedLate_ShowsTheIcon() {
    desktop_start nosound
    put_option FirstTime 0
    put_option ReadGreeting 0
    parlune_start
    expect_soon "the character is on the desktop" character_visible
    start_tray
    expect_soon "its icon is in the tray" icon_in_tray
    expect "it ends well" parlune_end
}

test_Tray_KilledAndRestarted_ShowsTheIconAgain() {
    desktop_start nosound
    start_tray
    waiting_in_the_tray
    expect_soon "its icon is in the tray" icon_in_tray
    kill -9 "$tray_pid"
    expect_soon "the tray has gone" no_icon_in_tray
    expect_soon "the program has seen it" has_caught_up
    expect "the program lives" parlune_runs
    start_tray
    expect_soon "its icon is in the new tray" icon_in_tray
    kill "$tray_pid"
    expect_soon "that tray has gone" no_icon_in_tray
    start_tray
    expect_soon "its icon is in the third tray" icon_in_tray
    expect "it ends well" parlune_end
}

test_Tray_ThatNeverComes_LeavesASecondStartAsTheWay() {
    desktop_start nosound
    waiting_in_the_tray
    expect_soon "it has started" answers_another_start
    expect "the program lives" parlune_runs
    "$program" >/dev/null 2>&1
    expect_soon "the options window comes" options_visible
    expect "it ends well" parlune_end
}

# Without a tray a closed window stays in the task bar; with one it is gone from there.
test_Close_WithMinimizeOnClose_WithoutATray_StaysInTheTaskBar() {
    desktop_start nosound
    put_option MinimizeOnClose 1
    waiting_in_the_tray
    expect_soon "it has started" answers_another_start
    "$program" >/dev/null 2>&1
    expect_soon "the options window comes" options_visible
    click_close_button "$(options_window)"
    expect_soon "the window goes" eval '! options_visible'
    expect "the program lives" parlune_runs
    "$program" >/dev/null 2>&1
    expect_soon "the options window comes back" options_visible
    expect "it ends well" parlune_end
}
