#!/usr/bin/env python3
"""Measures whole runs of `lomar identify`, and calls of its peers with the same operators.

    bench/identify.py LOMAR [ROUNDS [SEED]]

Each round writes each setting in a random primitive basis with a random origin, all operators of
its cell in shuffled order: 192 of F d -3 m. Of lomar the whole process is timed, start and reading
included; of spglib and cctbx, if they are there, the call alone, as far as it gives an answer. An
answer is right if it has the number of the setting. Ends with status 1 if lomar has a wrong one, or
if its fastest run of twenty takes more than 10 ms with the operators that took longest, or with 192.
"""

import csv
import json
import os
import random
import re
import signal
import statistics
import subprocess
import sys
import time
from fractions import Fraction

LONGEST = 10  # seconds that a peer has for an answer
HALF, THIRD = Fraction(1, 2), Fraction(1, 3)
# Primitive bases, as columns.
PRIMITIVE = {
    "P": [[1, 0, 0], [0, 1, 0], [0, 0, 1]],
    "A": [[1, 0, 0], [0, HALF, -HALF], [0, HALF, HALF]],
    "B": [[HALF, 0, -HALF], [0, 1, 0], [HALF, 0, HALF]],
    "C": [[HALF, -HALF, 0], [HALF, HALF, 0], [0, 0, 1]],
    "I": [[-HALF, HALF, HALF], [HALF, -HALF, HALF], [HALF, HALF, -HALF]],
    "F": [[0, HALF, HALF], [HALF, 0, HALF], [HALF, HALF, 0]],
    "R": [[2 * THIRD, -THIRD, -THIRD], [THIRD, THIRD, -2 * THIRD], [THIRD, THIRD, THIRD]],
}


def product(a, b):
    return [[sum(a[i][k] * b[k][j] for k in range(3)) for j in range(3)] for i in range(3)]


def times(a, v):
    return [sum(a[i][k] * v[k] for k in range(3)) for i in range(3)]


def inverse(m):
    minor = [[m[(j + 1) % 3][(i + 1) % 3] * m[(j + 2) % 3][(i + 2) % 3]
              - m[(j + 1) % 3][(i + 2) % 3] * m[(j + 2) % 3][(i + 1) % 3]
              for j in range(3)] for i in range(3)]
    det = sum(m[0][k] * minor[k][0] for k in range(3))
    return [[entry / Fraction(det) for entry in row] for row in minor]


def parsed(text):
    rotation, shift = [], []
    for field in text.split(","):
        row = [0, 0, 0]
        for sign, letter in re.findall(r"([+-]?)([xyz])", field):
            row["xyz".index(letter)] = -1 if sign == "-" else 1
        rotation.append(row)
        number = re.search(r"[+-]\d+/\d+$", field)
        shift.append(Fraction(number.group()) if number else Fraction(0))
    return rotation, shift


def written(rotation, shift):
    fields = []
    for row, part in zip(rotation, shift):
        field = "".join(f"{'+' if n > 0 else '-'}{abs(n) if abs(n) > 1 else ''}{'xyz'[i]}"
                        for i, n in enumerate(row) if n)
        fields.append(field + (f"{'+' if part > 0 else ''}{part}" if part else ""))
    return ",".join(fields)


def disguised(operators, letter, source):
    basis = [list(map(Fraction, row)) for row in PRIMITIVE[letter]]
    for _ in range(8):
        i, j = source.sample(range(3), 2)
        factor = source.choice((-2, -1, 1, 2))
        for row in basis:
            row[i] += factor * row[j]
    origin = [Fraction(source.randrange(12), 12) for _ in range(3)]
    back = inverse(basis)
    result = []
    for rotation, shift in operators:
        moved = [a + b - c for a, b, c in zip(times(rotation, origin), shift, origin)]
        turned = [[int(n) for n in row] for row in product(back, product(rotation, basis))]
        result.append((turned, times(back, moved)))
    source.shuffle(result)
    return result


class Peer:
    """A way to the number of a group, its times, and its wrong answers."""

    def __init__(self, name, identify):
        self.name, self.identify = name, identify
        self.spent, self.wrong = [], []

    def answer(self, operators):
        start = time.perf_counter()
        try:
            number = self.identify(operators)
        except Exception as failure:  # whatever is thrown counts as no answer
            number = type(failure).__name__
        return time.perf_counter() - start, number

    def ask(self, name, number, operators):
        seconds, answer = self.answer(operators)
        self.spent.append(seconds)
        if answer != number:
            self.wrong.append(f"{name}: {answer}")


