#!/usr/bin/env bash
# Measures whole runs of lomar, by turns with its peers: process time and peak memory.
#
#     bench/explorer.sh [RUNS]
#
# Ends with status 1 when a limit is broken: `show P21/c` at most twice `gemmi sg`, `show Fm-3m` as
# JSON at most 20 ms, each in less than 16 MiB.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source bench/bench_lib.sh

runs=${1:-300}
need_explorer_libraries
need gemmi:gemmi
configure bench -DLOMAR_EXPLORER=ON
lomar=$PWD/build/bench/explorer/lomar
enter_bench lomar

show=("$lomar" show P21/c)
peer=(gemmi sg P21/c)
json=("$lomar" show Fm-3m --format json)

# One command after the other, then in the other order; the smaller median of each counts.
time_all() {
    quietly hyperfine -N --warmup 20 --runs "$runs" --export-json "$1" "${@:2}"
}
time_all first.json "${show[*]@Q}" "${peer[*]@Q}" "${json[*]@Q}"
time_all second.json "${json[*]@Q}" "${peer[*]@Q}" "${show[*]@Q}"

# peak COMMAND ... - the greatest resident size in KiB.
peak() {
    /usr/bin/time -q -o peak.txt -f %M "$@" >/dev/null
    cat peak.txt
}

python3 - "$(peak "${show[@]}")" "$(peak "${peer[@]}")" "$(peak "${json[@]}")" <<'END'
import json
import sys

peaks = [int(text) for text in sys.argv[1:]]
first, second = ([1e3 * run["median"] for run in json.load(open(name))["results"]]
                 for name in ("first.json", "second.json"))
times = [min(pair) for pair in zip(first, reversed(second))]
names = ("lomar show P21/c", "gemmi sg P21/c", "lomar show Fm-3m --format json")
print(f"{'':32}{'median, ms':>12}{'peak, KiB':>12}")
for name, milliseconds, peak in zip(names, times, peaks):
    print(f"{name:32}{milliseconds:>12.3f}{peak:>12,}")

within = times[0] <= 2 * times[1] and times[2] <= 20 and max(peaks[0], peaks[2]) < 16384
print("within the limits" if within else "NOT within the limits")
sys.exit(0 if within else 1)
END
