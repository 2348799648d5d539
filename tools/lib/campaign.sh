# The words of the campaigns (tools/campaigns). A failed expectation is told at once; the campaign goes on, and ends with failure.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
campaign=${0##*/}
work=$root/build/campaigns/$campaign
broken=0
. "$root/tools/lib/house.sh"

# prepare SET... [-- TARGET...]: installs the sets of packages and builds the targets of the Linux preset, if any.
prepare() {
    local sets=()
    while [ $# -gt 0 ] && [ "$1" != -- ]; do sets+=("$1"); shift; done
    [ $# -eq 0 ] || shift
    "$root/tools/install-packages" build run "${sets[@]}" || fail "What the campaign needs could not be installed."
    [ $# -eq 0 ] || build_preset linux -DPARLUNE_TESTS=ON -- "$@" || fail "The build failed."
    mkdir -p "$work"
    rm -f "$work"/failed*.png
}

# on_desktop: everything that the tests of the real program can do, for a campaign with windows and sound.
on_desktop() {
    local file
    program=$root/build/linux/bin/parlune
    why=$(mktemp)
    . "$root/tools/lib/desktop.sh"
    . "$root/tools/lib/parlune.sh"
    . "$root/tools/lib/controls.sh"
    . "$root/tests/linux/people.sh"
    trap 'parlune_kill; desktop_end; rm -f "$why"' EXIT
}

figure() { echo "figure $campaign: $1 = $2"; }

# expect "WHAT" COMMAND...
expect() {
    local what=$1
    shift
    "$@" && return
    broken=$((broken + 1))
    echo "NOT HELD: $what"
    [ -z "${desktop:-}" ] || screenshot "$work/failed$broken.png" 2>/dev/null
    return 1
}

# expect_within SECONDS "WHAT" COMMAND...
expect_within() {
    local seconds=$1 what=$2
    shift 2
    expect "$what (within $seconds s)" wait_until "$seconds" "$@"
}

# expect_soon "WHAT" COMMAND...: at some time, as in the tests.
expect_soon() { expect_within "$long_enough" "$@"; }

# have_read TEXT: the character is to read it. On a busy machine two clicks may come too late to be a double click.
clicked_again=0
have_read() {
    copy_text "$1"
    double_click_character
    wait_until 5 balloon_visible && return
    clicked_again=$((clicked_again + 1))
    double_click_character
}

# The last statement of a campaign.
end_campaign() {
    figure "expectations that did not hold" "$broken"
    [ "$broken" -eq 0 ]
}
