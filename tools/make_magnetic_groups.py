#!/usr/bin/env python3
"""Makes data/shubnikovgroups.txt and data/magnetic_names.txt, and checks them.

Recipe:
    make_magnetic_groups.py            writes both files
    make_magnetic_groups.py --check    checks both files, ends with status 1 on any fault
    make_magnetic_groups.py --import GROUPS OPERATORS
                                       makes tests/data/magnetic_groups.tsv

The files are made from tests/data/magnetic_groups.tsv, one row for each of the 1651 groups, and
from tests/data/settings.tsv, which has the operators without time reversal: of the family group for
types 1 to 3, of the group of the unprimed operators for type 4. The first table adds what is
magnetic: for type 3 the sign of each operator, for type 4 one primed translation.

--import makes that table from two others: one row per group with the columns bns_number, og_number,
bns_symbol, og_symbol, type, parent_number, family_number, lattice and anti_translation, and one row
per operator with the columns bns_number, centring and operator (x,y,z,1 or x,y,z,-1), all operators
of a cell. It stops at the first group whose operators the new table wouldn't give back.

The check reads the two files as the library does, completes each group by its centring, and asks
for what a group must be. It knows nothing of the tables that the files are made from.
"""

import argparse
import csv
import re
import sys
from collections import Counter
from fractions import Fraction
from itertools import product
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
OPERATORS = ROOT / "data" / "shubnikovgroups.txt"
NAMES = ROOT / "data" / "magnetic_names.txt"
SETTINGS = ROOT / "tests" / "data" / "settings.tsv"
GROUPS = ROOT / "tests" / "data" / "magnetic_groups.tsv"

COLUMNS = ["bns_number", "og_number", "bns_symbol", "og_symbol", "type", "family", "parent",
           "lattice", "row", "time_reversal"]

CENTRING = {"P": [], "A": ["0,1/2,1/2"], "B": ["1/2,0,1/2"], "C": ["1/2,1/2,0"],
            "I": ["1/2,1/2,1/2"], "F": ["1/2,1/2,0", "1/2,0,1/2", "0,1/2,1/2"],
            "R": ["2/3,1/3,1/3", "1/3,2/3,2/3"]}

OPERATORS_HEAD = """\
' The 1651 magnetic space groups, in the order of their BNS numbers, with their operators.
'
' A record is
'     BNS number   BNS symbol        ^ is the prime, as ' would start a comment
'     n                              the number of operators that follow
'     x,y,z,1                        n lines, each with 1 or -1 for time reversal at its end
'
' Left out are the copies that the lattice of unprimed translations makes of each operator: adding
' the vectors of the lattice letter (magnetic_names.txt) to the operators completes the group. The
' primed translations of type 4 are among the operators. A grey group has each operator twice, with
' 1 and with -1.
'
' Setting: that of the BNS symbol; unique axis b and cell choice 1, hexagonal axes (obverse) for the
' rhombohedral lattices, origin choice 2 (the inversion at the origin) where there are two.
'
' Made by tools/make_magnetic_groups.py; docs/magnetic_groups.md has more. The facts are those of
' the magnetic space-group tables of H. T. Stokes and B. J. Campbell (ISO-MAG, ISOTROPY Software
' Suite), which rest on D. B. Litvin, Magnetic Group Tables (IUCr, 2013).
"""

NAMES_HEAD = """\
' The names of the 1651 magnetic space groups of shubnikovgroups.txt, one line each:
'
'     BNS number, OG number, BNS symbol, OG symbol, type, family, parent, lattice
'
' ^        the prime, as ' would start a comment
' type     1 colourless, 2 grey, 3 with primed operators but no primed translation, 4 with
'          primed translations
' family   number of the space group without regard to time reversal
' parent   for type 4 the number of the space group of the unprimed operators, else the family
' lattice  the letter of the unprimed translations
'
' Made by tools/make_magnetic_groups.py; sources as told in shubnikovgroups.txt.
"""


def read_table(path):
    with open(path, encoding="ascii", newline="") as file:
        return list(csv.DictReader(file, delimiter="\t", quoting=csv.QUOTE_NONE))


# ---- texts of operators ----

