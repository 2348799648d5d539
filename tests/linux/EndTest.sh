# Starting, ending, and what is on the disk afterwards.
# shellcheck shell=bash

test_Terminate_FirstRun_SavesTheOptions() {
    desktop_start
    parlune_start
    expect_soon "the character is on the desktop" character_visible
    expect "it ends well" parlune_end TERM
    expect "the next start will not be the first" [ "$(stored_option FirstTime)" = 0 ]
}

test_Interrupt_FirstRun_SavesTheOptions() {
    desktop_start
    parlune_start
    expect_soon "the character is on the desktop" character_visible
    expect "it ends well" parlune_end INT
    expect "the next start will not be the first" [ "$(stored_option FirstTime)" = 0 ]
}

# Nothing can be asked or shown any more.
test_DisplayGone_WithAChangedOption_SavesItAndEndsWithOne() {
    desktop_start nosound
    companion_on_desktop
    open_options
    click_at chkMonitorClipboard
    kill -9 "$desktop_display_pid"
    expect_soon "it ends" has_ended "$parlune_pid"
    expect_exit_code 1
    expect "the option is saved" [ "$(stored_option MonitorClipboard)" = 1 ]
    expect "it says why" grep -q '^Parlune cannot go on: .*X11' "$desktop/parlune.log"
}

test_DisplayGone_WhileSpeakingWithADialogOpen_SavesTheOptions() {
    desktop_start
    companion_on_desktop
    copy_text "$long_text"
    double_click_character
    expect_soon "the speech is heard" is_playing
    open_options
    click_at chkMonitorClipboard
    press alt+f o
    expect_soon "the dialog comes" is_there '^Open Text File$'
    kill -9 "$desktop_display_pid"
    expect_soon "it ends" has_ended "$parlune_pid"
    expect_exit_code 1
    expect "the option is saved" [ "$(stored_option MonitorClipboard)" = 1 ]
}

expect_exit_code() {
    local code=0
    wait "$parlune_pid" || code=$?
    parlune_pid=
    expect "exit code $1, not $code" [ "$code" = "$1" ]
}

# The moment is different each time: from long before the file is written to long after.
test_Kill_WhileSaving_LosesNothing() {
    desktop_start nosound
    local delay
    for delay in 0 0.002 0.004 0.006 0.008 0.010 0.015 0.02 0.03 0.05 0.1; do
        put_options=([UserName]=Ada [FirstTime]=1)
        put_option ReadGreeting 0
        parlune_start
        expect_soon "the character is on the desktop" character_visible || return
        kill -TERM "$parlune_pid"
        sleep "$delay"
        parlune_kill
        expect "the file is whole, killed after $delay s" file_is_whole || return
        expect "the user's name is kept, killed after $delay s" [ "$(stored_option UserName)" = Ada ] || return
    done
    parlune_start
    expect_soon "the character is on the desktop" character_visible
    expect "it ends well" parlune_end
    expect "the next start will not be the first" [ "$(stored_option FirstTime)" = 0 ]
}
file_is_whole() {
    local file=$XDG_CONFIG_HOME/parlune/registry.txt
    [ "$(head -n 1 "$file")" = '# Parlune registry 1' ] && [ "$(tail -n 1 "$file")" = '# end' ]
}

test_SecondStart_WhileRunning_EndsAndBringsTheWindow() {
    desktop_start nosound
    companion_on_desktop
    expect_not "the options are hidden" options_visible
    local first=$parlune_pid code=0
    timeout "$long_enough" "$program" || code=$?
    expect "the second start ends at once, exit code $code" [ "$code" = 0 ]
    expect_soon "the options window comes" options_visible
    expect "the first one runs on" parlune_runs
    expect "it is the first one" [ "$first" = "$parlune_pid" ]
    expect "it ends well" parlune_end
}

# An impatient hand: the first start still asks something when the program is started again.
test_SecondStart_DuringTheStart_BringsTheWindowAfterIt() {
    desktop_start nosound
    hide_voices
    put_option FirstTime 0
    put_option ReadGreeting 0
    parlune_start
    expect_soon "it asks what to do" question_visible || return
    timeout "$long_enough" "$program"
    answer Escape
    expect_soon "the character is on the desktop" character_visible
    expect_soon "the options window comes" options_visible
    expect "it ends well" parlune_end
}

test_Start_WithoutADisplay_SaysSo() {
    desktop_start nosound
    local code=0
    env -u DISPLAY -u WAYLAND_DISPLAY "$program" >"$desktop/said" 2>&1 || code=$?
    expect "exit code 1, not $code" [ "$code" = 1 ]
    expect "it speaks of the display" grep -qi display "$desktop/said"
}

test_Start_DamagedRegistryFile_Starts() {
    desktop_start nosound
    mkdir -p "$XDG_CONFIG_HOME/parlune"
    head -c 20000 /dev/urandom >"$XDG_CONFIG_HOME/parlune/registry.txt"
    parlune_start
    expect_soon "the character is on the desktop" character_visible
    expect "it ends well" parlune_end
    expect "the file is whole again" file_is_whole
}

test_Start_HalfARegistryFile_KeepsWhatIsThere() {
    desktop_start nosound
    put_option UserName Ada
    put_option ReadGreeting 0
    sed -i '$d' "$XDG_CONFIG_HOME/parlune/registry.txt"
    printf '"Character" = "brok' >>"$XDG_CONFIG_HOME/parlune/registry.txt"
    parlune_start
    expect_soon "the character is on the desktop" character_visible
    expect "it ends well" parlune_end
    expect "the user's name is kept" [ "$(stored_option UserName)" = Ada ]
}

test_Start_DamagedSettingsFile_Starts() {
    desktop_start nosound
    mkdir -p "$(settings_folder)"
    head -c 20000 /dev/urandom >"$(settings_folder)/Parlune.ini"
    companion_on_desktop
    expect "it ends well" parlune_end
}
