#!/bin/sh
# Lists reflections with 64 KiB for the stack and 8 MB for everything: the same bytes as without
# such limits, by the tool at $1 with the data files in $2.
set -eu
cp "$2/lomar5.txt" "$2/sgrots3.txt" .

# compare SYMBOL STEM LIMIT
compare() {
    "$1" "$2" -hkl "$4" "$4" "$4" || true
    mv "$3.hkl" "$3.expected"
    (
        ulimit -s 64
        ulimit -v 8000
        "$1" "$2" -hkl "$4" "$4" "$4" || true
    )
    cmp "$3.hkl" "$3.expected"
    tail -c 1 "$3.hkl" | grep -q '}'
    rm "$3".*
}

compare "$1" P_1 p1 60
compare "$1" F_d_-3_m fd-3m 150
# Repeated operators aren't a group: the list is made with a grid.
"$1" P_1 || true
sed 's/x, y, z/x, y, z\n x, y, z/' p1.sg >repeated.sg
mv repeated.sg p1.sg
compare "$1" P_1 p1 20
