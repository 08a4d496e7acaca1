#!/usr/bin/env bash
# Measures lists of reflections against their floor, a program that starts as the tool does and
# writes as many rows out of a table of texts: processor time, peak memory, instructions. The .sg files
# are there before, and both run by turns. Files go to FOLDER, if one is given: one in memory keeps
# the disk out of it.
#
#     bench/hkl.sh [ROUNDS [FOLDER]]
#
# Ends with status 1 when a run takes more times the floor's time than its group may, or 4 MiB of
# memory.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source bench/bench_lib.sh

rounds=${1:-5}

tool=$PWD/build/bench/lomar6
floor=$PWD/build/bench/bench/hkl_floor_static
if (($# > 1)); then export TMPDIR=$2; fi
enter_bench lomar6 hkl_floor_static

# time_by_turns RUNS COMMAND COMMAND ... - the smallest processor time of each over all rounds, in ms.
# What else is running only ever makes a run longer, and waiting for the disk isn't counted.
time_by_turns() {
    python3 - "$rounds" "$@" <<'END'
import os
import shlex
import sys

rounds, runs, *commands = sys.argv[1:]
best = [float("inf")] * len(commands)
for _ in range(int(rounds) * int(runs)):
    for i, command in enumerate(map(shlex.split, commands)):
        _, _, used = os.wait4(os.posix_spawn(command[0], command, os.environ), 0)
        best[i] = min(best[i], used.ru_utime + used.ru_stime)
print(*(f"{1e3 * time:.2f}" for time in best))
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

status=0
# report NAME LIMIT ROWS TOOL_MS FLOOR_MS RATIO_LIMIT TOOL_PEAK FLOOR_PEAK PEAK_LIMIT
report() {
    python3 - "$@" <<'END' || status=1
import sys

name, limit, rows = sys.argv[1:4]
tool, floor, most_ratio = map(float, sys.argv[4:7])
tool_peak, floor_peak, most_peak = map(int, sys.argv[7:10])
within = tool <= most_ratio * floor and tool_peak < most_peak
print(f"{name:12}{limit:>5}{rows:>10}{tool:>10.2f}{floor:>10.2f}{tool / floor:>8.2f}{most_ratio:>6g}"
      f"{tool_peak:>9,}{floor_peak:>9,}  {'' if within else 'NOT within the limits'}")
sys.exit(0 if within else 1)
END
}

notes=()
printf '%-12s%5s%10s%10s%10s%8s%6s%9s%9s\n' '' limit rows lomar6 floor ratio most KiB floor
while read -r symbol stem most_100 most_200; do
    for limit in 10 50 100 200; do
        "$tool" "$symbol" -hkl "$limit" "$limit" "$limit" -e failed.txt || true
        if [[ -e failed.txt ]]; then
            echo "lomar6 $symbol failed" >&2
            exit 1
        fi
        rows=$(($(wc -l <"$stem.hkl") - 2))
        tool_run=("$tool" "$symbol" -hkl "$limit" "$limit" "$limit")
        floor_run=("$floor" "$limit" "$rows" floor.out)
        runs=5
        most=$most_100
        case $limit in
            10) runs=50 most=3 ;;
            200) runs=2 most=$most_200 ;;
        esac
        read -r -a times < <(time_by_turns "$runs" "${tool_run[*]@Q}" "${floor_run[*]@Q}")
        report "$symbol" "$limit" "$rows" "${times[@]}" "$most" \
            "$(peak "${tool_run[@]}")" "$(peak "${floor_run[@]}")" 4096
        if ((limit == 50)); then
            notes+=("$symbol at 50: $(count "${tool_run[@]}") instructions, the floor $(
                count "${floor_run[@]}")")
        fi
        rm -f "$stem.hkl" floor.out
    done
done <<END
P_1 p1 1.15 1.1
P_21/c p21oc 1.2 1.1
F_d_d_d fddd 1.4 1.3
P_63/m_m_c p63ommc 1.6 1.4
F_d_-3_m fd-3m 2.5 2.6
END
echo "Times in ms."
printf '%s\n' "${notes[@]}"
if ((status == 0)); then echo "within the limits"; else echo "NOT within the limits"; fi
exit "$status"
