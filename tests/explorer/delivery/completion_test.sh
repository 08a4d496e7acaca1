#!/usr/bin/env bash
# Asks the completion for words as a shell does: completion_test.sh PROGRAM SCRIPT
set -euo pipefail
program=$1
# shellcheck source=/dev/null
source "$2"

failed=0
# expect ANSWER WORD ... - what the last word, which may be empty, is completed to.
expect() {
    local wanted=$1
    COMP_WORDS=("$program" "${@:2}")
    COMP_CWORD=$(($# - 1))
    COMPREPLY=()
    _lomar
    local got="${COMPREPLY[*]}"
    if [[ $got != "$wanted" ]]; then
        echo "completion of '${*:2}': '$got' instead of '$wanted'" >&2
        failed=1
    fi
}

cd "$(mktemp -d)"
trap 'rm -rf "$PWD"' EXIT
touch file.cif

expect "show" sh
expect "--help --version" --
expect "json" show P1 --format j
expect "xyz" show --format x
expect "json" show --format = j
expect "generators" identify --from g
expect "elements positions both" draw P1 --what ""
expect "--format" show P1 --f
expect "file.cif" show P1 -o "fi"
expect "file.cif" identify "f"
expect "" show nothing_such_as
if [[ $(complete -p lomar) != *"-F _lomar lomar" ]]; then
    echo "the completion is not registered" >&2
    failed=1
fi
exit "$failed"
