#!/usr/bin/env bash
# Measures lists of reflections against their floor, a program that goes through a grid of bits of
# the same size and writes as many rows: process time, peak memory, instructions. The .sg files are
# there before, and both run by turns.
#
#     bench/hkl.sh [ROUNDS]
#
# Ends with status 1 when a run takes more times the floor's time than its group may, or when a list
# of limits 10 takes more than twice an empty process, or when memory is above its limits.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source bench/bench_lib.sh

rounds=${1:-5}

tool=$PWD/build/bench/lomar6
floor=$PWD/build/bench/bench/hkl_floor
enter_bench lomar6 hkl_floor hkl_floor_static

# time_by_turns RUNS COMMAND COMMAND ... - the smallest time of each over all rounds, in ms. What
# else is running only ever makes a run longer.
time_by_turns() {
    local i
    for ((i = 0; i < rounds; i++)); do
        quietly hyperfine -N --ignore-failure --warmup 1 --runs "$1" --export-json "$i.json" "${@:2}"
    done
    python3 - "$rounds" <<'END'
import json
import sys

rounds = [json.load(open(f"{i}.json"))["results"] for i in range(int(sys.argv[1]))]
print(*(f"{1e3 * min(run['min'] for run in runs):.2f}" for runs in zip(*rounds)))
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

no_limit=1000000000
notes=()
printf '%-12s%5s%10s%10s%10s%8s%6s%9s%9s\n' '' limit rows lomar6 floor ratio most KiB floor
while read -r symbol stem most_ratio peak_100 peak_200; do
    for limit in 10 50 100 200; do
        "$tool" "$symbol" -hkl "$limit" "$limit" "$limit" -e failed.txt || true
        if [[ -e failed.txt ]]; then
            echo "lomar6 $symbol failed" >&2
            exit 1
        fi
        rows=$(($(wc -l <"$stem.hkl") - 2))
        tool_run=("$tool" "$symbol" -hkl "$limit" "$limit" "$limit")
        floor_run=("$floor" "$limit" "$limit" "$limit" "$rows" floor.out)
        if ((limit == 10)); then
            read -r -a times < <(time_by_turns 100 "${tool_run[*]@Q}" "${floor@Q}" \
                "${floor@Q}_static")
            report "$symbol" "$limit" "$rows" "${times[0]}" "${times[1]}" 2 \
                "$(peak "${tool_run[@]}")" "$(peak "$floor")" "$no_limit"
            notes+=("$symbol at 10: an empty process linked as the tool is takes ${times[2]} ms")
            continue
        fi
        most_peak=$no_limit
        if ((limit == 100)); then most_peak=$peak_100; fi
        if ((limit == 200)); then most_peak=$peak_200; fi
        read -r -a times < <(time_by_turns "$((limit == 200 ? 3 : 10))" \
            "${tool_run[*]@Q}" "${floor_run[*]@Q}")
        report "$symbol" "$limit" "$rows" "${times[@]}" "$most_ratio" \
            "$(peak "${tool_run[@]}")" "$(peak "${floor_run[@]}")" "$most_peak"
        if ((limit == 50)); then
            notes+=("$symbol at 50: $(count "${tool_run[@]}") instructions, the floor $(
                count "${floor_run[@]}")")
        fi
        rm -f "$stem.hkl" floor.out
    done
done <<END
P_1 p1 1.6 204800 $no_limit
P_21/c p21oc 2.5 $no_limit $no_limit
F_d_d_d fddd 3.5 $no_limit $no_limit
P_63/m_m_c p63ommc 5 $no_limit $no_limit
F_d_-3_m fd-3m 4.5 $no_limit 65536
END
echo "Times in ms. At limits 10 the floor is an empty process."
printf '%s\n' "${notes[@]}"
if ((status == 0)); then echo "within the limits"; else echo "NOT within the limits"; fi
exit "$status"
