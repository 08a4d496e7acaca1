"""The check of the data files: each name of the catalogue is searched, decoded and compared with
the settings table, and each typed name of names.tsv has to find its setting."""

import re
from collections import Counter

from catalogue import model, typed_names
from catalogue.settings import LEFT_OUT, SLOTS_MONOCLINIC, SLOTS_ORTHORHOMBIC, read_table

POINT_GROUP_EXCEPTIONS = {"p32": "32", "p6222": "6"}
SAME_POINT_GROUP = {"-4m2": "-42m", "-6m2": "-62m"}
SYSTEM_LETTERS = {"triclinic": "a", "monoclinic": "m", "orthorhombic": "o", "tetragonal": "t",
                  "trigonal": "r", "hexagonal": "h", "cubic": "c"}

ELEMENT = "(?:-?[1-6]+(?:/[abcdemn])?|[abcdemn])"
SYMBOL = re.compile(f"[{model.LATTICE_LETTERS}]{ELEMENT}+(?::2|[szr]|rs)?")
AXES = "-?[abc]|" + "|".join(SLOTS_ORTHORHOMBIC)
QUALIFIED = re.compile(f"([0-9]+):([12]?)({AXES})([123]?)")
NUMBER = re.compile(f"([0-9]+)(?:[szr]|:|:2|:r)?|{QUALIFIED.pattern}")
FIELD = re.compile("[pi][1-6][a-z][0-9]{3}")


class Report:
    def __init__(self):
        self.faults = 0

    def __call__(self, place, text):
        self.faults += 1
        print(f"{place}: {text}")


def run(catalogue, rotations, settings, names):
    """Checks all and prints a line for each fault; the status for the shell."""
    report = Report()
    try:
        matrices = model.read_rotations(rotations)
        records = model.read_catalogue(catalogue)
    except (ValueError, IndexError) as error:
        report(catalogue.name, error)
        return 1
    rows = read_table(settings)
    for row in rows:
        row["ops"] = frozenset(map(model.parse_xyz, row["operators"].split(";")))
    check_rotations(matrices, report)
    check_order(records, report)
    entries = list(model.entries(records))
    check_names(entries, report)
    ops_by_name = decode_all(entries, matrices, report)
    found = check_operators(entries, ops_by_name, rows, report)
    check_point_groups(entries, rows, found, report)
    check_qualifiers(entries, ops_by_name, report)
    n_typed = check_typed(entries, found, rows, names, settings, report)
    settings_served = len(set().union(*found.values())) if found else 0
    print(f"{len(records)} records, {len(entries)} names, {settings_served} settings, "
          f"{n_typed} typed names, {report.faults} faults")
    return 1 if report.faults else 0


def check_rotations(matrices, report):
    """Twelve keys, each a proper rotation of the order that its digit gives."""
    for key in "1a 2a 2b 2c 2d 2e 2f 2g 3c 3q 4c 6c".split():
        matrix = matrices.get(key)
        if matrix is None:
            report(key, "no such rotation matrix")
            continue
        power, order = matrix, 1
        while power != model.UNIT and order < 7:
            power = model.compose((matrix, (0, 0, 0)), (power, (0, 0, 0)))[0]
            order += 1
        a, b, c, d, e, f, g, h, i = matrix
        determinant = a * (e * i - f * h) - b * (d * i - f * g) + c * (d * h - e * g)
        if (order, determinant) != (int(key[0]), 1):
            report(key, f"order {order} and determinant {determinant}")
    if len(set(matrices.values())) != len(matrices):
        report("rotation matrices", "two keys have the same matrix")


def check_order(records, report):
    """The order of the records, and the slots of each."""
    for earlier, later in zip(records, records[1:]):
        if earlier.number > later.number:
            report(f"line {later.line}", f"{later.number} stands behind {earlier.number}")
    for number in range(1, 231):
        first = next((record for record in records if record.number == number), None)
        if not first:
            report(number, "no record")
        elif (0, False, str(number)) not in first.items:
            report(f"line {first.line}", f"the main setting does not have the name {number}")
    for record in records:
        where = f"line {record.line}"
        mains = [name for _, main, name in record.items if main]
        if not record.items or not record.items[0][1]:
            report(where, "does not begin with a main name")
        slots = [slot for slot, main, _ in record.items if main]
        if len(set(slots)) < len(mains) or slots != sorted(slots):
            report(where, "more than six slots")
        if not 1 <= record.number <= 230:
            report(where, f"no group {record.number}")


def check_names(entries, report):
    count = Counter(entry.name for entry in entries)
    for entry in entries:
        where = f"{entry.number} {entry.name}"
        if count[entry.name] > 1:
            report(where, "stands more than once")
        if model.lower_symbol(entry.name) != entry.name:
            report(where, "is not in the form that is searched")
        number = NUMBER.fullmatch(entry.name)
        if number and int(number[1] or number[2]) != entry.number:
            report(where, "is a number of another group")
        if not number and not SYMBOL.fullmatch(entry.name):
            report(where, "is neither a symbol nor a number")
    if any(entry.symbol[:1].isdigit() for entry in entries):
        report("main names", "one begins with a digit")


