#!/usr/bin/env python3
"""Lets each call to the system fail that can, one after the other, in typical runs of the tool.

    tools/check_faults.py build/release/lomar6_faulty [number of a run ...]

The program is the tool with tools/faults/faulty_system.cpp. Every run must end with status 1, and
either with the console and the files of a run without faults, or with a message and the error
marker. No file may be lost then: each is as it was, as it should become, or, where the run was to
write it, breaks off.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

DATA = Path(__file__).resolve().parent.parent / "data"
MARKER = "failed"
GENERATORS = b"symmetry { -x, -y, -z; -x, y+1/2, -z+1/2 }"

# Arguments, and runs or files that come before.
RUNS = [
    ("P_21/c", []),
    ("225:2", []),
    ("F_d_d_d -hkl 2 2 2", []),
    ("C2/c -only_asym", []),
    ("P432 -dir out", []),
    ("P_21/c -hkl 2 2 2", ["P_21/c", ("p21oc.sg", b"' mine\n"), ("p21oc.hkl", b"old")]),
    ("P_1 -hkl 3 3 3", ["P_1 -hkl 9 9 9"]),
    ("P_1 -hkl 9 9 9", ["P_1", ("p1.hkl", b"old")]),
    ("P_21/c", ["P_21/c", ("p21oc.sg", b"' mine\n")]),
    ("R3 -hhh", ["R3 -only_asym", ("r3.sg", b"\n' mine\n")]),
    ("R3 -hhh", ["R3"]),
    ("C2/c -compare 15 -dir sg", [("sg/c2oc.sg", b"' stale\nxyzs { x,y,z\n }")]),
    ("P1 -compare P-1", ["P1", "P-1", ("sg/p-1.sg", b"stale")]),
    ("-bill generators", [("generators", GENERATORS)]),
    ("Pnma -hhh -only_asym -hkl 1 2 3", []),
]

# What a failure may say.
MESSAGES = re.compile(
    rb" (Out of memory|Index limits too large|Cannot (open|read|write) file \S+|getcwd error|Cannot find: \w+"
    rb"|Cannot find { in stream \S+|Space group not found in lomar5.txt"
    rb"|Invalid rotation matrix type|No generators in file \S+"
    rb"|hhh details already in \*.sg file)\n$"
)


def run(program, folder, arguments, fault=None):
    """Runs the program and returns its status, its console and the counts of its calls."""
    done = subprocess.run([program, *arguments], cwd=folder, check=False, close_fds=False,
                          env={"LOMAR6_FAULT": fault} if fault else {},
                          stdin=subprocess.DEVNULL, capture_output=True)
    return done.returncode, done.stdout, done.stderr.decode()


def files_of(folder):
    return {str(path.relative_to(folder)): path.read_bytes()
            for path in Path(folder).rglob("*") if path.is_file() and not path.is_symlink()}


class Case:
    """A run, its folder at the start, and what it does without faults."""

    def __init__(self, program, line, before):
        self.program = program
        self.arguments = [*line.split(), "-e", MARKER]
        self.line = line
        self.folder = tempfile.mkdtemp(dir=SCRATCH)
        for name in ("lomar5.txt", "sgrots3.txt"):
            os.symlink(DATA / name, f"{self.folder}/{name}")
        for name in ("sg", "out"):
            os.mkdir(f"{self.folder}/{name}")
        for step in before:
            if isinstance(step, str):
                run(program, self.folder, step.split())
            else:
                with open(f"{self.folder}/{step[0]}", "ab") as file:
                    file.write(step[1])
        self.old = files_of(self.folder)
        self.console, self.new, counts = self.attempt(None)[1:]
        self.counts = [(kind, int(n)) for kind, n in
                       (line.split() for line in counts.splitlines())]

    def attempt(self, fault):
        """A run in a copy of the folder: status, console, files, counts."""
        with tempfile.TemporaryDirectory(dir=SCRATCH) as folder:
            shutil.copytree(self.folder, folder, symlinks=True, dirs_exist_ok=True)
            status, console, counts = run(self.program, folder, self.arguments, fault)
            return status, console, files_of(folder), counts

    def faults(self):
        return [f"{kind} {n} {mode}" for kind, count in self.counts
                for n in range(1, count + 1) for mode in ("once", "always")]

    def check(self, fault):
        """What is wrong with a run, or None."""
        status, console, files, _ = self.attempt(fault)
        if status != 1:
            return f"ended with status {status}"
        if (console, files) == (self.console, self.new):
            return None
        if not MESSAGES.search(console):
            return f"ended without a message: {console[-80:]}"
        if files.pop(MARKER, b"-") != b"":
            return "made no error marker"
        for name in self.old.keys() | files.keys():
            got, old, new = (each.get(name) for each in (files, self.old, self.new))
            if got in (old, new):
                continue
            # The run begins a file, goes on with one, or rewrites a .sg file. A .hkl file is
            # written anew once nothing can fail but writing.
            begun = old is None or got.startswith(old) or (
                name.endswith(".sg") and not new.startswith(old)) or (
                name.endswith(".hkl") and fault.startswith(("write", "close")))
            if not (begun and new is not None and new.startswith(got)):
                return f"spoilt {name}"
        return None


def main():
    program = os.path.abspath(sys.argv[1])
    chosen = [int(n) for n in sys.argv[2:]] or range(len(RUNS))
    n_faults = n_wrong = 0
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for i in chosen:
            case = Case(program, *RUNS[i])
            faults = case.faults()
            n_faults += len(faults)
            for fault, wrong in zip(faults, pool.map(case.check, faults)):
                if wrong:
                    n_wrong += 1
                    print(f"{i}: lomar6 {case.line}, {fault}: {wrong}")
    print(f"{n_faults} faults, {n_wrong} of them not in order")
    return 1 if n_wrong or not n_faults else 0


if __name__ == "__main__":
    with tempfile.TemporaryDirectory(dir="/dev/shm" if os.path.isdir("/dev/shm") else None) \
            as SCRATCH:
        sys.exit(main())