def parse_row(text):
    """The coefficients and the translation of a row such as -x+y+1/2."""
    coefficients, translation = [0, 0, 0], Fraction(0)
    for sign, letter, fraction in re.findall(r"([+-]?)(?:([xyz])|(\d+/\d+))", text):
        value = -1 if sign == "-" else 1
        if letter:
            coefficients["xyz".index(letter)] += value
        else:
            translation += value * Fraction(fraction)
    return (*coefficients, translation % 1)


def parse_operator(text):
    return tuple(parse_row(row) for row in text.split(","))


def parse_vector(text):
    return [Fraction(part) for part in text.split(",")]


def moved(op, vector):
    return tuple((*row[:3], (row[3] + shift) % 1) for row, shift in zip(op, vector))


def operator_text(op):
    rows = []
    for *coefficients, translation in op:
        terms = "".join(("-" if c < 0 else "+") + letter
                        for c, letter in zip(coefficients, "xyz") if c)
        rows.append(terms.removeprefix("+") + (f"+{translation}" if translation else ""))
    return ",".join(rows)


# ---- the making ----

def unprimed_operators(row, settings):
    """The operators of a row of the settings without their centring copies."""
    setting = settings[row - 1]
    texts = setting["operators"].split(";")
    return [parse_operator(t) for t in texts[:len(texts) // int(setting["centring_vectors"])]]


def signed_operators(group, settings):
    """The operators of a group with their signs, without centring copies."""
    ops = unprimed_operators(int(group["row"]), settings)
    extra = group["time_reversal"]
    if group["type"] == "3":
        return [(op, 1 if sign == "+" else -1) for op, sign in zip(ops, extra, strict=True)]
    signed = [(op, 1) for op in ops]
    if group["type"] == "2":
        signed += [(op, -1) for op in ops]
    elif group["type"] == "4":
        signed += [(moved(op, parse_vector(extra)), -1) for op in ops]
    return signed


def completed(signed, lattice):
    vectors = [[0, 0, 0]] + [parse_vector(text) for text in CENTRING[lattice]]
    return {(moved(op, vector), sign) for vector in vectors for op, sign in signed}


def caret(symbol):
    return symbol.replace("'", "^")


def make_files():
    settings = read_table(SETTINGS)
    records, names = [OPERATORS_HEAD], [NAMES_HEAD, "\n"]
    for group in read_table(GROUPS):
        signed = signed_operators(group, settings)
        lines = [f"\n{group['bns_number']} {caret(group['bns_symbol'])}", str(len(signed))]
        lines += [f"{operator_text(op)},{sign}" for op, sign in signed]
        records.append("\n".join(lines) + "\n")
        names.append(" ".join([group["bns_number"], group["og_number"], caret(group["bns_symbol"]),
                               caret(group["og_symbol"]), group["type"], group["family"],
                               group["parent"], group["lattice"]]) + "\n")
    OPERATORS.write_text("".join(records), encoding="ascii", newline="\n")
    NAMES.write_text("".join(names), encoding="ascii", newline="\n")


# ---- the import ----

def setting_row(number, operators, settings):
    """The number of the row that has these operators without time reversal."""
    for row, setting in enumerate(settings, start=1):
        if int(setting["number"]) == number:
            if {parse_operator(t) for t in setting["operators"].split(";")} == operators:
                return row
    raise SystemExit(f"no setting of {number} has these operators")


def import_tables(groups_path, operators_path):
    settings = read_table(SETTINGS)
    reference = {}
    for row in read_table(operators_path):
        text, sign = row["operator"].rsplit(",", 1)
        reference.setdefault(row["bns_number"], {})[parse_operator(text), int(sign)] = None
    lines = ["\t".join(COLUMNS)]
    for group in read_table(groups_path):
        ops = reference[group["bns_number"]]
        is_type_4 = group["type"] == "4"
        number = int(group["parent_number" if is_type_4 else "family_number"])
        plain = {op for op, sign in ops if sign == 1 or not is_type_4}
        row = setting_row(number, plain, settings)
        extra = group["anti_translation"]
        if group["type"] == "3":
            extra = "".join("+" if (op, 1) in ops else "-"
                            for op in unprimed_operators(row, settings))
        fields = [group["bns_number"], group["og_number"], group["bns_symbol"],
                  group["og_symbol"], group["type"], group["family_number"],
                  group["parent_number"], group["lattice"], str(row), extra]
        entry = dict(zip(COLUMNS, fields))
        if completed(signed_operators(entry, settings), group["lattice"]) != set(ops):
            raise SystemExit(f"{group['bns_number']}: other operators than in {operators_path}")
        lines.append("\t".join(fields))
    GROUPS.write_text("\n".join(lines) + "\n", encoding="ascii", newline="\n")


# ---- the check ----

def read_data_lines(path):
    """The lines of a data file without comments; empty ones are passed over."""
    lines = (line.split("'")[0].split() for line in path.read_text(encoding="ascii").splitlines())
    return [words for words in lines if words]


def read_records():
    """Yields number, symbol and the operators as integers: nine coefficients, translations in
    twelfths, sign."""
    lines = iter(read_data_lines(OPERATORS))
    for number, symbol in lines:
        operators = []
        for _ in range(int(next(lines)[0])):
            *rows, sign = next(lines)[0].split(",")
            parsed = [parse_row(row) for row in rows]
            operators.append((tuple(c for row in parsed for c in row[:3]),
                              tuple(int(row[3] * 12) for row in parsed), int(sign)))
        yield number, symbol, operators


def times(a, b):
    (r, t, sign), (r2, t2, sign2) = a, b
    rotation = tuple(sum(r[3 * i + k] * r2[3 * k + j] for k in range(3))
                     for i in range(3) for j in range(3))
    translation = tuple((sum(r[3 * i + k] * t2[k] for k in range(3)) + t[i]) % 12
                        for i in range(3))
    return rotation, translation, sign * sign2


def with_centring(operators, lattice):
    vectors = [(0, 0, 0)] + [tuple(int(Fraction(part) * 12) for part in text.split(","))
                             for text in CENTRING[lattice]]
    return {(r, tuple((x + v) % 12 for x, v in zip(t, vector)), sign)
            for vector in vectors for r, t, sign in operators}


def type_of(group):
    identity = (1, 0, 0, 0, 1, 0, 0, 0, 1)
    primed = {t for r, t, sign in group if r == identity and sign == -1}
    if (0, 0, 0) in primed:
        return 2
    if primed:
        return 4
    return 3 if any(sign == -1 for _, _, sign in group) else 1


def faults_of_group(number, symbol, operators, name):
    if name is None or name[0] != number or name[2] != symbol:
        return ["has another line in magnetic_names.txt"]
    kind, family, parent = (int(field) for field in name[4:7])
    faults = []
    group = with_centring(operators, name[7])
    if symbol[0] != name[7]:
        faults.append("the letter of the symbol isn't the lattice")
    if len(group) != len(operators) * (1 + len(CENTRING[name[7]])):
        faults.append("an operator stands there twice, or a centring copy")
    # The product with a centring copy is the copy of a product.
    if any(times(a, b) not in group for a, b in product(operators, group)):
        faults.append("not closed")
    if type_of(group) != kind:
        faults.append("of another type")
    if int(number.split(".")[0]) != parent or int(name[1].split(".")[0]) != family:
        faults.append("the numbers don't fit")
    if kind != 4 and family != parent:
        faults.append("the family isn't the parent")
    return faults


def check():
    names = read_data_lines(NAMES)
    records = list(read_records())
    faults = []
    if not len(names) == len(records) == 1651:
        faults.append(f"{len(records)} records, {len(names)} lines of names")
    for (number, symbol, operators), name in zip(records, names):
        faults += [f"{number}: {fault}" for fault in
                   faults_of_group(number, symbol, operators, name)]
    for column, what in enumerate(["BNS number", "OG number", "BNS symbol", "OG symbol"]):
        texts = Counter(name[column] for name in names)
        faults += [f"{what} {text} stands there {n} times" for text, n in texts.items() if n > 1]
    types = Counter(int(name[4]) for name in names)
    if types != {1: 230, 2: 230, 3: 674, 4: 517}:
        faults.append(f"groups by type: {types}")
    if len({frozenset(with_centring(ops, name[7]))
            for (_, _, ops), name in zip(records, names)}) != len(records):
        faults.append("two groups have the same operators")
    print("\n".join(faults) or f"make_magnetic_groups: {len(records)} groups are in order")
    return 1 if faults else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--import", dest="tables", nargs=2, metavar=("GROUPS", "OPERATORS"))
    arguments = parser.parse_args()
    if arguments.tables:
        import_tables(*arguments.tables)
    elif arguments.check:
        return check()
    else:
        make_files()
    return 0


if __name__ == "__main__":
    sys.exit(main())
