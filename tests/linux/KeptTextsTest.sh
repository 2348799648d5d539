# What a user typed is not lost, however the program ends.
# shellcheck shell=bash

kept_folder() { echo "$XDG_STATE_HOME/parlune/texts"; }
copy_is_there() { grep -qs "$1" "$(kept_folder)"/unsaved*; }
copy_is_private() { [ "$(stat -c %a "$(kept_folder)"/unsaved*)" = 600 ]; } # There may be two, for a moment.
kept_is_there() { grep -qs "$1" "$(kept_folder)"/20*; }
kept_bytes_are() { cmp -s "$1" "$(kept_folder)"/20*; }
count_kept() { find "$(kept_folder)" -type f | wc -l; }

type_into_editor() {
    go_to_tab read
    click_at txtRead
    xdotool type "$1"
    expect_soon "the title tells of the change" title_is "Parlune - [New File] *"
}

# The status bar as it is seen, in a few words of pixels.
status_seen() {
    local x y width height window_x window_y
    read -r x y width height <<<"${control_places[staStatus]}"
    IFS='x+' read -r _ _ window_x window_y <<<"$(place_of "$(options_window)")"
    screenshot "$desktop/screen.png"
    convert "$desktop/screen.png" -crop "${width}x$height+$((window_x + x))+$((window_y + y))" +repage -format '%#' info:
}
status_differs_from() { [ "$(status_seen)" != "$1" ]; }

test_Kill_WithAChangedText_TheNextStartTellsWhereItIs() {
    desktop_start nosound
    companion_on_desktop
    open_options
    local before
    before=$(status_seen)
    type_into_editor "Nobody saved this."
    expect_soon "the text is copied" copy_is_there "Nobody saved this"
    expect_soon "the file is the user's own" copy_is_private
    expect "the folder is the user's own" [ "$(stat -c %a "$(kept_folder)")" = 700 ]
    parlune_kill
    companion_on_desktop
    open_options
    expect_soon "the status bar tells something" status_differs_from "$before"
    expect "the text is kept" kept_is_there "Nobody saved this"
    expect_not "it is no copy of an unsaved text any more" copy_is_there .
    expect "it ends well" parlune_end
    expect "nothing else is left" [ "$(count_kept)" = 1 ]
}

test_Terminate_WithAnUnnamedText_KeepsItWithoutADialog() {
    desktop_start nosound
    companion_on_desktop
    open_options
    type_into_editor "No name yet."
    expect "it ends well" parlune_end
    expect "the text is kept whole" copy_is_there "^No name yet\.$"
    companion_on_desktop
    expect_soon "the next start takes it over" kept_is_there "No name yet"
    expect "it ends well again" parlune_end
    expect "there is one text" [ "$(count_kept)" = 1 ]
}

test_Picture_OpenedByMistakeAndSavedAtExit_IsKeptByteForByte() {
    desktop_start nosound
    companion_on_desktop
    open_options
    local picture=$desktop/home/picture.png
    convert -size 64x64 plasma:fractal "$picture"
    cp "$picture" "$desktop/picture.before"
    press alt+f o
    choose_file "Open Text File" "$picture"
    expect_soon "the title tells of the file" title_is "Parlune - [$picture]"
    click_at txtRead
    xdotool type "x"
    expect_soon "the title tells of the change" title_is "Parlune - [$picture] *"
    press alt+f x
    expect_soon "it has ended" has_ended "$parlune_pid"
    expect_not "the picture is another file now" cmp -s "$picture" "$desktop/picture.before"
    expect "the former bytes are kept" kept_bytes_are "$desktop/picture.before"
}

test_Document_OpenedAndSaved_KeepsItsForm() {
    desktop_start nosound
    companion_on_desktop
    open_options
    local letter=$desktop/home/letter.txt
    printf 'Gr\374\337e\r\nan dich' >"$letter"
    press alt+f o
    choose_file "Open Text File" "$letter"
    expect_soon "the title tells of the file" title_is "Parlune - [$letter]"
    click_at txtRead
    press ctrl+Home
    xdotool type "O "
    expect_soon "the title tells of the change" title_is "Parlune - [$letter] *"
    press alt+f s
    expect_soon "it is saved" title_is "Parlune - [$letter]"
    printf 'O Gr\374\337e\r\nan dich' >"$desktop/wanted"
    expect "encoding, line ends and last line are as before" cmp "$letter" "$desktop/wanted"
    expect "it ends well" parlune_end
}
