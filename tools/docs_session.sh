#!/usr/bin/env bash
# Runs the commands of a page and compares what they print with the page:
#
#     tools/docs_session.sh PROGRAM PAGE [--update]
#
# In the page's code blocks a line such as `$ lomar show P1` is a command, and the lines up to the
# next one are what it prints, errors included. All run in one folder, which is empty at first. With
# --update the page gets what the commands print now. The status is 1 when the page is wrong.
set -euo pipefail

program=$(realpath "$1")
page=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/bin" "$folder/session"
ln -s "$program" "$folder/bin/lomar"
export PATH="$folder/bin:$PATH" LC_ALL=C

# The page with the true output of its commands.
true_page() {
    cd "$folder/session"
    local line in_block=0 skipping=0
    while IFS= read -r line; do
        if [[ $line == '```'* ]]; then
            in_block=$((1 - in_block))
            skipping=0
        fi
        if ((in_block)) && [[ $line == '$ '* ]]; then
            printf '%s\n' "$line"
            bash -c "${line:2}" </dev/null 2>&1 || true
            skipping=1
        elif ((!skipping)); then
            printf '%s\n' "$line"
        fi
    done <"$page"
}

true_page >"$folder/page"
if [[ ${3-} == --update ]]; then
    cat "$folder/page" >"$page"
elif ! diff -u --label "$2" --label "what the commands print" "$page" "$folder/page"; then
    echo "$2 is not what its commands print" >&2
    exit 1
fi
