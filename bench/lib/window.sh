# The options window: pages, lists, menus.
# shellcheck shell=bash

# Five hundred families more: copies of a font under other names of the same length.
put_font_families() {
    local font number
    font=$(fc-match -f '%{file}' 'DejaVu Sans Mono')
    mkdir -p "$XDG_DATA_HOME/fonts"
    for ((number = 100; number < 600; number++)); do
        perl -pe "BEGIN { binmode STDIN; binmode STDOUT; (\$wide = 'Fam$number') =~ s/(.)/\\0\$1/g }
            s/DejaVu/Fam$number/g; s/\\0D\\0e\\0j\\0a\\0V\\0u/\$wide/g" <"$font" >"$XDG_DATA_HOME/fonts/$number.ttf"
    done
    fc-cache "$XDG_DATA_HOME/fonts"
}

# The time from pressing the button of the mouse, which is where it must be, to the last change at a place on the screen, in
# milliseconds. The start of xdotool counts.
click_until_settled() {
    local width height left top
    IFS='x+' read -r width height left top <<<"$1"
    "$bin/bench_Eye" --settled "$left" "$top" "$width" "$height" xdotool click "${2:-1}" | awk '{ print $1 }'
}

# What is on a page, as a place on the screen.
page_place() {
    local window_x window_y
    IFS='x+' read -r _ _ window_x window_y <<<"$(place_of "$(options_window)")"
    echo "520x380+$((window_x + 20))+$((window_y + 66))"
}

time_page() {
    point_at "tabMain/${tab_numbers[$1]}"
    sleep 0.3 # The tab shows that the pointer is there.
    click_until_settled "$(page_place)"
}

# A new program each time: the lists fill only once.
time_first_visits() {
    parlune_start
    wait_until 20 character_visible || fail "Parlune does not show its character."
    sleep 2
    open_options
    sleep 1
    time_page voice >>"$desktop/voices"
    time_page balloon >>"$desktop/fonts"
    parlune_end
}

time_later_visits() {
    local page round
    for round in 1 2 3; do
        for page in general character voice balloon read greetings about; do time_page "$page" >"$desktop/page"
            [ "$round" = 1 ] || cat "$desktop/page" >>"$desktop/pages"
        done
    done
}

# The menu opens over the page, so that is where it is seen.
time_menu() {
    local run
    for ((run = 0; run < runs; run++)); do
        point_at menu/0
        sleep 0.3
        click_until_settled "$(page_place)" >>"$desktop/menus"
        xdotool key Escape Escape
        sleep 0.3
    done
}

figure_window() {
    local run
    desktop_start nosound
    put_font_families
    put_option FirstTime 0
    put_option ReadGreeting 0
    put_option IdleOn 0
    for ((run = 0; run < runs; run++)); do time_first_visits; done
    parlune_start
    wait_until 20 character_visible || fail "Parlune does not show its character."
    sleep 2
    open_options
    sleep 1
    time_later_visits
    time_menu
    row "page of the options window, after its first visit" ms 100 "$(median <"$desktop/pages")" \
        "14 changes, longest $(largest <"$desktop/pages")"
    row "voice page at the first visit: $(espeak-ng --voices | tail -n +2 | wc -l) voices" ms 300 "$(median <"$desktop/voices")" \
        "longest $(largest <"$desktop/voices")"
    row "balloon page at the first visit: $(fc-list : family | sort -u | wc -l) font families" ms 500 \
        "$(median <"$desktop/fonts")" "longest $(largest <"$desktop/fonts")"
    row "menu" ms 50 "$(median <"$desktop/menus")" "longest $(largest <"$desktop/menus")"
}
