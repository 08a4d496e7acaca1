# Functions of the scripts run, check and .ci/run. They source this file from the project's folder.
# shellcheck shell=bash

# need WHAT:PACKAGE ... - installs the Debian package of each WHAT that is missing. WHAT is a
# command or the path of a file.
need() {
    local entry missing=()
    for entry in "$@"; do
        if [[ $entry == /* ]]; then
            [[ -e ${entry%:*} ]] || missing+=("${entry#*:}")
        else
            command -v "${entry%:*}" >/dev/null || missing+=("${entry#*:}")
        fi
    done
    ((${#missing[@]})) || return 0

    local as_root=()
    if ! command -v apt-get >/dev/null; then
        echo "Please install: ${missing[*]}" >&2
        return 1
    elif ((EUID != 0)); then
        as_root=(sudo)
        if ! command -v sudo >/dev/null || ! { sudo -n true || { [[ -t 0 ]] && sudo -v; }; } 2>/dev/null
        then
            echo "No root rights. Please install: apt-get install ${missing[*]}" >&2
            return 1
        fi
    fi
    echo "Installing ${missing[*]} ..." >&2
    local get=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq)
    # A package list that can't be renewed may still serve.
    quietly "${get[@]}" update || true
    quietly "${get[@]}" install -y --no-install-recommends "${missing[@]}"
}

# quietly COMMAND ... - runs it and shows its output only if it fails.
quietly() {
    local log status=0
    log=$(mktemp)
    "$@" >"$log" 2>&1 </dev/null || status=$?
    ((status == 0)) || cat "$log" >&2
    rm -f "$log"
    return "$status"
}

# need_compiler [WHAT:PACKAGE ...] - installs what every build needs, and these.
need_compiler() {
    local build_tool=ninja:ninja-build
    if command -v make >/dev/null; then build_tool=make:make; fi
    need g++:g++ cmake:cmake "$build_tool" "$@"
}

# What lomar takes besides.
need_explorer_libraries() {
    need /usr/include/CLI/CLI.hpp:libcli11-dev /usr/include/fmt/core.h:libfmt-dev \
        /usr/include/nlohmann/json.hpp:nlohmann-json3-dev \
        /usr/include/gemmi/cif.hpp:gemmi-dev /usr/include/tao/pegtl.hpp:tao-pegtl-dev
}

need_cross_compiler() {
    need_compiler x86_64-w64-mingw32-g++-posix:g++-mingw-w64-x86-64-posix
}

# The compiler is a script that uses a package of Node's.
need_browser_compiler() {
    need_compiler em++:emscripten /usr/share/nodejs/acorn:node-acorn python3:python3
    need_explorer_libraries
}

# What drives a browser in tests.
need_browser() {
    need chromium:chromium chromedriver:chromium-driver \
        /usr/lib/python3/dist-packages/selenium/__init__.py:python3-selenium
}

# configured PRESET - whether build/PRESET is prepared. A build folder that was made elsewhere, and
# then moved or copied here, is of no use.
configured() {
    grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "build/$1/CMakeCache.txt" &&
        [[ -e build/$1/build.ninja || -e build/$1/Makefile ]]
}

# configure PRESET [OPTION ...] - prepares build/PRESET.
configure() {
    configured "$1" || rm -rf "build/$1"
    if [[ ! -e build/$1 ]] && command -v ninja >/dev/null; then
        quietly cmake --preset "$1" -G Ninja "${@:2}"
    else
        quietly cmake --preset "$1" "${@:2}"
    fi
}

# run_tests PRESET - shows the totals if all tests pass, else everything.
run_tests() {
    local log="build/$1/tests.log"
    if ctest --preset "$1" -j2 --no-tests=error >"$log" 2>&1; then
        grep -E 'tests passed|Total Test time' "$log"
        # No test is passed over in silence.
        sed -n '/did not run/,/^$/p' "$log"
    else
        cat "$log"
        return 1
    fi
}
