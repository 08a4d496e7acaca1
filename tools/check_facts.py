#!/usr/bin/env python3
"""Checks data/group_facts.tsv and data/wyckoff.tsv against the operators of tests/data/settings.tsv,
with exact fractions. Ends with status 1 on any fault.

Of each setting: the class, the flags and the polar directions follow from its operators; the
transformation takes all of them onto those of the standard setting, none left out; the Hall symbol
and the other columns that both tables have are the same. Of each Wyckoff position: the orbit of a
point of it has the multiplicity, and the operators that fix the point make the point group; the
letters of a group run from a to the general position.
"""

import csv
import re
import sys
from collections import Counter, defaultdict
from fractions import Fraction
from itertools import product
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
FACTS = ROOT / "data" / "group_facts.tsv"
WYCKOFF = ROOT / "data" / "wyckoff.tsv"
SETTINGS = ROOT / "tests" / "data" / "settings.tsv"

KEY = ["number", "symbol", "choice", "qualifier", "hall"]

# Point groups by the numbers of their operators of each kind (determinant, trace).
KINDS = {(1, 3): "1", (1, -1): "2", (1, 0): "3", (1, 1): "4", (1, 2): "6",
         (-1, -3): "-1", (-1, 1): "m", (-1, 0): "-3", (-1, -1): "-4", (-1, -2): "-6"}
POINT_GROUPS = {
    "1": "1", "-1": "1 -1", "2": "1 2", "m": "1 m", "2/m": "1 -1 2 m",
    "222": "1 2*3", "mm2": "1 2 m*2", "mmm": "1 -1 2*3 m*3",
    "4": "1 2 4*2", "-4": "1 2 -4*2", "4/m": "1 -1 2 m 4*2 -4*2", "422": "1 2*5 4*2",
    "4mm": "1 2 m*4 4*2", "-42m": "1 2*3 m*2 -4*2", "4/mmm": "1 -1 2*5 m*5 4*2 -4*2",
    "3": "1 3*2", "-3": "1 -1 3*2 -3*2", "32": "1 3*2 2*3", "3m": "1 3*2 m*3",
    "-3m": "1 -1 3*2 -3*2 2*3 m*3",
    "6": "1 2 3*2 6*2", "-6": "1 m 3*2 -6*2", "6/m": "1 -1 2 m 3*2 -3*2 6*2 -6*2",
    "622": "1 2*7 3*2 6*2", "6mm": "1 2 m*6 3*2 6*2", "-62m": "1 2*3 m*4 3*2 -6*2",
    "6/mmm": "1 -1 2*7 m*7 3*2 -3*2 6*2 -6*2",
    "23": "1 2*3 3*8", "m-3": "1 -1 2*3 m*3 3*8 -3*8", "432": "1 2*9 3*8 4*6",
    "-43m": "1 2*3 m*6 3*8 -4*6", "m-3m": "1 -1 2*9 m*9 3*8 -3*8 4*6 -4*6"}
SYSTEMS = [("triclinic", "1 -1"), ("monoclinic", "2 m 2/m"), ("orthorhombic", "222 mm2 mmm"),
           ("tetragonal", "4 -4 4/m 422 4mm -42m 4/mmm"), ("trigonal", "3 -3 32 3m -3m"),
           ("hexagonal", "6 -6 6/m 622 6mm -62m 6/mmm"), ("cubic", "23 m-3 432 -43m m-3m")]
SYSTEM_OF = {group: system for system, groups in SYSTEMS for group in groups.split()}
SCHOENFLIES = {
    "1": "C1", "-1": "Ci", "2": "C2", "m": "Cs", "2/m": "C2h", "222": "D2", "mm2": "C2v",
    "mmm": "D2h", "4": "C4", "-4": "S4", "4/m": "C4h", "422": "D4", "4mm": "C4v", "-42m": "D2d",
    "4/mmm": "D4h", "3": "C3", "-3": "C3i", "32": "D3", "3m": "C3v", "-3m": "D3d", "6": "C6",
    "-6": "C3h", "6/m": "C6h", "622": "D6", "6mm": "C6v", "-62m": "D3h", "6/mmm": "D6h",
    "23": "T", "m-3": "Th", "432": "O", "-43m": "Td", "m-3m": "Oh"}

N_FAULTS = 0


def fault(*words):
    global N_FAULTS
    N_FAULTS += 1
    print(*words)


def read_table(path):
    with open(path, encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file, delimiter="\t", quoting=csv.QUOTE_NONE))


