#!/usr/bin/env bash
# Compiles every header under src/ and explorer/ on its own: each must include what it needs.
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

mapfile -t headers < <(find src explorer -name '*.h' | sort)
((${#headers[@]})) || { echo "no headers"; exit 1; }
# shellcheck disable=SC2016  # the inner shell expands
printf '%s\0' "${headers[@]}" |
    xargs -0 -n 1 -P "$(nproc)" bash -c 'compiles_alone "$1"' _ || exit 1
echo "check_headers: ${#headers[@]} headers compile alone"
