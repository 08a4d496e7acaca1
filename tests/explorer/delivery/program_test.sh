#!/usr/bin/env bash
# What a shell sees of the program: program_test.sh PROGRAM
source "$(dirname "${BASH_SOURCE[0]}")/delivery_lib.sh"

# expect STATUS LINES WHAT - of the last run, whose standard error is in the file errors.
expect() {
    local status=$? lines
    lines=$(wc -l <errors)
    ((status == $1 && lines == $2)) || fault "$3: status $status, $lines lines: $(head -c 300 errors)"
    rm -f errors
}

# Whoever reads standard output goes away, or it can't be written.
{ sleep 0.2; "$lomar" show Fm-3m 2>errors; expect 0 0 "closed pipe"; [[ $failed == 0 ]] || touch bad; } | true
[[ ! -e bad ]] || failed=1
"$lomar" show P1 >&- 2>errors
expect 1 1 "closed standard output"
"$lomar" show P1 <&- >out 2>errors
expect 0 0 "closed standard input"
if [[ -e /dev/full ]]; then
    "$lomar" show P1 >/dev/full 2>errors
    expect 1 1 "full standard output"
    "$lomar" show P1 -o /dev/full 2>errors
    expect 1 1 "full device"
fi
"$lomar" show P1 >out
"$lomar" show P1 -o file >&- 2>&-
cmp -s out file || fault "a file in the place of closed streams"
"$lomar" show nothing -o file 2>&-
cmp -s out file || fault "a message in the file"
"$lomar" show P1 -o /dev/stdout >device 2>errors
expect 0 0 "a link to standard output"
cmp -s out device || fault "a link to standard output: other bytes"
rm -f out device

# A file that grows too large leaves what was there.
echo before >file
(ulimit -f 1; "$lomar" show Fm-3m --format json -o file 2>errors)
expect 1 1 "full disk"
[[ $(<file) == before ]] || fault "full disk: the file is lost"
(ulimit -f 1; "$lomar" show Fm-3m --format json -o new 2>errors)
expect 1 1 "full disk"

# A link stays one, and the file behind it keeps its rights.
mkdir below
echo before >below/target
chmod 640 below/target
ln -s below/target link
"$lomar" show P1 -o link
[[ -L link && $(head -c 3 below/target) == "P 1" ]] || fault "a link was replaced"
[[ $(stat -c %a below/target) == 640 ]] || fault "the rights of a file were changed"
(umask 027; "$lomar" show P1 -o new)
[[ $(stat -c %a new) == 640 ]] || fault "a new file doesn't have the rights of the umask"
rm -rf link below new file
if ((EUID != 0)); then
    mkdir locked
    chmod 555 locked
    (cd locked && "$lomar" show P1 >/dev/null 2>../errors)
    expect 0 0 "a folder that can't be written"
    "$lomar" show P1 -o locked/file 2>errors
    expect 1 1 "a file in a folder that can't be written"
    rmdir locked
fi

# Colours are for terminals.
if command -v script >/dev/null; then
    shown() { env "$@" TERM=xterm script -qec "$lomar show P1" /dev/null </dev/null; }
    [[ $(shown A=1) == *$'\x1b['* ]] || fault "no colours on a terminal"
    [[ $(shown NO_COLOR=1) != *$'\x1b['* ]] || fault "colours in spite of NO_COLOR"
    [[ $(shown NO_COLOR=) == *$'\x1b['* ]] || fault "an empty NO_COLOR counts"
fi

# Each byte as a symbol, and as part of one.
for ((byte = 1; byte < 256; ++byte)); do
    printf -v symbol '%b' "$(printf '\\x%02x' "$byte")"
    for text in "$symbol" "P${symbol}q"; do
        "$lomar" show -- "$text" >out 2>errors
        status=$?
        if ((status == 0)); then
            [[ -s out && ! -s errors ]] || fault "byte $byte: status 0"
        elif ((status != 1 || $(wc -l <errors) != 1)) || [[ -s out ]]; then
            fault "byte $byte: status $status"
        fi
    done
done
"$lomar" show "$(head -c 100000 /dev/zero | tr '\0' P)" >out 2>errors
expect 1 1 "a long symbol"
if [[ -e /dev/zero ]]; then
    "$lomar" identify /dev/zero >out 2>errors
    expect 1 1 "input without an end"
fi
rm -f out

[[ -z $(ls -A) ]] || fault "files that nobody asked for: $(ls -A)"
exit "$failed"
