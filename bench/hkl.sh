#!/usr/bin/env bash
# Measures lists of reflections against their floor, a program that starts as the tool does and
# writes as many rows out of a table of texts: time, peak memory, instructions. The .sg files are
# there before, and both run by turns and write the same file: each takes the memory or the place on
# the disk that the other one gave back. A folder in memory keeps the disk out of it.
#
#     bench/hkl.sh [ROUNDS [FOLDER]]
#
# Times are those of the whole process, from before its start till it has been waited for, the
# smallest of all runs. "ratio" is that of these times, and decides; "cpu" is that of processor
# times, which don't count what else is running or the waiting for a disk.
#
# Ends with status 1 when a run takes more times the floor's time than its group may, or 4 MiB of
# memory. At limits 10 and 50 most of a run is its start, and lines are short; there the limits are
# what is reached, with a margin.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source bench/bench_lib.sh

rounds=${1:-5}

tool=$PWD/build/bench/lomar6
floor=$PWD/build/bench/bench/hkl_floor_static
if (($# > 1)); then export TMPDIR=$2; fi
enter_bench lomar6 hkl_floor_static

# time_by_turns RUNS LIMIT TOOL FLOOR - the times of both, and their processor times, in ms. What
# else is running only ever makes a run longer: while the ratio is above the limit there are more
# runs of both, up to four times as many.
time_by_turns() {
    python3 - "$rounds" "$@" <<'END'
import os
import shlex
import sys
import time


def run(command):
    start = time.perf_counter()
    _, _, used = os.wait4(os.posix_spawn(command[0], command, os.environ), 0)
    return time.perf_counter() - start, used.ru_utime + used.ru_stime


rounds, runs, limit, *commands = sys.argv[1:]
commands = list(map(shlex.split, commands))
best = [(float("inf"), float("inf"))] * 2
for _ in range(4):
    for _ in range(int(rounds) * int(runs)):
        best = [tuple(map(min, old, run(command))) for old, command in zip(best, commands)]
    (tool, tool_cpu), (floor, floor_cpu) = best
    if tool <= float(limit) * floor:
        break
print(*(f"{1e3 * value:.3f}" for value in (tool, floor, tool_cpu, floor_cpu)))
END
}

# peak COMMAND ... - the greatest resident size in KiB.
peak() {
    /usr/bin/time -q -o peak.txt -f %M "$@" >/dev/null || true
    cat peak.txt
}

# count COMMAND ... - the instructions of a whole run.
count() {
    valgrind --tool=callgrind --callgrind-out-file=callgrind.txt "$@" >valgrind.log 2>&1 || true
    sed -n 's/^summary: *\([0-9]*\).*/\1/p; s/^totals: *\([0-9]*\).*/\1/p' callgrind.txt | head -n 1
}

most_peak=4096
status=0
# report NAME LIMIT ROWS RATIO_LIMIT TOOL_MS FLOOR_MS TOOL_CPU FLOOR_CPU TOOL_PEAK FLOOR_PEAK
report() {
    python3 - "$most_peak" "$@" <<'END' || status=1
import sys

most_peak, name, limit, rows, most, *times, tool_peak, floor_peak = sys.argv[1:]
tool, floor, tool_cpu, floor_cpu = map(float, times)
within = tool <= float(most) * floor and int(tool_peak) < int(most_peak)
print(f"{name:12}{limit:>5}{rows:>10}{tool:>10.2f}{floor:>10.2f}{tool / floor:>7.2f}{most:>6}"
      f"{tool_cpu / floor_cpu:>6.2f}{tool_peak:>7}{floor_peak:>7}"
      f"  {'' if within else 'NOT within the limits'}".rstrip())
sys.exit(0 if within else 1)
END
}

# make_list SYMBOL LIMIT ... - a run of the tool that must not fail.
make_list() {
    "$tool" "$1" -hkl "${@:2}" -e failed.txt || true
    if [[ -e failed.txt ]]; then
        echo "lomar6 $1 failed" >&2
        exit 1
    fi
}

notes=()
printf '%-12s%5s%10s%10s%10s%7s%6s%6s%7s%7s\n' \
    '' limit rows lomar6 floor ratio most cpu KiB floor
while read -r symbol stem most_10 most_50 most_100 most_200; do
    for limit in 10 50 100 200; do
        case $limit in
            10) runs=50 most=$most_10 ;;
            50) runs=20 most=$most_50 ;;
            100) runs=5 most=$most_100 ;;
            200) runs=2 most=$most_200 ;;
        esac
        make_list "$symbol" "$limit" "$limit" "$limit"
        rows=$(($(wc -l <"$stem.hkl") - 2))
        tool_run=("$tool" "$symbol" -hkl "$limit" "$limit" "$limit")
        floor_run=("$floor" "$limit" "$rows" "$stem.hkl")
        read -r -a times < <(time_by_turns "$runs" "$most" "${tool_run[*]@Q}" "${floor_run[*]@Q}")
        report "$symbol" "$limit" "$rows" "$most" "${times[@]}" \
            "$(peak "${tool_run[@]}")" "$(peak "${floor_run[@]}")"
        if ((limit == 10 || limit == 100)); then
            notes+=("$symbol at $limit: $(count "${tool_run[@]}") instructions, the floor $(
                count "${floor_run[@]}")")
        fi
        rm -f "$stem.hkl"
    done
done <<END
P_1 p1 1.6 1.2 1.15 1.1
P_21/c p21oc 1.6 1.3 1.2 1.1
F_d_d_d fddd 1.6 1.8 1.4 1.3
P_63/m_m_c p63ommc 1.6 1.8 1.6 1.4
F_d_-3_m fd-3m 2.5 2.8 2.5 2.6
END
echo "Times in ms."
printf '%s\n' "${notes[@]}"

# Lists for which a grid, or the rows in memory, would be large.
(ulimit -v 1000000 && make_list F1 200 200 200)
echo "F1 at 200 with 1 GB of address space: $(($(wc -l <f1.hkl) - 2)) rows"
rm -f f1.hkl
long_peak=$(peak "$tool" F_d_-3_m -hkl 1000 1000 1000)
echo "F_d_-3_m at 1000: $(($(wc -l <fd-3m.hkl) - 2)) rows, $long_peak KiB"
((long_peak < most_peak)) && [[ $(tail -c 1 fd-3m.hkl) == '}' ]] || status=1

if ((status == 0)); then echo "within the limits"; else echo "NOT within the limits"; fi
exit "$status"
