"""The search for the generators of a setting: fewest of them, smallest translations, plainest
rotations, and no centring translation among the products."""

from itertools import combinations, product

from catalogue import model

# Plainest first; the generators of a tail are in this order.
KEY_ORDER = ("1a", "3q", "6c", "4c", "3c", "2c", "2a", "2f", "2b", "2d", "2g", "2e")
SYSTEM_END = ((2, "a"), (15, "m"), (74, "o"), (142, "t"), (167, "r"), (194, "h"), (230, "c"))
INVERSION = tuple(-e for e in model.UNIT)
CODES = {twelfths: str(digit) for digit, twelfths in model.DIGIT_TWELFTHS.items()}


def tail_of(row, rotations):
    """The tail for a row of the settings table, in the axes of slot 0."""
    back = model.transpose(model.axes_matrix(row.axes))
    ops = {model.wrap(model.conjugate(op, back)) for op in row.ops}
    shifts = {t for r, t in ops if r == model.UNIT}
    lattice = next(c for c, vectors in model.CENTRING.items() if set(vectors) == shifts)
    system = next(letter for end, letter in SYSTEM_END if row.number <= end)
    centric = "c" if any(r == INVERSION for r, _ in ops) else "a"
    return system + centric + shortest(ops, rotations, lattice)


def fields_of(ops, rotations):
    """For each rotation of the group that has a key, the field with the smallest translation, as
    (field, powers, sum of twelfths, number of digits that are not 0). Two lists: fields whose
    powers hold no centring translation, and all fields."""
    clean, every = [], []
    for key, kind in product(KEY_ORDER, "pi"):
        rotation = tuple(-e if kind == "i" else e for e in rotations[key])
        choices = []
        for translation in (t for r, t in ops if r == rotation):
            if not all(t in CODES for t in translation):
                continue
            field = kind + key + "".join(CODES[t] for t in translation)
            cycle = model.powers(field, rotations, model.UNIT)
            tainted = len({r for r, _ in cycle}) < len(cycle)
            choices.append((tainted, sum(translation), 3 - translation.count(0), field, cycle))
        if choices:
            tainted, total, nonzero, field, cycle = min(choices)
            every.append((field, cycle, total, nonzero))
            if not tainted:
                clean.append(every[-1])
    return clean, every


def rotations_of_product(cycles):
    """The rotations of all products of one operator from each list."""
    products = {model.UNIT}
    for cycle in cycles:
        products = {model.compose((a, (0, 0, 0)), g)[0] for a in products for g in cycle}
    return products


def cost(fields):
    return (sum(total for _, _, total, _ in fields), sum(nonzero for *_, nonzero in fields),
            sum(field[0] == "i" and field[1:3] != "1a" for field, *_ in fields),
            [KEY_ORDER.index(field[1:3]) for field, *_ in fields])


def shortest(ops, rotations, lattice):
    """The generator fields as one text. Products of one operator from each cycle are distinct as
    soon as their rotations are, so the rotations alone decide; only where a centring translation
    can not be avoided is the product itself compared."""
    order = len({r for r, _ in ops})
    for candidates in fields_of(ops, rotations):
        for count in (1, 2, 3):
            served = [fields for fields in combinations(candidates, count)
                      if len(rotations_of_product(cycle for _, cycle, *_ in fields)) == order]
            if not served:
                continue
            text = "".join(field for field, *_ in min(served, key=cost))
            if model.centred(model.decode(lattice + "am" + text, "abc", rotations),
                             lattice) == ops:
                return text
    raise ValueError("no generators found")
