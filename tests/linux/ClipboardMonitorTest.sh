# The clipboard monitor beside other programs that copy.
# shellcheck shell=bash

watching_companion() {
    desktop_start nosound
    put_option MonitorClipboard 1
    companion_on_desktop
    expect_not "it is silent at first" balloon_visible
}

# Another start asks the running program to come to the front: it answers from its event loop.
answers_within() {
    local begun took
    begun=$(date +%s%N)
    "$program" >/dev/null 2>&1 || return
    took=$((($(date +%s%N) - begun) / 1000000))
    echo "the answer took $took ms"
    [ $took -le "$1" ]
}

# A copy whose owner is known as `owner`.
copy_and_stay() {
    printf '%s' "$1" >"$desktop/copy.txt"
    xclip -quiet -selection clipboard -i "$desktop/copy.txt" >/dev/null 2>&1 &
    owner=$!
    desktop_pids+=("$owner")
}

test_Monitor_OfWhatWasThereBefore_ReadsNothing() {
    desktop_start nosound
    copy_text "$short_text"
    put_option MonitorClipboard 1
    companion_on_desktop
    expect_not "nothing is read" wait_until 2 balloon_visible
    expect "it ends well" parlune_end
}

test_Monitor_OfThePrimarySelection_ReadsNothing() {
    watching_companion
    printf '%s' "$short_text" | xclip -selection primary -i >/dev/null 2>&1
    expect_not "nothing is read" wait_until 2 balloon_visible
    expect "it ends well" parlune_end
}

test_Monitor_OfAFrozenOwner_KeepsTheProgramAlive() {
    watching_companion
    copy_and_stay "$short_text"
    expect_soon "its copy is read" balloon_visible
    expect_soon "and is over" no_balloon
    kill -STOP "$owner"
    double_click_character # Reads the clipboard.
    expect "the program answers while the owner is frozen" answers_within 4000
    expect_not "nothing is read" balloon_visible
    kill -CONT "$owner"
    expect "it ends well" parlune_end
}

# The program asks the owner of a copy that it hears of six questions. Without a limit it asked more often than was copied.
asks_for_few_copies() {
    local milliseconds asked
    read -r _ _ _ milliseconds _ _ asked < <(grep copied "$desktop/flood.log")
    echo "in $milliseconds ms the owner was asked $asked times"
    [ "$asked" -le $(((milliseconds / 100 + 3) * 20)) ]
}

test_Monitor_OfAFlood_DoesNotStallTheProgram() {
    watching_companion
    "${program%/*}/copy_flood" 20000 0 >"$desktop/flood.log" 2>&1 &
    desktop_pids+=($!)
    expect_soon "the first copies are read" balloon_visible
    expect_soon "the flood is over" grep -q copied "$desktop/flood.log"
    expect "the program asks for ten copies a second at most" asks_for_few_copies
    expect_soon "the last copy is read" grep -q read "$desktop/flood.log"
    expect_soon "the program answers after it" "$program"
    expect "it ends well" parlune_end
}
