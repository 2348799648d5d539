# What the user chose before an end that nobody asked for.
# shellcheck shell=bash

journal_file() { echo "$XDG_STATE_HOME"/parlune/options-*.journal; }
journal_holds() { grep -aq "$1" "$(journal_file)" 2>/dev/null; }
no_journal() { [ ! -e "$(journal_file)" ]; }

# Ticks two boxes and types a name, as a user does.
choose_by_hand() {
    open_options
    go_to_tab general
    click_at chkQueueReadCommands
    click_at chkShowSplash
    go_to_tab greetings
    click_at txtUserName
    xdotool key ctrl+a
    xdotool type Grace
}

test_Kill_AfterChoices_TheNextStartHasThem() {
    desktop_start nosound
    companion_on_desktop
    expect "nothing is kept while nothing is chosen" no_journal
    choose_by_hand
    expect_soon "the name is kept" journal_holds 'UserName.*Grace'
    expect "the store is not written before the end" [ -z "$(stored_option UserName)" ]
    parlune_kill
    parlune_start
    expect_soon "the character is on the desktop" character_visible
    expect "the name is stored" [ "$(stored_option UserName)" = Grace ]
    expect "one box is stored" [ "$(stored_option QueueReadCommands)" = 0 ]
    expect "the other box is stored" [ "$(stored_option ShowSplash)" = 1 ]
    expect_soon "nothing is kept any more" no_journal
    expect "it ends well" parlune_end
    expect "the name is still stored" [ "$(stored_option UserName)" = Grace ]
}

# The name in the file; the stored one when there is no file.
kept_name() {
    local stored text
    if no_journal; then stored_option UserName; return; fi
    read -r _ _ stored _ <<<"$(grep -a -B1 '^UserName' "$(journal_file)" | head -n 1)"
    text=$(grep -a '^UserName' "$(journal_file)")
    echo "${text:8 + stored}"
}

# Eight times, at moments of their own: what was in the file is in the store after the next start.
test_Kill_WhileChoosing_TheNextStartHasWhatWasKept() {
    desktop_start nosound
    companion_on_desktop
    local round name
    for round in $(seq 8); do
        open_options
        go_to_tab greetings
        click_at txtUserName
        xdotool key ctrl+a
        xdotool type --delay 30 "name$round" &
        sleep "0.$((RANDOM % 4))$((RANDOM % 10))"
        parlune_kill
        wait $!
        name=$(kept_name)
        parlune_start
        expect_soon "the character is on the desktop" character_visible || return
        expect "round $round: the name is $name, not $(stored_option UserName)" [ "$(stored_option UserName)" = "$name" ] || return
    done
    expect "it ends well" parlune_end
}

test_End_AfterChoices_LeavesNothingKept() {
    desktop_start nosound
    companion_on_desktop
    choose_by_hand
    expect_soon "the name is kept" journal_holds 'UserName.*Grace'
    expect "it ends well" parlune_end
    expect "nothing is kept" no_journal
    expect "the name is stored" [ "$(stored_option UserName)" = Grace ]
}

test_Kill_WithADamagedJournal_Starts() {
    desktop_start nosound
    companion_on_desktop
    choose_by_hand
    expect_soon "the name is kept" journal_holds 'UserName.*Grace'
    parlune_kill
    local file
    file=$(journal_file)
    head -c 20000 /dev/urandom >"$file"
    parlune_start
    expect_soon "the character is on the desktop" character_visible
    expect "the user's name is as it was stored" [ -z "$(stored_option UserName)" ]
    expect "it ends well" parlune_end
    expect "nothing is kept" no_journal
}
