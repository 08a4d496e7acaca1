#!/usr/bin/env bash
# Compiles every header under src/ and explorer/ on its own: each must include what it needs. One
# that is the first include of its source is compiled alone with that.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

export CXX=${CXX:-g++}

compiles_alone() {
    local flags=(-std=c++20 -Isrc -Iexplorer -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
    if ! echo "#include \"${1#*/}\"" | "$CXX" "${flags[@]}" -fsyntax-only -x c++ -; then
        echo "$1:1: doesn't compile alone"
        return 1
    fi
}
export -f compiles_alone

# begins_source HEADER - whether its source includes it first.
begins_source() {
    local source=${1%.h}.cpp
    [[ -e $source ]] && [[ $(grep -m 1 '^#include' "$source") == "#include \"${1#*/}\"" ]]
}

headers=()
while read -r header; do
    begins_source "$header" || headers+=("$header")
done < <(find src explorer -name '*.h' | sort)
((${#headers[@]})) || { echo "no headers"; exit 1; }
# shellcheck disable=SC2016  # the inner shell expands
printf '%s\0' "${headers[@]}" |
    xargs -0 -n 1 -P "$(nproc)" bash -c 'compiles_alone "$1"' _ || exit 1
echo "check_headers: ${#headers[@]} headers without a source compile alone"
