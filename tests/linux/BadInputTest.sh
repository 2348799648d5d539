# Files and folders that are missing, sealed or not what they should be, and texts of unlikely sizes.
# shellcheck shell=bash

test_Start_ConfigurationReadOnly_StartsAndEndsWell() {
    desktop_start nosound
    chmod 500 "$XDG_CONFIG_HOME"
    start_without_power
    expect_soon "the character is on the desktop" character_visible
    expect_not "nothing is reported" box_visible
    expect "it ends well" parlune_end
    expect "nothing was written" [ -z "$(ls "$XDG_CONFIG_HOME")" ]
}

test_Start_ConfigurationFolderCannotBe_StartsAndEndsWell() {
    desktop_start nosound
    echo mine >"$desktop/file"
    XDG_CONFIG_HOME=$desktop/file/config parlune_start
    expect_soon "the character is on the desktop" character_visible
    expect_not "nothing is reported" box_visible
    expect "it ends well" parlune_end
    expect "the file is untouched" [ "$(cat "$desktop/file")" = mine ]
}

test_Start_SealedRegistryFile_StartsAndLeavesItAlone() {
    desktop_start nosound
    put_option UserName Ada
    local file=$XDG_CONFIG_HOME/parlune/registry.txt before
    before=$(md5sum <"$file")
    chmod 000 "$file"
    start_without_power
    expect_soon "the character is on the desktop" character_visible
    expect "it ends well" parlune_end
    chmod 600 "$file"
    expect "the file is untouched" [ "$(md5sum <"$file")" = "$before" ]
}

test_Start_SealedSettingsFolder_Starts() {
    desktop_start nosound
    mkdir -p "$(settings_folder)"
    chmod 000 "$(settings_folder)"
    start_without_power
    expect_soon "the character is on the desktop" character_visible
    expect "it ends well" parlune_end
    chmod 700 "$(settings_folder)"
}

test_Start_DataFolderReadOnly_SaysSoAndShowsTheBundledCharacter() {
    desktop_start nosound
    chmod 500 "$XDG_DATA_HOME"
    start_without_power
    expect_soon "it says that there are no characters" question_visible || return
    answer Return
    expect_soon "the character is on the desktop" character_visible
    expect "it ends well" parlune_end
}

test_Start_DamagedCharacter_ShowsTheBundledOne() {
    desktop_start nosound
    local folder=$XDG_DATA_HOME/parlune/MSAgent/Chars
    mkdir -p "$folder"
    head -c 5000 /dev/urandom >"$folder/Nibbin.acs"
    local before
    before=$(md5sum <"$folder/Nibbin.acs")
    companion_on_desktop
    expect "it ends well" parlune_end
    expect "the file is untouched" [ "$(md5sum <"$folder/Nibbin.acs")" = "$before" ]
}

test_Copy_OneMegabyteWithoutABlank_IsShownAndCanBeSilenced() {
    desktop_start nosound
    put_option MonitorClipboard 1
    companion_on_desktop
    head -c 1000000 /dev/zero | tr '\0' 'a' | xclip -selection clipboard -i
    expect_soon "a balloon comes" balloon_visible
    let_the_click_end
    point_at_character
    xdotool keydown shift click 1 keyup shift
    expect_soon "the balloon goes" no_balloon
    expect "it ends well" parlune_end
}

test_ReadTextFile_HundredMegabytes_IsReadAndCanBeLeft() {
    desktop_start nosound
    companion_on_desktop
    yes "A line of a file that is much too long for one evening, and for two of them." | head -c 100000000 >"$desktop/long.txt"
    read_text_file "$desktop/long.txt"
    expect_soon "a balloon comes" balloon_visible
    expect "it ends well" parlune_end
}

test_ReadTextFile_Unreadable_IsReported() {
    desktop_start nosound
    companion_on_desktop
    read_text_file /proc/self/mem
    expect_soon "the failure is reported" box_visible || return
    close_box
    expect_soon "the box goes" no_box
    copy_text "$short_text"
    double_click_character
    expect_soon "another text is read afterwards" balloon_visible
    expect "it ends well" parlune_end
}

box_window() { visible_window 'Unexpected Error$'; }
box_visible() { [ -n "$(box_window)" ]; }
no_box() { ! box_visible; }
no_balloon() { ! balloon_visible; }
close_box() {
    xdotool windowactivate --sync "$(box_window)"
    xdotool key Return
}

# Starts Parlune as a user whom sealed files stop; root alone is not stopped by them.
start_without_power() {
    local without=-dac_override,-dac_read_search
    local words=("$program")
    [ "$(id -u)" != 0 ] || words=(setpriv "--inh-caps=$without" "--bounding-set=$without" "$program")
    "${words[@]}" >"$desktop/parlune.log" 2>&1 &
    parlune_pid=$!
}

# By the character's menu and the keyboard. The path is pasted: between typed letters the dialog offers what it might become.
read_text_file() {
    point_at_character
    open_menu
    xdotool key f
    expect_soon "the dialog comes" file_dialog_visible || return
    xdotool windowactivate --sync "$(file_dialog)"
    copy_text "$1"
    xdotool key ctrl+v Return
}
file_dialog() { visible_window '^Read Text File$'; }
file_dialog_visible() { [ -n "$(file_dialog)" ]; }
