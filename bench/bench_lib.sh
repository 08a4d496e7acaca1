# Functions of the scripts in bench/, which source this file from the project's folder.
# shellcheck shell=bash
source tools/build_lib.sh

# enter_bench TARGET ... - builds these, and goes to a folder with the data files that lasts as long
# as the script.
enter_bench() {
    need_compiler
    need hyperfine:hyperfine valgrind:valgrind /usr/bin/time:time python3:python3 \
        /usr/include/benchmark/benchmark.h:libbenchmark-dev
    configure bench
    quietly cmake --build --preset bench -j "$(nproc)" --target "$@"

    folder=$(mktemp -d)
    trap 'rm -rf "$folder"' EXIT
    cp data/*.txt "$folder"
    cd "$folder" || return
}
