"""Names as users type them, with the setting that each has to find.

The symbols come from the columns of the settings table; what the columns lack (full symbols,
e glides) stands here as tables taken from the literature, not derived from operators.
"""

import re

from catalogue.settings import LEFT_OUT, read_table

# Axis symbols of the full symbols in the conventional setting, along a, b, c.
FULL_AXES_MMM = {
    47: "2 2 2", 48: "2 2 2", 49: "2 2 2", 50: "2 2 2", 51: "21 2 2", 52: "2 21 2", 53: "2 2 21",
    54: "21 2 2", 55: "21 21 2", 56: "21 21 2", 57: "2 21 21", 58: "21 21 2", 59: "21 21 2",
    60: "21 2 21", 61: "21 21 21", 62: "21 21 21", 63: "2 2 21", 64: "2 2 21", 65: "2 2 2",
    66: "2 2 2", 67: "2 2 2", 68: "2 2 2", 69: "2 2 2", 70: "2 2 2", 71: "2 2 2", 72: "2 2 2",
    73: "21 21 21", 74: "21 21 21",
}
FULL = {
    123: "P 4/m 2/m 2/m", 124: "P 4/m 2/c 2/c", 125: "P 4/n 2/b 2/m", 126: "P 4/n 2/n 2/c",
    127: "P 4/m 21/b 2/m", 128: "P 4/m 21/n 2/c", 129: "P 4/n 21/m 2/m", 130: "P 4/n 21/c 2/c",
    131: "P 42/m 2/m 2/c", 132: "P 42/m 2/c 2/m", 133: "P 42/n 2/b 2/c", 134: "P 42/n 2/n 2/m",
    135: "P 42/m 21/b 2/c", 136: "P 42/m 21/n 2/m", 137: "P 42/n 21/m 2/c",
    138: "P 42/n 21/c 2/m", 139: "I 4/m 2/m 2/m", 140: "I 4/m 2/c 2/m", 141: "I 41/a 2/m 2/d",
    142: "I 41/a 2/c 2/d", 162: "P -3 1 2/m", 163: "P -3 1 2/c", 164: "P -3 2/m 1",
    165: "P -3 2/c 1", 166: "R -3 2/m", 167: "R -3 2/c", 191: "P 6/m 2/m 2/m",
    192: "P 6/m 2/c 2/c", 193: "P 63/m 2/c 2/m", 194: "P 63/m 2/m 2/c", 200: "P 2/m -3",
    201: "P 2/n -3", 202: "F 2/m -3", 203: "F 2/d -3", 204: "I 2/m -3", 205: "P 21/a -3",
    206: "I 21/a -3", 221: "P 4/m -3 2/m", 222: "P 4/n -3 2/n", 223: "P 42/m -3 2/n",
    224: "P 42/n -3 2/m", 225: "F 4/m -3 2/m", 226: "F 4/m -3 2/c", 227: "F 41/d -3 2/m",
    228: "F 41/d -3 2/c", 229: "I 4/m -3 2/m", 230: "I 41/a -3 2/d",
}

# Names with an e glide and the older names; the second of two settings with the same e name is
# not listed, since the name means the first.
E_NAMES = """
    A e m 2 = A b m 2, B m e 2 = B m a 2, B 2 e m = B 2 c m, C 2 m e = C 2 m b, C m 2 e = C m 2 a,
    A e 2 m = A c 2 m, A e a 2 = A b a 2, B b e 2 = B b a 2, B 2 e b = B 2 c b, C 2 c e = C 2 c b,
    C c 2 e = C c 2 a, A e 2 a = A c 2 a, C m c e = C m c a, C c m e = C c m b, A e m a = A b m a,
    A e a m = A c a m, B b e m = B b c m, B m e b = B m a b, C m m e = C m m a, A e m m = A b m m,
    B m e m = B m c m, C c c e = C c c a, A e a a = A b a a, B b e b = B b c b
"""

# Names that fit no rule of this file, by number, choice and qualifier of the setting.
SINGLE = {
    ("3", "", "b"): ["3:-b"],
    ("5", "", "b2"): ["5:-b1", "5:-b"],
    ("7", "", "c3"): ["P b"],
    ("14", "", "b3"): ["14:-b1", "14:-b"],
    ("14", "", "c3"): ["P 21/b"],
    ("15", "", "-c1"): ["B 2/b", "15:-c"],
    ("16", "", ""): ["16:a-cb"],
    ("48", "1", ""): ["48:1cab", "48:cab", "48:1a-cb"],
    ("48", "2", ""): ["48:2cab"],
    ("50", "1", ""): ["50:ba-c", "50:1ba-c"],
    ("59", "2", "cab"): ["59:2-cba"],
    ("64", "", "-cba"): ["A b a m", "A 21/b 2/a 2/m"],
    ("167", "R", ""): ["R -3 c RS"],
    ("227", "1", ""): ["F_d_-3_m", "(F d -3 m)", "fD-3M:1"],
    ("227", "2", ""): ["F_d_-3_m:2", "Fd(-3)m:2", "227 : 2"],
}