def linear(text, letters):
    """An expression such as 1/2x-2*y+1/4 as its coefficients and its constant."""
    row, constant = [Fraction(0)] * 3, Fraction(0)
    for term in re.findall(r"[+-]?[^+-]+", text.replace(" ", "").replace("*", "")):
        letter = re.search(f"[{letters}]", term)
        if letter:
            factor = term.replace(letter.group(), "")
            row[letters.index(letter.group())] += Fraction(
                factor + "1" if factor in ("", "+", "-") else factor)
        else:
            constant += Fraction(term)
    return row, constant


def operator(text):
    rows = [linear(part, "xyz") for part in text.split(",")]
    return tuple(tuple(int(c) for c in row) for row, _ in rows), tuple(t for _, t in rows)


def multiply(a, b):
    return tuple(tuple(sum(a[i][k] * b[k][j] for k in range(3)) for j in range(3))
                 for i in range(3))


def apply(m, v):
    return tuple(sum(m[i][j] * v[j] for j in range(3)) for i in range(3))


def determinant(m):
    return sum(m[0][i] * (m[1][(i + 1) % 3] * m[2][(i + 2) % 3]
                          - m[1][(i + 2) % 3] * m[2][(i + 1) % 3]) for i in range(3))


def inverse(m):
    det = determinant(m)
    return tuple(tuple(Fraction(m[(j + 1) % 3][(i + 1) % 3] * m[(j + 2) % 3][(i + 2) % 3]
                                - m[(j + 1) % 3][(i + 2) % 3] * m[(j + 2) % 3][(i + 1) % 3]) / det
                       for j in range(3)) for i in range(3))


def wrapped(v):
    return tuple(x % 1 for x in v)


def point_group(rotations):
    kinds = Counter(KINDS[determinant(r), r[0][0] + r[1][1] + r[2][2]] for r in rotations)
    for name, text in POINT_GROUPS.items():
        wanted = Counter()
        for part in text.split():
            kind, _, count = part.partition("*")
            wanted[kind] += int(count or 1)
        if wanted == kinds:
            return name
    return None


def rank(rows):
    rows, result = [list(row) for row in rows], 0
    for column in range(3):
        pivot = next((row for row in rows if row[column]), None)
        if pivot is None:
            continue
        rows.remove(pivot)
        rows = [[x - Fraction(row[column]) / pivot[column] * p for x, p in zip(row, pivot)]
                for row in rows]
        result += 1
    return result


def is_symmorphic(ops):
    """Whether some point is fixed by an operator of every rotation part: its site symmetry is the
    whole point group. Tried are the points of a grid that holds all such, in parts of 1/24."""
    parts = defaultdict(list)
    for rotation, translation in ops:
        parts[rotation].append([int(24 * t) for t in translation])
    return any(all(any(all((a - b + t) % 24 == 0 for a, b, t in zip(apply(r, point), point, shift))
                       for shift in shifts) for r, shifts in parts.items())
               for point in product(range(0, 24, 3), repeat=3))


class Setting:
    def __init__(self, row):
        self.row = row
        self.ops = [operator(text) for text in row["operators"].split(";")]
        self.rotations = {rotation for rotation, _ in self.ops}


def check_class(name, facts, setting):
    group = point_group(setting.rotations)
    negative = tuple(tuple(-x for x in row) for row in ((1, 0, 0), (0, 1, 0), (0, 0, 1)))
    laue = point_group(setting.rotations | {multiply(negative, r) for r in setting.rotations})
    wanted = {"point_group": group, "laue_class": laue, "crystal_system": SYSTEM_OF.get(group),
              "centrosymmetric": "yes" if negative in setting.rotations else "no",
              "sohncke": "yes" if all(determinant(r) == 1 for r in setting.rotations) else "no",
              "symmorphic": "yes" if is_symmorphic(setting.ops) else "no"}
    for column, value in wanted.items():
        if facts[column] != value:
            fault(name, column, facts[column], "is", value)
    if facts["schoenflies"].split("^")[0] != SCHOENFLIES.get(group):
        fault(name, "schoenflies", facts["schoenflies"])


def check_polar_directions(name, facts, setting):
    vectors = [tuple(map(int, text.split())) for text in facts["polar_directions"].split(";")
               if text]
    for rotation in setting.rotations:
        if any(apply(rotation, vector) != vector for vector in vectors):
            fault(name, "polar direction", facts["polar_directions"])
    equations = [[r[i][j] - (i == j) for j in range(3)] for r in setting.rotations
                 for i in range(3)]
    if rank(vectors) != len(vectors) or len(vectors) != 3 - rank(equations):
        fault(name, "number of polar directions", facts["polar_directions"])


