"""The settings table, a row for each setting with all its operators."""

import re

from catalogue import model

# Settings of the table that the catalogue leaves out, by symbol and number.
LEFT_OUT = {("C -4 2 b", 117)}
CONVENTIONAL = 530
SLOTS_MONOCLINIC = ("b", "-b", "c", "-c", "a", "-a")
SLOTS_ORTHORHOMBIC = ("abc", "ba-c", "cab", "-cba", "bca", "a-cb")


def read_table(path):
    """The rows as they stand, a dictionary each, with `index`, counted from 1, and `further`, set
    behind the conventional settings."""
    lines = path.read_text("ascii").splitlines()
    columns = lines[0].split("\t")
    return [dict(zip(columns, line.split("\t")), index=i, further=i > CONVENTIONAL)
            for i, line in enumerate(lines[1:], start=1)]


class Row:
    """A row with what the maker of the catalogue wants to know of it."""

    def __init__(self, fields):
        self.index, self.further = fields["index"], fields["further"]
        self.number = int(fields["number"])
        self.symbol, self.choice = fields["symbol"], fields["choice"]
        self.qualifier, self.point_group = fields["qualifier"], fields["point_group"]
        self.ops = frozenset(map(model.parse_xyz, fields["operators"].split(";")))
        self.compact = re.sub("[ ()]", "", self.symbol).lower()
        self.shifted = self.further and bool(re.search(r"\da\)?$|\(a\)$", self.symbol))
        self.cell_choice = self.qualifier.lstrip("-abc") if self.number <= 15 else ""
        self.twin = None
        self.slot = self._slot()
        self.axes = model.axes_of(self.number, self.slot)

    def _slot(self):
        if 16 <= self.number <= 74:
            return SLOTS_ORTHORHOMBIC.index(self.qualifier or "abc")
        if not 3 <= self.number <= 15:
            return 0
        axis = self.qualifier.rstrip("123")
        if not axis:
            elements = self.symbol.split()[1:]
            axis = next(a for a, element in zip("abc", elements) if element != "1")
        return SLOTS_MONOCLINIC.index(axis)


def read_rows(path):
    """All rows but those left out. A further row with the operators of an earlier one becomes its
    twin: its names belong to the slot of that row."""
    rows = [Row(fields) for fields in read_table(path)]
    first = {}
    for row in rows:
        earlier = first.setdefault((row.number, row.ops), row)
        if row.further and earlier is not row:
            row.twin = earlier
    return [row for row in rows if (row.symbol, row.number) not in LEFT_OUT]
