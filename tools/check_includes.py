#!/usr/bin/env python3
"""Checks what the sources include.

- A file under src/ includes only files of its own layer and of layers below it. The rooms of the
  library and the driver are on one level and don't use each other, but that magnetic may use groups
  and scattering.
- An include in quotes is the path from src/ of a header that is there.
- Headers of an operating system, and conditions on one, stand in the platform files alone.
- A file under explorer/ includes only files of its own room and of rooms below it; the library is
  for the adapter alone, and each of the further libraries for the rooms that it is there for.
- No file under explorer/ that is compiled for the browser uses algorithms of std::ranges, which the
  C++ library of that compiler lacks.
- A source defines members of classes that it or its own header declares, and of the class that its
  name begins with.
- Every header begins with #pragma once, and headers don't include each other in a circle.

Prints one line for each fault and ends with status 1 if there is any.
"""

import re
import sys
from pathlib import Path

# From the ground up; those in one row are side by side.
LAYERS = [["foundation"], ["textin"], ["textout"], ["driver/request"], ["catalogue"], ["symmetry"],
          ["sgfile"], ["reflections"],
          ["library/groups", "library/scattering", "library/magnetic", "library/numeric", "driver"]]
LEVELS = {layer: level for level, row in enumerate(LAYERS) for layer in row}
SIDEWAYS = {("library/magnetic", "library/groups"), ("library/magnetic", "library/scattering")}
PLATFORM_FILES = {"foundation/platform_posix.cpp", "foundation/platform_windows.cpp"}

# The rooms of lomar, from the ground up.
ROOMS = ["group", "analysis", "formats", "drawing", "page", "command"]
LIBRARY_USERS = {"group/library_adapter.cpp"}
EXPLORER_PLATFORM_FILES = {"command/system_posix.cpp", "command/system_windows.cpp"}
# Which rooms use which further libraries.
FURTHER = {"CLI": {"command"}, "nlohmann": {"formats", "page", "command"}, "gemmi": {"formats"},
           "tao": set(), "fmt": set(ROOMS)}

INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]*)[>"]')
CONDITION = re.compile(r"\s*#\s*(?:if|ifdef|ifndef|elif)\b(.*)")
CLASS = re.compile(r"\b(?:class|struct)\s+(\w+)[^;()]*?\{")
# A definition begins at the left edge, what it looks like within a function doesn't.
MEMBER = re.compile(r"^(?:\S[^\n();]*?[ &*])?(\w+)(?:<[^<>\n]*>)?::(?:~\w+|operator\W+|\w+)\(",
                    re.MULTILINE)
SYSTEM_MACRO = re.compile(
    r"\b(_WIN32|_WIN64|WIN32|_MSC_VER|__MINGW\w*|__CYGWIN__|__linux\w*|__unix\w*|unix|linux|"
    r"__APPLE__|__ANDROID__|\w*BSD\w*|_POSIX\w*)\b")
SYSTEM_HEADER = re.compile(
    r"(windows|winsock2?|winbase|shellapi|shlobj|io|direct|process|conio|unistd|fcntl|dirent|pwd|"
    r"grp|poll|spawn|dlfcn|termios|glob|ftw|libgen|pthread|(sys|linux|asm|arpa|netinet)/.*)\.h",
    re.IGNORECASE)


def layer_of(path):
    """The name of the layer of a file, given as its path from src/."""
    return path.rpartition("/")[0]


def may_include(user, used):
    return user == used or (user, used) in SIDEWAYS or LEVELS[used] < LEVELS[user]


def strip_comments(file):
    """The text of a file without its comments; lines keep their numbers."""
    text = file.read_text(encoding="utf-8", errors="replace")
    text = re.sub(r"/\*.*?\*/", lambda m: "\n" * m.group().count("\n"), text, flags=re.DOTALL)
    return re.sub(r"//.*", "", text)


def directives(file):
    """The numbers and texts of the lines of a file that are outside comments."""
    return enumerate(strip_comments(file).splitlines(), start=1)


def check_source(src, path, headers, graph):
    """Yields the faults of one file under src/ and enters its includes into the graph."""
    layer = layer_of(path)
    if layer not in LEVELS:
        yield f"src/{path}:1: {layer}/ is no layer"
        return
    for number, line in directives(src / path):
        place = f"src/{path}:{number}"
        condition = CONDITION.match(line)
        if condition and path not in PLATFORM_FILES:
            macro = SYSTEM_MACRO.search(condition.group(1))
            if macro:
                yield f"{place}: condition on {macro.group()} outside the platform files"
        include = INCLUDE.match(line)
        if not include:
            continue
        quote, used = include.groups()
        if SYSTEM_HEADER.fullmatch(used) and path not in PLATFORM_FILES:
            yield f"{place}: <{used}> outside the platform files"
        elif quote == "<":
            if used in headers:
                yield f"{place}: {used} belongs in quotes"
        elif used not in headers:
            yield f"{place}: no such header: src/{used}"
        else:
            graph.setdefault(path, []).append(used)
            if layer_of(used) not in LEVELS:
                continue  # its own line says so
            if not may_include(layer, layer_of(used)):
                yield f"{place}: {layer} must not include {layer_of(used)} ({used})"


def lines_with_ranges(explorer, path):
    text = strip_comments(explorer / path)
    for match in re.finditer(r"\bstd::ranges::", text):
        yield f"explorer/{path}:{text.count(chr(10), 0, match.start()) + 1}: std::ranges"


def check_explorer_source(explorer, path, headers, src_headers, graph):
    """Yields the faults of one file under explorer/ and enters its includes into the graph."""
    room = layer_of(path)
    if room not in ROOMS:
        yield f"explorer/{path}:1: {room}/ is no room"
        return
    if room != "command":
        yield from lines_with_ranges(explorer, path)
    for number, line in directives(explorer / path):
        place = f"explorer/{path}:{number}"
        condition = CONDITION.match(line)
        macro = condition and SYSTEM_MACRO.search(condition.group(1))
        if macro and path not in EXPLORER_PLATFORM_FILES:
            yield f"{place}: condition on {macro.group()} outside the platform files"
        include = INCLUDE.match(line)
        if not include:
            continue
        quote, used = include.groups()
        further = used.partition("/")[0]
        if SYSTEM_HEADER.fullmatch(used) and path not in EXPLORER_PLATFORM_FILES:
            yield f"{place}: <{used}> outside the platform files"
        elif quote == "<" and further in FURTHER and room not in FURTHER[further]:
            yield f"{place}: {room} must not include <{used}>"
        elif quote == "<":
            if used in headers or used in src_headers:
                yield f"{place}: {used} belongs in quotes"
        elif used in src_headers:
            if path not in LIBRARY_USERS:
                yield f"{place}: the library is for the adapter alone ({used})"
        elif used not in headers:
            yield f"{place}: no such header: explorer/{used}"
        else:
            graph.setdefault(path, []).append(used)
            if layer_of(used) in ROOMS and ROOMS.index(layer_of(used)) > ROOMS.index(room):
                yield f"{place}: {room} must not include {layer_of(used)} ({used})"


def check_members(src, path):
    """Yields a line for each member that this source shouldn't define."""
    text = strip_comments(src / path)
    header = (src / path).with_suffix(".h")
    declared = set(CLASS.findall(text))
    if header.exists():
        declared |= set(CLASS.findall(strip_comments(header)))
    stem = header.stem
    for match in MEMBER.finditer(text):
        name = match.group(1)
        if name == "std" or name in declared or stem == name or stem.startswith(name + "_"):
            continue
        number = text.count("\n", 0, match.start(1)) + 1
        yield f"src/{path}:{number}: member of {name} outside {name}*.cpp"


def circle_from(path, graph, done, road):
    """The first circle of includes that is met from a header on, or None."""
    if path in road:
        return road[road.index(path):] + [path]
    if path in done:
        return None
    done.add(path)
    for used in graph.get(path, []):
        circle = circle_from(used, graph, done, road + [path])
        if circle:
            return circle
    return None


def sources_of(folder):
    """The paths, from the folder, of the sources and headers in it, and the headers by themselves."""
    files = sorted(f for f in folder.rglob("*") if f.suffix in (".h", ".cpp"))
    paths = [f.relative_to(folder).as_posix() for f in files]
    return paths, {p for p in paths if p.endswith(".h")}


def circles(name, headers, graph):
    """Yields a fault for each circle of includes."""
    done = set()
    for path in sorted(headers):
        circle = circle_from(path, graph, done, [])
        if circle:
            yield f"{name}/{circle[0]}:1: circle of includes: {' -> '.join(circle)}"


def main():
    root = Path(__file__).resolve().parent.parent
    src = root / "src"
    explorer = root / "explorer"
    paths, headers = sources_of(src)
    explorer_paths, explorer_headers = sources_of(explorer)
    if not paths or not explorer_paths:
        print("no sources")
        return 1

    faults = []
    graph = {}
    for path in paths:
        faults += check_source(src, path, headers, graph)
        if path.endswith(".cpp"):
            faults += check_members(src, path)
    faults += circles("src", headers, graph)
    explorer_graph = {}
    for path in explorer_paths:
        faults += check_explorer_source(explorer, path, explorer_headers, headers, explorer_graph)
    faults += circles("explorer", explorer_headers, explorer_graph)

    for folder in ("src", "explorer", "tests", "bench", "fuzz"):
        for header in sorted((root / folder).rglob("*.h")):
            if not re.search(r"^#pragma once$", header.read_text(errors="replace"), re.MULTILINE):
                faults.append(f"{header.relative_to(root).as_posix()}:1: no #pragma once")

    n_files = len(paths) + len(explorer_paths)
    print("\n".join(faults) or f"check_includes: {n_files} files are in order")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
