#!/usr/bin/env bash
# Measures a whole run of the tool against the floor, a program that only starts, loads the same
# data files and writes a file of the same size: process time, instructions, peak memory. The floor
# is linked in the ordinary way; the static floor, linked as the tool is, shows what is left.
#
#     bench/startup.sh [SYMBOL] [RUNS]
#
# Ends with status 1 when the tool takes more than twice the floor's time or instructions, or
# 8 MiB and more.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source bench/bench_lib.sh

symbol=${1:-F_d_d_d}
runs=${2:-500}

tool=$PWD/build/bench/lomar6
floor=$PWD/build/bench/bench/floor
enter_bench lomar6 floor floor_static

# What the tool writes for the symbol, and under which name.
"$tool" "$symbol" -e failed.txt || true
if [[ -e failed.txt ]]; then
    echo "lomar6 $symbol failed" >&2
    exit 1
fi
sg=$(ls ./*.sg)
size=$(stat -c %s "$sg")
tool_run=("$tool" "$symbol")
floor_run=("$floor" "$size")
static_run=("${floor}_static" "$size")

# hyperfine runs one command after the other, so the order is turned round once and the smaller
# median of each counts.
time_all() {
    quietly hyperfine -N --ignore-failure --warmup 20 --runs "$runs" \
        --prepare "rm -f $sg floor.out" --export-json "$1" "${@:2}"
}
time_all first.json "${tool_run[*]@Q}" "${floor_run[*]@Q}" "${static_run[*]@Q}"
time_all second.json "${static_run[*]@Q}" "${floor_run[*]@Q}" "${tool_run[*]@Q}"

# count COMMAND ... - the instructions of a whole run, the loader's among them.
count() {
    rm -f "$sg" floor.out
    valgrind --tool=callgrind --callgrind-out-file=callgrind.txt "$@" >valgrind.log 2>&1 || true
    sed -n 's/^summary: *\([0-9]*\).*/\1/p; s/^totals: *\([0-9]*\).*/\1/p' callgrind.txt | head -n 1
}

# peak COMMAND ... - the greatest resident size in KiB.
peak() {
    rm -f "$sg" floor.out
    /usr/bin/time -q -o peak.txt -f %M "$@" >/dev/null || true
    cat peak.txt
}

python3 - "$symbol" "$size" \
    "$(count "${tool_run[@]}")" "$(count "${floor_run[@]}")" "$(count "${static_run[@]}")" \
    "$(peak "${tool_run[@]}")" "$(peak "${floor_run[@]}")" "$(peak "${static_run[@]}")" <<'END'
import json
import sys

symbol, size = sys.argv[1:3]
counts = [int(text) for text in sys.argv[3:6]]
peaks = [int(text) for text in sys.argv[6:9]]
first, second = ([1e3 * run["median"] for run in json.load(open(name))["results"]]
                 for name in ("first.json", "second.json"))
times = [min(pair) for pair in zip(first, reversed(second))]

print(f"{symbol}, a file of {size} bytes")
print(f"{'':18}{'lomar6':>12}{'floor':>12}{'ratio':>8}{'static floor':>16}{'ratio':>8}")
for name, row, form in (("median time, ms", times, ".3f"), ("instructions", counts, ","),
                        ("peak memory, KiB", peaks, ",")):
    tool, floor, static = (format(value, form) for value in row)
    print(f"{name:18}{tool:>12}{floor:>12}{row[0] / row[1]:>8.2f}{static:>16}{row[0] / row[2]:>8.2f}")

within = times[0] <= 2 * times[1] and counts[0] <= 2 * counts[1] and peaks[0] < 8192
print("within the limits" if within else "NOT within the limits")
sys.exit(0 if within else 1)
END
