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
DATA_FILES = ("lomar5.txt", "sgrots3.txt")
BAD_RUNS = ([], ["x"], ["("], ["p999"], ["P 1", "-dir"], ["P 1", "-hkl", "1"],
            ["P 1", "-hkl", "99999", "99999", "99999"], ["P 1", "-hhh"], ["-bill", "lomar5.txt"])


def symbols():
    """One typed name of each setting."""
    seen = {}
    for line in (ROOT / "tests/data/names.tsv").read_text().splitlines()[1:]:
        name, _, row = line.split("\t")
        seen.setdefault(row, name)
    return list(seen.values())


def outcome(program, arguments, folder):
    """The console and the files that a run leaves; the files are removed."""
    run = subprocess.run(program + arguments, cwd=folder, stdout=subprocess.PIPE, check=False)
    files = {}
    for path in folder.iterdir():
        if path.name not in DATA_FILES:
            files[path.name] = path.read_bytes()
            path.unlink()
    return run.returncode, run.stdout, files


def main():
    programs = [[str(Path(sys.argv[1]).resolve())],
                [sys.argv[2], str(Path(sys.argv[3]).resolve())]]
    runs = [[symbol, "-hkl", "4", "3", "2"] for symbol in symbols()]
    runs += [[symbol, "-only_asym", "-hhh"] for symbol in symbols()[::20]]
    runs += BAD_RUNS
    differences = 0
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for data_file in DATA_FILES:
            shutil.copy(ROOT / "data" / data_file, folder)
        for arguments in runs:
            first, second = (outcome(program, list(arguments), folder) for program in programs)
            if first != second:
                differences += 1
                print(f"{arguments}: the programs differ")
    if not differences:
        print(f"compare_systems: {len(runs)} runs are the same")
    return 1 if differences or len(runs) < 558 else 0


if __name__ == "__main__":
    sys.exit(main())
