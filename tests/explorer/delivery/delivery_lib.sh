# What the tests of the program as a shell sees it share: TEST.sh PROGRAM sources this file.
# shellcheck shell=bash
set -uo pipefail

lomar=$(realpath "$1")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1

failed=0
fault() {
    echo "$*" >&2
    failed=1
}
