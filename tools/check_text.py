#!/usr/bin/env python3
"""Checks the text files of the project: UTF-8, line feeds alone as line ends, one of them at the
end of the file, no blanks at the end of a line, no tabs in sources.

Test data may hold any bytes and is passed over. Prints one line for each fault and ends with
status 1 if there is any.
"""

import sys
from pathlib import Path

PASSED_OVER = {".git", "build", "work", "__pycache__", ".cache"}
TEST_DATA = "tests/data"
BINARY = {".png", ".pdf", ".gz"}
MAY_HOLD_TABS = {".txt", ".tsv", ".md"}


def text_files(folder, root):
    for entry in sorted(folder.iterdir()):
        if entry.is_symlink():
            continue
        if entry.is_dir():
            if entry.name not in PASSED_OVER and entry.relative_to(root).as_posix() != TEST_DATA:
                yield from text_files(entry, root)
        elif entry.suffix not in BINARY:
            yield entry


def faults_of(file):
    """Yields the line number and the name of each fault."""
    data = file.read_bytes()
    try:
        data.decode("utf-8")
    except UnicodeDecodeError as error:
        yield data.count(b"\n", 0, error.start) + 1, "not UTF-8"
    if b"\0" in data:
        yield data.count(b"\n", 0, data.index(b"\0")) + 1, "a NUL byte"
    if data and (not data.endswith(b"\n") or data.endswith(b"\n\n")):
        yield data.count(b"\n"), "must end with one line feed"
    for number, line in enumerate(data.split(b"\n"), start=1):
        if b"\r" in line:
            yield number, "a carriage return"
        if line.rstrip(b"\r").endswith((b" ", b"\t")):
            yield number, "a blank at the end of the line"
        if b"\t" in line and file.suffix not in MAY_HOLD_TABS:
            yield number, "a tab"


def main():
    root = Path(__file__).resolve().parent.parent
    n_files = n_faults = 0
    for file in text_files(root, root):
        n_files += 1
        for number, fault in faults_of(file):
            n_faults += 1
            print(f"{file.relative_to(root).as_posix()}:{number}: {fault}")
    if n_faults == 0:
        print(f"check_text: {n_files} files are in order")
    return 1 if n_faults or not n_files else 0


if __name__ == "__main__":
    sys.exit(main())
