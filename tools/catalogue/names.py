"""The names of each setting, made from its symbol, its qualifiers and its operators."""

import re
from itertools import product

from catalogue import model
from catalogue.settings import SLOTS_MONOCLINIC, SLOTS_ORTHORHOMBIC

# Groups with two glides in the plane across the axis that the lattice letter names. The newer
# symbol has e there, the older one either letter.
DOUBLE_GLIDE = (39, 41, 64, 67, 68)
GLIDES_ACROSS = {"a": "bc", "b": "ac", "c": "ab"}

# What follows the number of a choice. The key form of :h is its bare colon.
NUMBER_MARKS = {"": [], "1": ["s"], "2": [":2", "z"], "R": [":r", "r"], "H": [":"]}

# Ranks of claim, the best first.
MAIN, OWN, SHORT, E_GLIDE, OTHER_GLIDE, FULL, QUALIFIED = range(7)


def symbols_of(row):
    """Every symbol of a row without a mark of choice, in key form, with its rank."""
    parts = row.symbol.lower().split()
    short = "".join(part for part in parts if part != "1")
    monoclinic = 3 <= row.number <= 15
    if monoclinic and SLOTS_MONOCLINIC[row.slot] in ("b", "-b"):
        yield MAIN, short
    elif row.shifted:
        yield MAIN, re.sub("a$", "z", row.compact)
    else:
        yield MAIN, row.compact
    yield OWN, row.compact
    if monoclinic:
        yield SHORT, short
    if row.point_group in ("m-3", "m-3m"):
        yield SHORT, row.compact.replace("-3", "3")
    full = full_elements(row, parts)
    if full:
        yield FULL, parts[0] + "".join(full)
    if row.number in DOUBLE_GLIDE:
        place = "abc".index(parts[0])
        other = GLIDES_ACROSS[parts[0]].replace(parts[1 + place], "")
        for rank, letter in (E_GLIDE, "e"), (OTHER_GLIDE, other):
            yield rank, "".join(parts[:1 + place] + [letter] + parts[2 + place:])
        if full:
            full[place] = full[place][:-1] + "e"
            yield FULL, parts[0] + "".join(full)


def full_elements(row, parts):
    """The elements of the full symbol of a centric row, axis over plane, or None where the short
    symbol is the full one."""
    if row.point_group == "mmm":
        return [f"{axis}/{plane}" for axis, plane in zip(twofolds(row), parts[1:])]
    if row.point_group == "4/mmm":
        return [parts[1], f"{screws(row, 0)[0]}/{parts[2]}", "2/" + parts[3]]
    if row.point_group == "6/mmm":
        return [parts[1], "2/" + parts[2], "2/" + parts[3]]
    if row.point_group == "-3m":
        return [re.sub("^([mc])$", r"2/\1", part) for part in parts[1:]]
    if row.point_group == "m-3":
        return [f"{twofolds(row)[0]}/{parts[1]}", "-3"]
    if row.point_group == "m-3m":
        return [f"{fourfold(row)}/{parts[1]}", "-3", "2/" + parts[3]]
    return None


def diagonal(place):
    """The 2-fold rotation along a cell edge."""
    return tuple((1 if i == place else -1) * (i == j) for i in range(3) for j in range(3))


def screws(row, place):
    """The 2-fold axes along a cell edge: 2, 21 or both."""
    return sorted({"21" if t[place] else "2" for r, t in row.ops if r == diagonal(place)})


def twofolds(row):
    """The axes that the full symbol shows along the cell edges. Where both kinds are there it
    shows 2, unless both are there along all three edges and no three of the 2 meet in a point."""
    axes = [screws(row, place) for place in range(3)]
    if all(len(kinds) == 2 for kinds in axes) and not axes_meet(row):
        return ["21"] * 3
    return [kinds[0] for kinds in axes]


def axes_meet(row):
    """Whether 2-fold axes along the three cell edges meet somewhere."""
    shifts = [[t for r, t in row.ops if r == diagonal(p) and t[p] == 0] for p in range(3)]
    return any(x[1] == z[1] and x[2] == y[2] and y[0] == z[0] for x, y, z in product(*shifts))


def fourfold(row):
    """4, 41, 42 or 43 along c, the smallest that is there."""
    rotation = (0, -1, 0, 1, 0, 0, 0, 0, 1)
    return ("4", "41", "42", "43")[min(t[2] for r, t in row.ops if r == rotation) // 3]


def marked(row, symbol):
    """A symbol with each mark of origin or axes that a user may put behind it."""
    if row.choice == "1":
        return [symbol, symbol + "1", symbol + "s"]
    if row.choice == "2":
        return [symbol + ":2", symbol + "z"]
    if row.choice == "R":
        return [symbol + "r"] + ["r-3crs"] * (symbol == "r-3c")
    return [symbol]


def numbers_of(rows):
    """The numeric names, as (rank, row, name)."""
    first, by_ops = {}, {}
    for row in rows:
        if not row.further:
            first.setdefault((row.number, row.choice, row.cell_choice), row)
            by_ops.setdefault((row.number, row.choice, row.ops), []).append(row)
    for (number, choice, cell), row in first.items():
        plain = choice in ("", "1", "H") and cell in ("", "1")
        if plain:
            yield MAIN, row, f"{number}"
        for mark in NUMBER_MARKS[choice]:
            yield QUALIFIED, row, f"{number}{mark}"
        if 3 <= number <= 74:
            for slot, axes in enumerate(SLOTS_MONOCLINIC if number <= 15 else SLOTS_ORTHORHOMBIC):
                setting = permuted(row, slot, by_ops)
                if setting and plain:
                    yield QUALIFIED, setting, f"{number}:{axes}"
                if setting and choice + cell:
                    yield QUALIFIED, setting, f"{number}:{choice}{axes}{cell}"


def permuted(row, slot, by_ops):
    """The setting that has the operators of row in the axes of slot, if any."""
    a = model.axes_matrix(model.axes_of(row.number, slot))
    ops = frozenset(model.wrap(model.conjugate(op, a)) for op in row.ops)
    served = by_ops.get((row.number, row.choice, ops), [])
    return next((r for r in served if r.slot == slot), served[0] if served else None)


def names_by_row(rows):
    """The names of each row, the main one first. A name that more than one row could bear goes to
    the form of the better rank, and among equals to the first row of the table."""
    claims = list(numbers_of(rows))
    for row in rows:
        for rank, symbol in symbols_of(row):
            main, *others = marked(row, symbol)
            claims += [(rank, row, main)] + [(rank or OWN, row, name) for name in others]
    # Of the main rank, the symbol comes before the number.
    claims.sort(key=lambda claim: (claim[0], claim[1].index, claim[2][0].isdigit()))
    owner, names = {}, {row: [] for row in rows if not row.twin}
    for _, row, name in claims:
        row = row.twin or row
        if owner.setdefault(name, row) is row and name not in names[row]:
            names[row].append(name)
    return names
