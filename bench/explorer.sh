#!/usr/bin/env bash
# Measures whole runs of lomar, by turns with its peers: process time and peak memory.
#
#     bench/explorer.sh [RUNS]
#
# Ends with status 1 when a limit is broken: `show P21/c` at most twice `gemmi sg`, `show Fm-3m` as
# JSON at most 20 ms, a list of reflections no slower than a program that only computes it with
# gemmi's library, each in less than 16 MiB; or one of identify.py.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source bench/bench_lib.sh

runs=${1:-300}
need_explorer_libraries
need gemmi:gemmi
configure bench -DLOMAR_EXPLORER=ON
lomar=$PWD/build/bench/explorer/lomar
identify=$PWD/bench/identify.py
enter_bench lomar reflections_peer

commands=(
    "$lomar show P21/c"
    "gemmi sg P21/c"
    "$lomar show Fm-3m --format json"
    "$lomar reflections Fm-3m --cell 10 10 10 90 90 90 --d-min 0.3"
    "$(dirname "$lomar")/../bench/reflections_peer"
)
# One command after the other, then in the other order; the smaller median of each counts.
reversed=()
for each in "${commands[@]}"; do reversed=("$each" "${reversed[@]}"); done
time_all() {
    quietly hyperfine -N --warmup 20 --runs "$runs" --export-json "$1" "${@:2}"
}
time_all first.json "${commands[@]}"
time_all second.json "${reversed[@]}"

# The greatest resident size of each in KiB.
peaks=()
for each in "${commands[@]}"; do
    # No argument has a blank in it.
    # shellcheck disable=SC2086
    /usr/bin/time -q -o peak.txt -f %M $each >/dev/null
    peaks+=("$(cat peak.txt)")
done

status=0
python3 - "${peaks[@]}" <<'END' || status=1
import json
import sys

peaks = [int(text) for text in sys.argv[1:]]
first, second = ([1e3 * run["median"] for run in json.load(open(name))["results"]]
                 for name in ("first.json", "second.json"))
times = [min(pair) for pair in zip(first, reversed(second))]
names = ("lomar show P21/c", "gemmi sg P21/c", "lomar show Fm-3m --format json",
         "lomar reflections Fm-3m", "the same by gemmi's library")
print(f"{'':32}{'median, ms':>12}{'peak, KiB':>12}")
for name, milliseconds, peak in zip(names, times, peaks):
    print(f"{name:32}{milliseconds:>12.3f}{peak:>12,}")

within = (times[0] <= 2 * times[1] and times[2] <= 20 and times[3] <= times[4] and
          max(peaks[0], peaks[2], peaks[3]) < 16384)
print("within the limits" if within else "NOT within the limits")
sys.exit(0 if within else 1)
END

# Debian's own Python has the peers' modules.
/usr/bin/python3 "$identify" "$lomar" 1 || status=1
exit "$status"
