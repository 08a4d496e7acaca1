"""What the tool does with its data files, told a second time in Python.

An operator is a pair of tuples: nine rotation entries, row by row, and three translations in
twelfths of a cell edge. A list of operators is compared as a set, translations modulo 1.
"""

import re
from fractions import Fraction
from math import prod

UNIT = (1, 0, 0, 0, 1, 0, 0, 0, 1)
LATTICE_LETTERS = "pabcifr"
CENTRING = {
    "p": [(0, 0, 0)],
    "a": [(0, 0, 0), (0, 6, 6)],
    "b": [(0, 0, 0), (6, 0, 6)],
    "c": [(0, 0, 0), (6, 6, 0)],
    "i": [(0, 0, 0), (6, 6, 6)],
    "f": [(0, 0, 0), (6, 6, 0), (6, 0, 6), (0, 6, 6)],
    "r": [(0, 0, 0), (8, 4, 4), (4, 8, 8)],
}
AXES_MONOCLINIC = ("abc", "cmba", "cab", "acmb", "bca", "mbac")
AXES_ORTHORHOMBIC = ("abc", "bamc", "cab", "mcba", "bca", "amcb")
DIGIT_TWELFTHS = {d: 10 if d == 5 else d for d in range(10)}


# --- operators ---------------------------------------------------------------------------------

def wrap(op):
    return op[0], tuple(t % 12 for t in op[1])


def compose(g, h):
    """g after h, the translations not reduced."""
    (a, s), (b, t) = g, h
    rotation = tuple(sum(a[3 * i + k] * b[3 * k + j] for k in range(3))
                     for i in range(3) for j in range(3))
    return rotation, tuple(sum(a[3 * i + k] * t[k] for k in range(3)) + s[i] for i in range(3))


def transpose(m):
    return tuple(m[3 * j + i] for i in range(3) for j in range(3))


def axes_matrix(axes):
    rows, sign = [], 1
    for letter in axes:
        if letter == "m":
            sign = -1
        else:
            rows += [sign * (letter == c) for c in "abc"]
            sign = 1
    return tuple(rows)


def conjugate(op, a):
    """op in the axes of the signed permutation a."""
    change = (a, (0, 0, 0))
    rotation, translation = compose(change, op)
    return compose((rotation, translation), (transpose(a), (0, 0, 0)))


def centred(ops, letter):
    return {(r, tuple((t[i] + c[i]) % 12 for i in range(3)))
            for r, t in ops for c in CENTRING[letter]}


def parse_xyz(text):
    """An operator from a text such as -x+y,y,z+1/2."""
    rotation, translation = [], []
    for row in text.split(","):
        terms = re.findall(r"[+-]?(?:[xyz]|\d+/\d+)", row)
        if "".join(terms) != row:
            raise ValueError(f"no operator: {text}")
        rotation += [sum((-1 if t[0] == "-" else 1) for t in terms if t[-1] == c) for c in "xyz"]
        shift = sum((Fraction(t) for t in terms if "/" in t), Fraction(0)) * 12
        if shift.denominator != 1:
            raise ValueError(f"not in twelfths: {text}")
        translation.append(int(shift))
    return wrap((tuple(rotation), tuple(translation)))


# --- data files --------------------------------------------------------------------------------

def blank_comments(text):
    out, i, depth = [], 0, 0
    while i < len(text):
        pair = text[i:i + 2]
        if pair == "/*":
            depth += 1
        elif depth and pair == "*/":
            depth -= 1
        elif depth:
            out.append(" ")
            i += 1
            continue
        elif text[i] == "'":
            end = text.find("\n", i)
            i = len(text) if end < 0 else end
            continue
        else:
            out.append(text[i])
            i += 1
            continue
        out.append("  ")
        i += 2
    if depth:
        raise ValueError("Unclosed comment block")
    return "".join(out)


def read_rotations(path):
    """The matrices of sgrots3.txt by key, read with its quirks: the character behind the key and
    the one behind the last number are consumed without a look at them."""
    text = blank_comments(path.read_text("ascii"))
    position, table = 0, {}

    def skip_white():
        nonlocal position
        while position < len(text) and text[position] in " \r\t\n":
            position += 1

    def token():
        nonlocal position
        skip_white()
        start = position
        while position < len(text) and text[position] not in " \r\t\n":
            position += 1
        return text[start:position]

    while True:
        skip_white()
        if position >= len(text):
            return table
        if token() != "rotation_matrix":
            continue
        key = token().lower()
        if key in table:
            raise ValueError(f"Rotation matrix {key} listed more than once")
        skip_white()
        position += 1
        table[key] = tuple(int(token()) for _ in range(9))
        skip_white()
        position += 1


class Record:
    """A record of lomar5.txt: number, tail, and the items of the body as (slot, is_main, name)."""

    def __init__(self, number, tail, items, line):
        self.number, self.tail, self.items, self.line = number, tail, items, line


