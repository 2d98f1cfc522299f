#!/usr/bin/env python3
"""Checks that every room includes only what it may, and that no file says what only its author's desk can explain.

  check_layers.py [--root FOLDER]     one line per fault, exit code 1 when there is any

The rooms and what they stand on are described in docs/architecture.md.
"""
import argparse
import re
import subprocess
import sys
from pathlib import Path

# room: the folders its sources may include from, besides itself. Rooms that are not listed (tests, examples) may use all.
ROOMS = {
    "platform/text": [],
    "platform/drawing": ["platform/text"],
    "platform/host": ["platform/drawing", "platform/text"],
    "platform/toolkit": ["platform/text"],
    "platform/frx": ["platform/toolkit", "platform/text"],
    "kxgui": ["platform/frx", "platform/toolkit", "platform/host", "platform/drawing", "platform/text"],
    "qt": ["platform/toolkit", "platform/text"],
    "tavocad/window": ["tavocad", "qt", "kxgui", "platform"],
    "tavocad": ["kxgui", "platform"],
}
EXPORTS = {"platform/Export.h", "kxgui/Export.h", "qt/Export.h"}  # made by the build; each for its own library
# library: how its headers are named, and the only rooms that know it
LIBRARIES = {
    "Qt": (r"Q[A-Z]\w*(?:/.*)?|Qt\w+/.*", ["qt", "tavocad/window", "tests", "examples", "bench"]),
    "ICU": (r"unicode/.*", ["platform/text", "bench"]),
    "fontconfig": (r"fontconfig/.*", ["platform/host"]),
    "fmt": (r"fmt/.*", ["platform/text"]),
    "SimpleIni": (r"SimpleIni\.h", ["platform/text"]),
    "nlohmann-json": (r"nlohmann/.*", ["tavocad", "tests"]),
    "CLI11": (r"CLI/.*", ["tavocad"]),
}
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
# Spelled so that this file does not contain what it looks for.
NOTES = [
    (re.compile(r"(?<![\w.}/])/(?:hom[e]|roo[t]|wor[k])/"), "a path of one machine"),
    (re.compile(r"\bPart [0-9]+\.[0-9]+|\b[Ss]pe[c]\.md|\bdesig[n]\.md"), "a reference to a document that is not here"),
    (re.compile(r"\b[Ii]ssu[e]s? #?[0-9]+"), "a number of the tracker"),
    (re.compile(r"\b(?:TO[D]O|FIX[M]E|XX[X]|NOLIN[T])\b"), "a note of unfinished work"),
]
SOURCE = {".h", ".cpp"}
TEXT = SOURCE | {".md", ".py", ".sh", ".txt", ".cmake", ".in", ".json", ".jsonl", ".ini", ".ui", ".yml", ""}


def files_of(root):
    """The files of the checkout: what git keeps, or would; without git everything but build and output folders."""
    try:
        listed = subprocess.run(["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                                capture_output=True, check=True).stdout.decode().split("\0")
        names = [name for name in listed if name]
    except (OSError, subprocess.CalledProcessError):
        names = [p.relative_to(root).as_posix() for p in root.rglob("*")]
        names = [name for name in names if name.split("/")[0] not in ("build", "out", ".git")]
    return [name for name in sorted(names) if (root / name).is_file()]


def under(name, folder):
    return name == folder or name.startswith(folder + "/")


def room_of(name):
    return max((room for room in ROOMS if under(name, room)), key=len, default=None)


def include_fault(name, own, system):
    """Why this file may not include that, or None. Own headers are named from the root, as everything includes them."""
    room = room_of(name)
    if system:
        for library, (pattern, rooms) in LIBRARIES.items():
            if re.fullmatch(pattern, system) and not any(under(name, allowed) for allowed in rooms):
                return f"<{system}>: {library} is known only in {', '.join(rooms)}"
        return None
    if room is None:
        return None
    if own in EXPORTS:
        allowed = room.split("/")[0] == own.split("/")[0] or room == "tavocad"
    else:
        target = room_of(own)
        if target is None:
            return f'"{own}" is in no room; write include paths from the root of the checkout'
        allowed = target == room or any(under(target, folder) for folder in ROOMS[room]
                                        if not (folder == "tavocad" and target != "tavocad"))
    return None if allowed else f'"{own}": {room} may not include from there'


def check(root):
    faults = []
    for name in files_of(root):
        path = root / name
        if path.suffix not in TEXT:
            continue
        try:
            lines = path.read_text(encoding="utf-8").splitlines()
        except UnicodeDecodeError:
            continue  # a drawing or another data file
        for number, line in enumerate(lines, 1):
            match = INCLUDE.match(line) if path.suffix in SOURCE else None
            fault = include_fault(name, *match.groups()) if match else None
            if fault:
                faults.append(f"{name}:{number}: {fault}")
            faults += [f"{name}:{number}: {what}" for pattern, what in NOTES if pattern.search(line)]
    return faults


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--root", type=Path, default=Path(__file__).resolve().parent.parent)
    faults = check(parser.parse_args().root.resolve())
    print("\n".join(faults) if faults else "all includes and texts as they should be")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
