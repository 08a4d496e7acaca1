#!/usr/bin/env bash
# The atlas as files: atlas_test.sh PROGRAM
source "$(dirname "${BASH_SOURCE[0]}")/delivery_lib.sh"

# Every page that is there is whole, and nothing else is there but what was before.
check_files() {
    local page
    while IFS= read -r page; do
        [[ $(tail -n 1 "$page") == "</html>" ]] || fault "$1: $page is half a page"
    done < <(find atlas -name '*.html')
    [[ $(<atlas/settings/notes.txt) == mine ]] || fault "$1: another file was touched"
    [[ -z $(find atlas -type f ! -name '*.html' ! -name notes.txt) ]] || fault "$1: a file is left"
}

mkdir -p atlas/settings
echo mine >atlas/settings/notes.txt
"$lomar" atlas atlas >out 2>errors &
sleep 0.3
kill -TERM $!
wait $!
check_files "interrupted"
[[ ! -e atlas/index.html ]] || fault "interrupted: the list is there too early"

"$lomar" atlas atlas >out 2>errors || fault "status $?: $(head -c 300 errors)"
[[ ! -s errors && $(<out) == "2210 pages, listed in atlas/index.html" ]] || fault "$(<out)"
check_files "complete"
(($(find atlas -name '*.html' | wc -l) == 2210)) || fault "not all pages are there"
(($(du -sm atlas | cut -f1) <= 200)) || fault "the atlas is too large: $(du -sh atlas)"

"$lomar" atlas out 2>errors
(($? == 1 && $(wc -l <errors) == 1)) || fault "a file in the place of the directory: $(<errors)"
"$lomar" atlas '' 2>errors
(($? == 2 && $(wc -l <errors) == 1)) || fault "no name: $(<errors)"
exit "$failed"