def decode_all(entries, matrices, report):
    """The operators behind each name, centring included; names that don't decode are left out."""
    ops_by_name, decoded = {}, {}
    for entry in entries:
        where = f"{entry.number} {entry.name} ({entry.computer_symbol} {entry.axes})"
        key = entry.computer_symbol, entry.axes
        if not all(map(FIELD.fullmatch, model.fields_of(key[0]))):
            report(where, "a generator is not of the form p or i, key, three digits")
        try:
            if key not in decoded:
                decoded[key] = model.decode(*key, matrices)
                check_head(entry, decoded[key], where, report)
                check_economy(entry, decoded[key], matrices, where, report)
        except (ValueError, KeyError) as error:
            report(where, f"does not decode: {error}")
        else:
            ops_by_name[entry.name] = frozenset(model.centred(decoded[key], entry.lattice))
    return ops_by_name


def check_economy(entry, ops, matrices, where, report):
    if len({rotation for rotation, _ in ops}) != len(ops) and entry.number != 43:
        report(where, "a centring translation among the products")
    if model.number_of_products(entry.computer_symbol, matrices) != len(ops):
        report(where, "its generators overlap")


def check_operators(entries, ops_by_name, rows, report):
    """The rows whose operators each name has, by name."""
    rows_by_ops = {}
    for row in rows:
        rows_by_ops.setdefault((int(row["number"]), row["ops"]), set()).add(row["index"])
    found = {}
    for entry in (entry for entry in entries if entry.name in ops_by_name):
        served = rows_by_ops.get((entry.number, ops_by_name[entry.name]))
        if served:
            found[entry.name] = served
        else:
            report(f"{entry.number} {entry.name} ({entry.computer_symbol} {entry.axes})",
                   f"operators of no setting of {entry.number}")
    wanted = {row["index"] for row in rows if (row["symbol"], int(row["number"])) not in LEFT_OUT}
    for index in sorted(wanted.difference(*found.values())):
        row = rows[index - 1]
        report(f"row {index}", f"no name for {row['number']} {row['symbol']} {row['choice']}")
    return found


def check_head(entry, ops, where, report):
    system = next(name for end, name in (
        (2, "triclinic"), (15, "monoclinic"), (74, "orthorhombic"), (142, "tetragonal"),
        (167, "trigonal"), (194, "hexagonal"), (entry.number, "cubic")) if entry.number <= end)
    inversion = tuple(-e for e in model.UNIT)
    centric = "c" if any(rotation == inversion for rotation, _ in ops) else "a"
    if entry.computer_symbol[1:3] != SYSTEM_LETTERS[system] + centric:
        report(where, f"the head should be {SYSTEM_LETTERS[system] + centric}")


def check_point_groups(entries, rows, found, report):
    """The rewriting of every main name against the point group of its operators."""
    for entry in entries:
        if entry.name != entry.symbol or entry.name not in found:
            continue
        right = rows[min(found[entry.name]) - 1]["point_group"]
        right = POINT_GROUP_EXCEPTIONS.get(entry.name, right)
        result = model.point_group_of(entry.symbol)
        if SAME_POINT_GROUP.get(result, result) != right:
            report(f"{entry.number} {entry.symbol}", f"point group {result or 'none'}, not {right}")


def check_qualifiers(entries, ops_by_name, report):
    """A number with a qualifier has the operators of its group in the first setting of the same
    choice, brought into the axes of the qualifier."""
    for entry in entries:
        match = QUALIFIED.fullmatch(entry.name)
        if not match or entry.name not in ops_by_name:
            continue
        number, choice, axes, cell = match.groups("")
        slots = SLOTS_MONOCLINIC if entry.number <= 15 else SLOTS_ORTHORHOMBIC
        first = ops_by_name.get(f"{number}:{choice}{slots[0]}{cell}")
        if axes not in slots or not first:
            report(f"{entry.number} {entry.name}", "is a qualifier of other groups")
            continue
        a = model.axes_matrix(model.axes_of(entry.number, slots.index(axes)))
        if ops_by_name[entry.name] != {model.wrap(model.conjugate(op, a)) for op in first}:
            report(f"{entry.number} {entry.name}", "has not the operators of its qualifier")


def check_typed(entries, found, rows, names, settings, report):
    """Each typed name finds the operators of its row, each symbol of the catalogue is the form of
    a typed name, and the settings left out are not found."""
    first = {}
    for entry in entries:
        first.setdefault(entry.name, entry)
    text = names.read_text("ascii")
    if text != typed_names.table(settings):
        report(names.name, "is not what typed_names.py makes of the settings")
    lines = [line.split("\t") for line in text.splitlines()[1:]]
    for typed, _, row in lines:
        key = model.lower_symbol(typed)
        if key not in first:
            report(f"typed name {typed}", f"{key or 'an invalid name'} is not found")
        elif int(row) not in found.get(key, ()):
            report(f"typed name {typed}", f"finds {first[key].number} {first[key].symbol}, "
                                          f"not row {row}")
    keys = {model.lower_symbol(typed) for typed, _, _ in lines}
    for entry in entries:
        if entry.name not in keys and not QUALIFIED.fullmatch(entry.name):
            report(f"{entry.number} {entry.name}", "no typed name has this form")
    for symbol, number in LEFT_OUT:
        if model.lower_symbol(symbol) in first:
            report(f"{number} {symbol}", "is found, but should be left out")
    return len(lines)
