#!/usr/bin/env python3
"""Runs two programs, such as the one for Linux and the one for Windows under Wine, and compares
what they do byte for byte: the .sg and .hkl files and the console of every setting, and the
messages of some failures.

    tools/compare_systems.py PROGRAM WINE PROGRAM.EXE

Ends with status 1 when anything differs.
"""

import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
# Bytes that one of the systems treats in its own way on the way to a program.
NAME_BYTES = "'%^&"
# These can't be in the name of a file on one of them, which refuses a symbol with them sooner.
SPECIAL_BYTES = NAME_BYTES + "\x01\t\n\"\\*?<>|"
INPUTS = {
    "pair.txt": "symmetry { -x,-y,-z; x,1/2-y,1/2+z; }",
    "cubic.txt": "symmetry { z,x,y /* the threefold axis */; y,x,-z; -x,-y,z+1/2; x,y,z; }",
    "none.txt": "symmetry {",
}
BAD_RUNS = ([], ["x"], ["("], ["p999"], ["P 1", "-dir"], ["P 1", "-hkl", "1"],
            ["P 1", "-hkl", "99999", "99999", "99999"], ["P 1", "-hhh"], ["-bill", "lomar5.txt"],
            ["P 1", "-dir", "missing/folder"],
            ["P 1", "-compare", "p999", "-e", "failed"], ["P 1", "-e", "out/failed", "-hkl", "x"])


def symbols():
    """One typed name of each setting."""
    seen = {}
    for line in (ROOT / "tests/data/names.tsv").read_text().splitlines()[1:]:
        name, _, row = line.split("\t")
        seen.setdefault(row, name)
    return list(seen.values())


def prepare(folder):
    """Data files, generator files and empty folders for output."""
    for data_file in ("lomar5.txt", "sgrots3.txt"):
        shutil.copy(ROOT / "data" / data_file, folder)
    for name, text in INPUTS.items():
        (folder / name).write_text(text)
    for name in ("sg", "out"):
        (folder / name).mkdir()
    return set(folder.rglob("*"))


def outcome(program, arguments, folder, prepared):
    """The console, with one kind of separators, and the files that a run leaves, which go."""
    run = subprocess.run(program + arguments, cwd=folder, stdout=subprocess.PIPE, check=False)
    files = {}
    for path in set(folder.rglob("*")) - prepared:
        files[path.relative_to(folder)] = path.read_bytes()
        path.unlink()
    return run.returncode, run.stdout.replace(b"\\", b"/"), files


def main():
    programs = [[str(Path(sys.argv[1]).resolve())],
                [sys.argv[2], str(Path(sys.argv[3]).resolve())]]
    names = symbols()
    runs = [[symbol, "-hkl", "4", "3", "2"] for symbol in names]
    runs += [[symbol, "-only_asym", "-hhh"] for symbol in names[::20]]
    runs += [[symbol, "-dir", "out", "-hkl", "2", "2", "2"] for symbol in names[::40]]
    runs += [[symbol, "-dir", str(ROOT / "no_folder")] for symbol in names[:2]]
    runs += [[a, "-compare", b] for a, b in zip(names[::40], names[1::40])]
    runs += [[symbol, "-compare", symbol] for symbol in names[::60]]
    runs += [["-bill", name] for name in INPUTS]
    runs += BAD_RUNS
    runs += [[byte] for byte in SPECIAL_BYTES] + [["P9" + byte] for byte in NAME_BYTES]
    differences = 0
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        prepared = prepare(folder)
        for arguments in runs:
            first, second = (outcome(program, list(arguments), folder, prepared)
                             for program in programs)
            # Wine fails to start one process in some thousands, without a word.
            if first != second and not second[1] and not second[2]:
                second = outcome(programs[1], list(arguments), folder, prepared)
            if first != second:
                differences += 1
                print(f"{arguments}: the programs differ:\n{first}\n{second}")
    if not differences:
        print(f"compare_systems: {len(runs)} runs are the same")
    return 1 if differences or len(runs) < 558 else 0


if __name__ == "__main__":
    sys.exit(main())
