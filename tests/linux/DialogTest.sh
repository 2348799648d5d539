# Documents and characters that come from files.
# shellcheck shell=bash

# choose_file TITLE FILE: gives the path to the file dialog of that title, which must come.
choose_file() {
    expect_soon "the dialog \"$1\" comes" is_there "^$1\$" || return
    xdotool windowactivate --sync "$(visible_window "^$1\$")"
    copy_text "$2"
    xdotool key ctrl+v Return
    expect_soon "the dialog \"$1\" goes" is_gone "^$1\$"
    xdotool windowactivate --sync "$(options_window)"
}
is_there() { [ -n "$(visible_window "$1")" ]; }
is_gone() { ! is_there "$1"; }

title_is() { [ "$(xdotool getwindowname "$(options_window)")" = "$1" ]; }

test_Document_OpenedDraggedWrittenAndSaved_IsInItsFile() {
    desktop_start
    companion_on_desktop
    open_options
    local letter=$desktop/home/letter.txt new=$desktop/home/new.TXT # As the dialog names it.
    echo "Dear reader, this letter came out of a file. $endless_text" >"$letter"
    press alt+f o
    choose_file "Open Text File" "$letter"
    expect_soon "the title tells of the file" title_is "Parlune - [$letter]"
    xdotool type "Well: "
    expect_soon "the title tells of the change" title_is "Parlune - [$letter] *"
    press alt+f s
    expect_soon "the change is saved without a question" title_is "Parlune - [$letter]"
    expect "it is in the file" grep -q '^Well: Dear reader' "$letter"
    click_at tlbToolbar/3
    expect_soon "the text is heard" is_playing
    click_at tlbToolbar/4
    expect_soon "it is silent after Stop" is_silent
    click_at tlbToolbar/0
    expect_soon "the title tells of a new text" title_is "Parlune - [New File]"
    click_at txtRead
    xdotool type "abc"
    click_at tlbToolbar/2
    choose_file "Save Text File" "${new%.TXT}"
    expect_soon "the title tells of the file" title_is "Parlune - [$new]"
    expect "the text is in the file, and a line's end" cmp -s "$new" <(printf 'abc\n')
    drag_into_editor "$letter"
    expect_soon "a file that is dragged onto the text is opened" title_is "Parlune - [$letter]"
    xdotool windowactivate --sync "$(options_window)"
    press alt+f c
    expect_soon "closing leaves no file" title_is Parlune
    expect "it ends well" parlune_end
    expect "the folder is kept" [ "$(stored_option LastFolder)" = "$desktop/home/" ]
}

drag_into_editor() {
    desktop_server drag_file "${program%/*}/drag_file" "$1"
    expect_soon "there is a file to drag" is_there '^A file to drag$'
    local step x y
    point_at txtRead
    eval "$(xdotool getmouselocation --shell | sed 's/^\([XY]\)/place_\1/')"
    xdotool mousemove 50 20 mousedown 1
    for step in 1 2 3 4 5 6 7 8 9 10; do
        x=$((50 + (place_X - 50) * step / 10)) y=$((20 + (place_Y - 20) * step / 10))
        xdotool mousemove $x $y
        sleep 0.1
    done
    sleep 0.3
    xdotool mouseup 1
}

test_Character_BrowsedForAndSelected_Comes() {
    desktop_start nosound
    companion_on_desktop
    open_options
    local other=$desktop/home/Other.acs
    cp "$XDG_DATA_HOME/parlune/MSAgent/Chars/Nibbin.acs" "$other"
    go_to_tab character
    click_at cboBrowseChar
    expect_soon "the dialog comes" is_there '^Select Agent Character$'
    xdotool key Escape
    expect_soon "the dialog goes" is_gone '^Select Agent Character$'
    expect_soon "the character stays" character_visible
    click_at cboBrowseChar
    choose_file "Select Agent Character" "$other"
    expect_soon "its character comes" character_visible
    expect_soon "it stands still" stands_still character_window
    click_at cmdCharacterOptions
    expect_soon "the engine's options open" is_there '^Advanced Character Options$'
    xdotool windowactivate --sync "$(visible_window '^Advanced Character Options$')" key Escape
    expect_soon "the engine's options close" is_gone '^Advanced Character Options$'
    click_at cmdSetDefault
    expect_soon "the choice of the default character opens" is_there '^Default Character$'
    xdotool windowactivate --sync "$(visible_window '^Default Character$')" key Escape
    expect_soon "the choice of the default character closes" is_gone '^Default Character$'
    expect "it ends well" parlune_end
    expect "the character is kept" [ "$(stored_option Character)" = "$other" ]
    expect "the folder is kept" [ "$(stored_option LastCharFolder)" = "$desktop/home/" ]
}