def spellings(symbol, mark=""):
    """A symbol with blanks in each way of writing it."""
    yield symbol + mark
    yield symbol.replace(" ", "_") + mark
    yield symbol.replace(" ", "") + mark
    for pattern in r"\1(\2)", r"\1_\2":
        screw = re.sub(r"(?<= )([2346])([1-5])(?=[ /]|$)", pattern, symbol)
        if screw != symbol:
            yield screw + mark
            yield screw.replace(" ", "") + mark


def marks(choice):
    return {"": [""], "1": ["", ":1", " S"], "2": [":2", " Z"], "H": ["", ":H", " H"],
            "R": [":R", " R", "r"]}[choice]


def full_symbols(row):
    number, parts = int(row["number"]), row["symbol"].split()
    if number in FULL_AXES_MMM and not row["further"]:
        axes = FULL_AXES_MMM[number].split()
        letters = (row["qualifier"] or "abc").replace("-", "")
        elements = [f"{axes['abc'.index(letter)]}/{plane}"
                    for letter, plane in zip(letters, parts[1:])]
        yield " ".join(parts[:1] + elements)
        for e_name in e_names(row):
            yield " ".join(parts[:1] + [element[:-1] + plane for element, plane
                                        in zip(elements, e_name.split()[1:])])
    elif number in FULL:
        yield parts[0] + FULL[number][1:]


def e_names(row):
    return [e_name for e_name, older in E_PAIRS if older == row["symbol"]]


def symbols_of(row):
    """The symbols that take marks, the full ones and the short monoclinic ones excepted."""
    symbol = row["symbol"]
    yield symbol
    if row["point_group"] in ("m-3", "m-3m"):
        yield symbol.replace("-3", "3")
    yield from e_names(row)


def other_glides(row):
    """The symbol with the other letter of an e glide. Groups 67 and 68 have it in a setting of
    its own."""
    if row["number"] in ("39", "41", "64") and not row["further"]:
        symbol = row["symbol"]
        for e_name in e_names(row):
            place = e_name.index("e")
            other = set("abc") - {symbol[0].lower(), symbol[place]}
            yield symbol[:place] + other.pop() + symbol[place + 1:]


def names_of(row, shorts):
    symbol, choice, number = row["symbol"], row["choice"], row["number"]
    for mark in marks(choice):
        for typed in symbols_of(row):
            yield from spellings(typed, mark)
        for full in full_symbols(row):
            yield from spellings(full, mark)
    if 3 <= int(number) <= 15:
        short = " ".join(part for part in symbol.split() if part != "1")
        if shorts[short] is row:
            yield from spellings(short)
    if symbol[-1] in "a)" and row["point_group"] in ("222", "422", "23"):
        yield re.sub(r"\(?a\)?$", "", symbol) + " Z"
    yield from other_glides(row)
    yield from SINGLE.get((number, choice, row["qualifier"]), [])
    yield from numbers_of(row)


def numbers_of(row):
    number, choice, qualifier = row["number"], row["choice"], row["qualifier"]
    if row["further"]:
        return
    if not qualifier or qualifier in ("b", "b1"):
        yield from (number + mark for mark in marks(choice))
    if qualifier:
        yield f"{number}:{choice}{qualifier}"
        if choice == "1":
            yield f"{number}:{qualifier}"
        if qualifier.endswith("1"):
            yield f"{number}:{qualifier[:-1]}"
    elif 16 <= int(number) <= 74:
        yield f"{number}:{choice}abc"


E_PAIRS = [tuple(pair.strip() for pair in text.split("=")) for text in E_NAMES.split(",")]


def short_owners(rows):
    """Which monoclinic setting a short symbol means: unique axis b before c before a."""
    owners = {}
    for place in (2, 3, 1):
        for row in rows:
            parts = row["symbol"].split()
            if 3 <= int(row["number"]) <= 15 and parts[place] != "1":
                owners.setdefault(" ".join(part for part in parts if part != "1"), row)
    return owners


def table(settings):
    """The text of names.tsv."""
    rows = read_table(settings)
    shorts = short_owners(rows)
    lines = ["name\tnumber\trow\n"]
    for row in rows:
        if (row["symbol"], int(row["number"])) not in LEFT_OUT:
            for name in dict.fromkeys(names_of(row, shorts)):
                lines.append(f"{name}\t{row['number']}\t{row['index']}\n")
    return "".join(lines)