def check_transformation(name, facts, setting, standard):
    """Each operator of the standard setting comes from one of the row, and the other way round."""
    columns = [linear(text, "abc")[0] for text in facts["standard_basis"].split(",")]
    basis = tuple(tuple(columns[j][i] for j in range(3)) for i in range(3))
    origin = tuple(Fraction(text) for text in facts["standard_origin"].split(","))
    back = inverse(basis)
    known = {(rotation, wrapped(shift)) for rotation, shift in standard.ops}
    for rotation, shift in setting.ops:
        changed = multiply(multiply(back, rotation), basis)
        moved = tuple(a + b - c for a, b, c in zip(apply(rotation, origin), shift, origin))
        if (changed, wrapped(apply(back, moved))) not in known:
            fault(name, "not in the standard setting:", rotation, shift)
    if len(setting.ops) * determinant(basis) != len(standard.ops):
        fault(name, "operators for the volume of the cell")


def check_enantiomorph(facts_of):
    pairs = {}
    for facts in facts_of.values():
        pairs.setdefault(facts["number"], set()).add(facts["enantiomorph"])
    named = {number: other.copy().pop() for number, other in pairs.items() if other != {""}}
    for number, other in named.items():
        if len(pairs[number]) != 1 or named.get(other) != number:
            fault(number, "enantiomorph", other)
    if len(named) != 22:
        fault("groups with an enantiomorph:", len(named))


def check_schoenflies(facts_of):
    serials = defaultdict(dict)
    for facts in facts_of.values():
        group, _, serial = facts["schoenflies"].partition("^")
        serials[group].setdefault(int(facts["number"]), set()).add(int(serial))
    for group, numbers in serials.items():
        wanted = [{serial} for serial in range(1, len(numbers) + 1)]
        if [numbers[number] for number in sorted(numbers)] != wanted:
            fault("Schoenflies symbols", group)


def coordinates_at(text, values):
    result = []
    for part in text.split(","):
        row, constant = linear(part, "xyz")
        result.append(sum(c * v for c, v in zip(row, values)) + constant)
    return tuple(result)


def check_position(number, row, ops):
    """A point in general position on it: the values are no sums of each other."""
    values = (Fraction(17, 997), Fraction(101, 991), Fraction(307, 983))
    point = coordinates_at(row["coordinates"], values)
    images, fixing = set(), set()
    for rotation, shift in ops:
        image = tuple(a + b for a, b in zip(apply(rotation, point), shift))
        images.add(wrapped(image))
        if wrapped(image) == wrapped(point):
            fixing.add(rotation)
    name = f"{number} {row['letter']}"
    if len(images) != int(row["multiplicity"]):
        fault(name, "multiplicity", row["multiplicity"], "is", len(images))
    if len(images) * len(fixing) != len(ops) or point_group(fixing) != row["point_group"]:
        fault(name, "point group", row["point_group"], "is", point_group(fixing))
    if not row["site_symmetry"]:
        fault(name, "has no oriented symbol")


def check_wyckoff(standards):
    rows = defaultdict(list)
    for row in read_table(WYCKOFF):
        rows[int(row["number"])].append(row)
    if sorted(rows) != list(range(1, 231)):
        fault("wyckoff.tsv: not 1 to 230")
    letters = "abcdefghijklmnopqrstuvwxyzA"
    for number, positions in rows.items():
        found = "".join(row["letter"] for row in positions)
        if found != letters[:len(found)][::-1]:
            fault(number, "letters", found)
        if positions[0]["coordinates"] != "x,y,z":
            fault(number, "the general position is not the first")
        for row in positions if number in standards else []:
            check_position(number, row, standards[number].ops)
    return sum(map(len, rows.values()))


def main():
    settings = {tuple(row[column] for column in KEY): Setting(row) for row in read_table(SETTINGS)
                if (row["number"], row["symbol"]) != ("117", "C -4 2 b")}
    facts_of = {tuple(row[column] for column in KEY): row for row in read_table(FACTS)}
    if list(facts_of) != list(settings):
        fault("group_facts.tsv: other rows than settings.tsv")
    standards = {int(facts["number"]): settings[key] for key, facts in facts_of.items()
                 if (facts["standard_basis"], facts["standard_origin"]) == ("a,b,c", "0,0,0")
                 and int(facts["number"])}
    if sorted(standards) != list(range(1, 231)):
        fault("standard settings of", len(standards), "numbers")
    for key, facts in facts_of.items():
        name = " ".join(key[:4])
        check_class(name, facts, settings[key])
        check_polar_directions(name, facts, settings[key])
        if int(key[0]) in standards:
            check_transformation(name, facts, settings[key], standards[int(key[0])])
    check_enantiomorph(facts_of)
    check_schoenflies(facts_of)
    n_positions = check_wyckoff(standards)
    if N_FAULTS == 0:
        print(f"check_facts: {len(facts_of)} settings and {n_positions} positions are in order")
    return 1 if N_FAULTS else 0


if __name__ == "__main__":
    sys.exit(main())
