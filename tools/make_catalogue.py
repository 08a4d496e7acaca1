#!/usr/bin/env python3
"""Makes data/lomar5.txt, the catalogue of space groups, and checks it.

Recipe:
    python3 tools/make_catalogue.py            writes data/lomar5.txt and tests/data/names.tsv
    python3 tools/make_catalogue.py --check    checks both files, ends with status 1 on any fault

Both start from tests/data/settings.tsv, one row for each setting with all its operators, and from
the matrices of data/sgrots3.txt. The generators of each record are found by a search over all
products of one to three generators (catalogue/generators.py); the names come from the columns of
the row and its operators (catalogue/names.py). The output depends on nothing else, so a second run
writes the same bytes. The check shares none of this: it reads the files as the tool does
(catalogue/model.py) and types names of its own (catalogue/typed_names.py).
"""

import argparse
import sys
import textwrap
from pathlib import Path

from catalogue import check, generators, model, typed_names
from catalogue.names import names_by_row
from catalogue.settings import read_rows

ROOT = Path(__file__).resolve().parent.parent
CATALOGUE = ROOT / "data" / "lomar5.txt"
ROTATIONS = ROOT / "data" / "sgrots3.txt"
SETTINGS = ROOT / "tests" / "data" / "settings.tsv"
NAMES = ROOT / "tests" / "data" / "names.tsv"

LINE_WIDTH = 100
TAIL_WIDTH = 2 + 3 * 6
SLOT_INDENT = " " * 4

HEAD = """\
' The space groups: each setting with its names and its generators. A name is searched from the
' start of the file, and the first record that has it counts.
'
' A record is   number tail { body }   with blanks around each part.
' number   of the group; it chooses the axes of the slots
' tail     crystal system, a m o t r h or c; c or a for centric or acentric; then six characters
'          for each generator: p, or i for inverted, the key of its rotation in sgrots3.txt, and
'          three translations in twelfths, where the digit 5 means 10. Axes are those of slot 0. The
'          products of the powers are complete but for the centring, which the name gives.
' body     up to six slots: a main name with further names after =, or - for an empty one. They are
'            3 to 15    b, -b, c, -c, a, -a (unique axis), in a record for each cell choice
'            16 to 74   abc, ba-c, cab, -cba, bca, a-cb
'            others     the same axes each time: further lattices of the group
'
' Names are in lower case, without blanks, underscores and brackets. A colon is only in :2 at
' the end and in numeric names. Nothing is left from the first h on. The ending r means
' rhombohedral axes. Marks after a symbol: 1 or s origin choice 1, :2 or z origin choice 2 or a
' shifted origin. No name occurs twice.
'
' To add a group by hand: its setting, with all operators, is put into tests/data/settings.tsv, its
' record here, among those of its number and after the main setting. tools/make_catalogue.py makes
' this file from the settings; with --check it reads every name of the file as the tool does and
' compares operators, form and point group. docs/catalogue.md has more.
'
' Left out: C -4 2 b, the doubled cell of P -4 b 2 (117). The rule by which a free axis makes a
' general reflection present would list 1 1 1 for it, which is absent. Not found is better than
' wrong.
"""


def records_of(rows, rotations):
    """The records, as (number, tail, {slot: row}), main setting first."""
    records = {}
    for row in (row for row in rows if not row.twin):
        tail = generators.tail_of(row, rotations)
        if same_axes(row.number):
            slots = records.setdefault((row.number, tail), {})
            slots[len(slots)] = row
        else:
            own = row.index if row.further else 0
            slots = records.setdefault((row.number, tail, row.choice, row.cell_choice, own), {})
            slots[row.slot] = row
    return sorted(((key[0], key[1], slots) for key, slots in records.items()),
                  key=lambda record: record[0])


def same_axes(number):
    return not 3 <= number <= 74


def written(number, tail, slots, names):
    """A record on one line, or with a line for each slot that is filled."""
    texts = []
    empty = ""
    for slot in range(max(slots) + 1):
        if slot in slots:
            texts.append(empty + " =".join(names[slots[slot]]))
            empty = ""
        else:
            empty += "- "
    head = f"{number:<3} {tail:<{TAIL_WIDTH}} {{ "
    line = head + " ".join(texts) + " }\n"
    if len(line) <= LINE_WIDTH and (len(slots) == 1 or same_axes(number)):
        return line
    lines = [line for text in texts
             for line in textwrap.wrap(text, LINE_WIDTH - 2, initial_indent=SLOT_INDENT,
                                       subsequent_indent=2 * SLOT_INDENT,
                                       break_on_hyphens=False, break_long_words=False)]
    return head.rstrip() + "\n" + "\n".join(lines) + " }\n"


def make():
    rows = read_rows(SETTINGS)
    names = names_by_row(rows)
    records = records_of(rows, model.read_rotations(ROTATIONS))
    CATALOGUE.write_text(HEAD + "\n" + "".join(written(*r, names) for r in records), "ascii",
                         newline="\n")
    NAMES.write_text(typed_names.table(SETTINGS), "ascii", newline="\n")
    print(f"{len(records)} records, {sum(len(slots) for _, _, slots in records)} slots, "
          f"{sum(map(len, names.values()))} names, {CATALOGUE.stat().st_size} bytes")


def main():
    parser = argparse.ArgumentParser(description="Makes or checks data/lomar5.txt.")
    parser.add_argument("--check", action="store_true", help="check the files, write nothing")
    parser.add_argument("--catalogue", type=Path, default=CATALOGUE, help="the file to check")
    parser.add_argument("--rotations", type=Path, default=ROTATIONS, help="its matrices")
    arguments = parser.parse_args()
    if not arguments.check:
        make()
        return 0
    return check.run(arguments.catalogue, arguments.rotations, SETTINGS, NAMES)


if __name__ == "__main__":
    sys.exit(main())