class ForkedPeer(Peer):
    """One whose calls may crash, or take for ever."""

    def answer(self, operators):
        reader, writer = os.pipe()
        child = os.fork()
        if child == 0:
            signal.alarm(LONGEST)
            os.write(writer, json.dumps(super().answer(operators)).encode())
            os._exit(0)
        os.close(writer)
        with os.fdopen(reader) as pipe:
            told = pipe.read()
        os.waitpid(child, 0)
        return json.loads(told) if told else (0, "crashed or took too long")


def spglib_peer():
    import numpy
    import spglib

    def identify(operators):
        once = sorted({(tuple(map(tuple, r)), tuple(n % 1 for n in t)) for r, t in operators})
        rotations = numpy.array([r for r, _ in once], dtype="intc")
        translations = numpy.array([[float(n) for n in t] for _, t in once])
        # It wants a lattice that has these rotations, as the mean of all metrics does, reduced.
        lattice = numpy.linalg.cholesky(sum(r.T @ r for r in rotations) / len(rotations))
        reduced = spglib.niggli_reduce(lattice)
        basis = numpy.rint(numpy.linalg.inv(lattice.T) @ reduced.T)
        back = numpy.linalg.inv(basis)
        found = spglib.get_spacegroup_type_from_symmetry(
            numpy.rint(back @ rotations @ basis).astype("intc"),
            numpy.ascontiguousarray(translations @ back.T % 1), reduced)
        return found["number"] if found else None

    return ForkedPeer(f"spglib {spglib.__version__}, reduced, call", identify)


def cctbx_peer():
    from cctbx import sgtbx

    def identify(operators):
        group = sgtbx.space_group()
        for operator in operators:
            group.expand_smx(sgtbx.rt_mx(written(*operator)))
        return group.type().number()

    return ForkedPeer("cctbx, call", identify)


def peers():
    for make in (spglib_peer, cctbx_peer):
        try:
            yield make()
        except ImportError as failure:
            print(f"not measured: {failure}")


def run(*arguments, given=None):
    return subprocess.run(arguments, input=given, capture_output=True, text=True).stdout


def settings_of(lomar):
    for row in csv.DictReader(run(lomar, "list", "--format", "csv").splitlines()):
        letter = "P" if row["name"].endswith(":R") else row["name"][0]
        operators = [parsed(line) for line in
                     run(lomar, "show", row["name"], "--format", "xyz").split()]
        yield row["name"], int(row["number"]), letter, operators


def main():
    lomar = sys.argv[1]
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 2
    source = random.Random(int(sys.argv[3]) if len(sys.argv) > 3 else 1)

    def identify(text):
        found = re.search(r"No\. (\d+)", run(lomar, "identify", "-", given=text))
        return int(found.group(1)) if found else None

    def fastest(text):
        best = Peer("", identify)
        for _ in range(20):
            best.ask("", 0, text)
        return 1e3 * min(best.spent)

    own = Peer("lomar identify, whole process", identify)
    others = list(peers())
    texts = []
    for _ in range(rounds):
        for name, number, letter, operators in settings_of(lomar):
            given = disguised(operators, letter, source)
            texts.append((len(given), "\n".join(written(*one) for one in given) + "\n"))
            own.ask(name, number, texts[-1][1])
            for peer in others:
                peer.ask(name, number, given)
    print(f"{'':32}{'cases':>8}{'right':>8}{'median, ms':>12}{'longest':>10}")
    for peer in (own, *others):
        print(f"{peer.name:32}{len(peer.spent):8}{len(peer.spent) - len(peer.wrong):8}"
              f"{1e3 * statistics.median(filter(None, peer.spent)):12.2f}"
              f"{1e3 * max(peer.spent):10.2f}")
    slowest = sorted(zip(own.spent, texts), reverse=True)[:20]
    worst = max(fastest(text) for _, (_, text) in slowest)
    largest = max(fastest(text) for count, text in texts if count == 192)
    print(f"fastest of twenty: {worst:.2f} ms at worst, {largest:.2f} ms with 192 operators")
    for wrong in own.wrong:
        print("wrong: " + wrong)
    sys.exit(0 if not own.wrong and max(worst, largest) <= 10 else 1)


main()
