# The words of the tests here. A failed expectation is written down; the test goes on unless it returns.
# shellcheck shell=bash

explain() {
    echo "$*" >>"$why"
    echo "EXPECTED: $*"
    # The first failure is the telling one; later the program may have gone.
    [ -z "${DISPLAY:-}" ] || [ -e "$desktop/failed.png" ] || screenshot "$desktop/failed.png" 2>/dev/null
}

# expect "WHAT" COMMAND...: the command succeeds now.
expect() {
    local what=$1
    shift
    "$@" && return
    explain "$what"
    return 1
}

expect_not() {
    local what=$1
    shift
    "$@" || return 0
    explain "$what"
    return 1
}

# expect_within SECONDS "WHAT" COMMAND...: the command succeeds at some time until then.
expect_within() {
    local seconds=$1 what=$2
    shift 2
    wait_until "$seconds" "$@" && return
    explain "$what (within $seconds s)"
    return 1
}
