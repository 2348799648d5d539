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

# expect_soon "WHAT" COMMAND...: the command succeeds at some time. How long a busy machine takes for it decides nothing.
expect_soon() {
    local what=$1
    shift
    wait_until "$long_enough" "$@" && return
    explain "$what (within $long_enough s)"
    return 1
}