def read_catalogue(path):
    """All records of lomar5.txt in the order of the file."""
    text = blank_comments(path.read_text("ascii"))
    records = []
    head = re.compile(r"\s*(\S+)\s+(\S+)\s*\{([^{}]*)\}")
    position = 0
    while text[position:].strip():
        match = head.match(text, position)
        if not match:
            line = text.count("\n", 0, position) + 1
            raise ValueError(f"line {line}: no record of the form number tail {{ body }}")
        line = text.count("\n", 0, match.start(1)) + 1
        records.append(Record(int(match[1]), match[2], list(items_of(match[3])), line))
        position = match.end()
    return records


def items_of(body):
    slot = position = 0
    while body[position:].strip():
        position = re.compile(r"\s*").match(body, position).end()
        main = True
        if body[position] == "-":
            position += 1
            slot = (slot + 1) % 6
            continue
        if body[position] == "=":
            position += 1
            slot = (slot - 1) % 6
            main = False
        match = re.compile(r"\s*(\S*)").match(body, position)
        position = match.end()
        yield slot, main, match[1]
        slot = (slot + 1) % 6


class Entry:
    """What a search finds."""

    def __init__(self, record, slot, symbol, name):
        self.record, self.slot, self.symbol, self.name = record, slot, symbol, name
        self.number = record.number
        self.axes = axes_of(record.number, slot)
        rhombohedral = name.endswith("r") or name == "r-3crs"
        self.lattice = "p" if rhombohedral else symbol[:1]
        self.computer_symbol = self.lattice + record.tail


def axes_of(number, slot):
    if 3 <= number <= 15:
        return AXES_MONOCLINIC[slot]
    if 16 <= number <= 74:
        return AXES_ORTHORHOMBIC[slot]
    return "abc"


def entries(records):
    """Every name of the catalogue as an Entry, in the order in which a search meets them."""
    for record in records:
        symbol = ""
        for slot, main, name in record.items:
            if main:
                symbol = name
            yield Entry(record, slot, symbol, name)


# --- names and decoding ------------------------------------------------------------------------

def lower_symbol(typed):
    """What is looked up in the catalogue for `typed`; empty if that can't name a group."""
    text = re.sub(r"[() _]", "", typed).lower()
    if not text:
        return ""
    numeric = text[0] in "123456789"
    if not numeric and len(text) >= 2 and not text.endswith(":2"):
        text = text.replace(":", "")
    text = text.split("h")[0]
    if text.endswith(":1"):
        text = text[:-2]
    if not text or not numeric and text[0] not in LATTICE_LETTERS:
        return ""
    return text


def powers(field, rotations, a):
    rotation = rotations[field[1:3]]
    if field[0] == "i":
        rotation = tuple(-e for e in rotation)
    digits = tuple(DIGIT_TWELFTHS[int(c)] if c in "0123456789" else 0 for c in field[3:])
    g = wrap(conjugate((rotation, digits), a))
    out = [g]
    while True:
        product = wrap(compose(g, out[-1]))
        if product == g:
            return out
        out.append(product)
        if len(out) > 200:
            raise ValueError("Rotation matrix failed consistency test")


def fields_of(computer_symbol):
    tail = computer_symbol[3:]
    return [tail[i:i + 6] for i in range(0, len(tail), 6)]


def number_of_products(computer_symbol, rotations):
    return prod(len(powers(field, rotations, UNIT)) for field in fields_of(computer_symbol))


def decode(computer_symbol, axes, rotations):
    """The operators of a computer-adapted symbol, without centring."""
    if len(computer_symbol) < 9 or len(computer_symbol) % 6 != 3:
        raise ValueError("Length of computer adapted space group symbol invalid")
    if computer_symbol[0] not in LATTICE_LETTERS:
        raise ValueError("Bad lattice_type")
    if computer_symbol[1] not in "amotrhc":
        raise ValueError("Bad crystal_system")
    a = axes_matrix(axes)
    lists = [powers(field, rotations, a) for field in fields_of(computer_symbol)]
    ops = lists[-1]
    for cycle in reversed(lists[:-1]):
        ops = [compose(g, op) for g in cycle for op in ops]
    return {wrap(op) for op in ops}


# --- point group -------------------------------------------------------------------------------

POINT_GROUPS = set("""1 -1 2 m 2/m 222 mm2 mmm 4 -4 4/m 422 4mm -42m -4m2 4/mmm 3 -3 32 3m -3m
    6 -6 6/m 622 6mm -62m -6m2 6/mmm 23 m-3 432 -43m m-3m""".split())
REWRITING = [tuple(row.split(">")) for row in """s1> s2> rs> hr> s> z> r> _> a>m b>m c>m n>m d>m
    11> 21>2 12>2 m1>m 1m>m -2>2 31>3 41>4 61>6 63>6 64>6 65>6 42/>4/ 42mm>4mm m2m>mm2 2mm>mm2
    4222>422 42>4 33>3 43>4 322>32 62>6 6222>622 m3>m-3""".split()]


def point_group_of(symbol):
    """The point group by text rewriting, or an empty text."""
    work = symbol[1:].lower().split(":")[0].split("h")[0]
    if work in POINT_GROUPS:
        return work
    for what, replacement in REWRITING:
        before = work
        while what in work:
            work = work.replace(what, replacement)
        if work != before and work in POINT_GROUPS:
            return work
    return ""
