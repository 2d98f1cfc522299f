#!/usr/bin/env python3
"""Checks the message files against the texts the sources ask for.

  check_messages.py [--root FOLDER]          one line per fault, exit code 1 when there is any
  check_messages.py [--root FOLDER] --list   all keys with their default texts as JSON

A text is asked for by VORD_ResourceString("KEY", L"default") or GetVal(L"TEMPLATE", L"CONTROL", L"default"), both with
literals, or stands as {"KEY", L"default"} in an array of TableText. A framework dialog also asks for the texts of its own
controls by template and control name: entries in [TEMPLATE] sections are in use when both names stand in the sources as
literals (CAPTION is the window title).
"""
import argparse
import json
import re
import sys
from pathlib import Path

ROOMS = ("kxgui", "platform", "tavocad", "qt")
SUFFIXES = ("_kr", "_en", "_jp", "_rs", "_ch")
TOKEN = re.compile(
    r'//(?:\\\n|[^\n])*|/\*.*?\*/'
    r'|(?P<raw>(?:u8|[uUL])?R"(?P<fence>[^()\\\s]*)\((?P<rawtext>.*?)\)(?P=fence)")'
    r'|(?P<string>(?:u8|[uUL])?"(?P<text>(?:[^"\\\n]|\\.)*)")'
    r"|(?:u8|[uUL])?'(?:[^'\\\n]|\\.)+'"
    r"|(?P<number>\.?\d(?:'?[\w.])*)"
    r"|(?P<name>[A-Za-z_]\w*)"
    r"|(?P<other>\S)", re.S)
ESCAPE = re.compile(r'\\(?:u([0-9a-fA-F]{4})|U([0-9a-fA-F]{8})|x([0-9a-fA-F]+)|([0-7]{1,3})|\n|(.))', re.S)
SIMPLE = {"n": "\n", "t": "\t", "r": "\r", "0": "\0", "a": "\a", "b": "\b", "f": "\f", "v": "\v"}
DIRECTIVE = re.compile(r'%(?:%|([-+#0]*)(\*|\d+)?(?:\.(\*|\d+))?(?:hh|h|ll|l|L|q|j|z|t)?([diuoxXcsfFeEgGaAp]))')
MNEMONIC = re.compile(r'&(?:&|(\S))')


def unescape(text):
    def one(match):
        short, long, hexa, octal, letter = match.groups()
        if short or long or hexa:
            return chr(int(short or long or hexa, 16))
        if octal:
            return chr(int(octal, 8))
        return SIMPLE.get(letter, letter) if letter else ""
    return ESCAPE.sub(one, text)


def tokens(source):
    """(kind, value, line) with kind "text", "name" or "other"; adjacent literals are one text."""
    out = []
    for match in TOKEN.finditer(source):
        if match["string"] is not None or match["raw"] is not None:
            value = unescape(match["text"]) if match["string"] is not None else match["rawtext"]
            if out and out[-1][0] == "text":
                out[-1] = ("text", out[-1][1] + value, out[-1][2])
            else:
                out.append(("text", value, source.count("\n", 0, match.start()) + 1))
        elif match["name"] or match["number"] or match["other"]:
            kind = "name" if match["name"] else "other"
            out.append((kind, match[0], source.count("\n", 0, match.start()) + 1))
    return out


def literal_arguments(items, at, count, close=")"):
    """The literals of a call or row whose opening bracket is items[at], or None when it has others."""
    values = []
    for number in range(count):
        end = close if number == count - 1 else ","
        pair = items[at + 1 + 2 * number: at + 3 + 2 * number]
        if len(pair) < 2 or pair[0][0] != "text" or pair[1][1] != end or pair[1][0] == "text":
            return None
        values.append(pair[0][1])
    return values


def table_rows(items, at):
    """(line, [key, default]) for each row of the array `TableText name[] = {...}` whose type is items[at]; None instead
    of the pair where a row has others than literals. Nothing when it is no such array."""
    if [value for _, value, _ in items[at + 2:at + 6]] != ["[", "]", "=", "{"]:
        return []
    rows = []
    at += 6
    while at < len(items) and items[at][1] == "{":
        rows.append((items[at][2], literal_arguments(items, at, 2, "}")))
        while at < len(items) and (items[at][1] != "}" or items[at][0] == "text"):
            at += 1
        at += 2 if at + 1 < len(items) and items[at + 1][1] == "," else 1
    return rows


class Sources:
    def __init__(self, root):
        self.texts = {}  # (section, key) -> {default: first place}
        self.literals = set()
        self.faults = []
        for room in ROOMS:
            for path in sorted((root / room).rglob("*")):
                if path.suffix in (".h", ".cpp") and path.is_file():
                    self.read(path, path.relative_to(root).as_posix())

    def read(self, path, name):
        items = tokens(path.read_text(encoding="utf-8"))
        self.literals.update(value for kind, value, _ in items if kind == "text")
        own = name.startswith("platform/text/")  # where the two are declared
        for at, (kind, value, line) in enumerate(items):
            if kind == "name" and value == "TableText":
                for place, row in table_rows(items, at):
                    self.add(row and ["", *row], f"{name}:{place}", needed=True)
            if kind != "name" or value not in ("VORD_ResourceString", "GetVal"):
                continue
            opening = at + 1
            if value == "VORD_ResourceString" and opening < len(items) and items[opening][0] == "name":
                opening += 1  # a named object
            if opening >= len(items) or items[opening][1] not in ("(", "{"):
                continue
            if value == "VORD_ResourceString":
                found = literal_arguments(items, opening, 2)
                self.add(found and ["", *found], f"{name}:{line}", needed=not own)
            else:
                self.add(literal_arguments(items, opening, 3), f"{name}:{line}", needed=False)

    def add(self, found, place, needed):
        if found:
            self.texts.setdefault((found[0], found[1]), {}).setdefault(found[2], place)
        elif needed:
            self.faults.append(f"{place}: key and default text must be literals")


class MessageFile:
    def __init__(self, path, name):
        self.name = name
        self.texts = {}
        self.faults = []
        section = ""
        try:
            content = path.read_bytes().decode("utf-8-sig")
        except (OSError, UnicodeDecodeError) as error:
            self.faults.append(f"{name}: {error}")
            content = ""
        for number, line in enumerate(content.split("\n"), 1):
            line = line.strip(" \t\r")
            if not line or line[0] in ";#":
                continue
            if re.fullmatch(r"\[[^\]]+\]", line):
                section = line[1:-1].strip()
                continue
            key, equals, text = (part.strip(" \t") for part in line.partition("="))
            if text.startswith('"'):
                quoted = re.fullmatch(r'"((?:[^"\\]|\\.)*)"', text)
                text = quoted[1] if quoted else "\\"
            if not key or not equals or not re.fullmatch(r'(?:[^\\]|\\[ntrs\\"])*', text):
                self.faults.append(f"{name}:{number}: broken line")
            elif (section, key) in self.texts:
                self.faults.append(f"{name}:{number}: {key} is there twice")
            else:
                self.texts[section, key] = re.sub(r'\\(.)', lambda m: {"s": " "}.get(m[1], SIMPLE.get(m[1], m[1])), text)


def directives(text):
    return [f"{'*' * (m.group(0).count('*'))}{'d' if m[4] in 'di' else m[4]}"
            for m in DIRECTIVE.finditer(text) if m[4]]


def has_mnemonic(text):
    return any(match[1] for match in MNEMONIC.finditer(text))


def label(entry):
    return f"[{entry[0]}] {entry[1]}" if entry[0] else entry[1]


def check(root):
    """(faults, warnings), each a list of lines."""
    sources = Sources(root)
    files = [MessageFile(root / "messages" / f"kxgui{suffix}.ini", f"messages/kxgui{suffix}.ini")
             for suffix in SUFFIXES]
    faults = sources.faults + [fault for file in files for fault in file.faults]
    warnings = []
    korean = files[0].texts
    wanted = dict(sources.texts)
    for file in files:
        for entry in file.texts:
            section, key = entry
            if section and section in sources.literals and (key == "CAPTION" or key in sources.literals):
                wanted.setdefault(entry, {})
            elif entry not in sources.texts:
                faults.append(f"{file.name}: {label(entry)} is used nowhere")
    for entry, defaults in sorted(wanted.items()):
        if len(defaults) > 1:
            places = ", ".join(defaults.values())
            warnings.append(f"{label(entry)} has different default texts ({places}); {files[0].name} decides")
        if defaults and entry in korean and korean[entry] not in defaults:
            faults.append(f"{files[0].name}: {label(entry)} is not the default text of {next(iter(defaults.values()))}")
        # Every default is handed the same arguments, so the first stands for all of them.
        reference = next(iter(defaults), korean.get(entry, ""))
        for default in defaults:
            if directives(default) != directives(reference):
                faults.append(f"{defaults[default]}: {label(entry)} has other printf directives than {defaults[reference]}")
        for file in files:
            if entry not in file.texts:
                faults.append(f"{file.name}: {label(entry)} is missing")
                continue
            text = file.texts[entry]
            if directives(text) != directives(reference):
                faults.append(f"{file.name}: {label(entry)} has the printf directives {directives(text)}"
                              f" instead of {directives(reference)}")
            if has_mnemonic(reference) and not has_mnemonic(text):
                faults.append(f"{file.name}: {label(entry)} has no mnemonic letter (&)")
    return faults, warnings


def listing(root):
    sources = Sources(root)
    return [{"section": section, "key": key, "defaults": list(defaults), "places": list(defaults.values())}
            for (section, key), defaults in sorted(sources.texts.items())]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--root", type=Path, default=Path(__file__).resolve().parent.parent)
    parser.add_argument("--list", action="store_true")
    options = parser.parse_args()
    if options.list:
        json.dump(listing(options.root), sys.stdout, ensure_ascii=False, indent=1)
        print()
        return 0
    faults, warnings = check(options.root)
    for line in warnings:
        print("warning:", line)
    for line in faults:
        print(line)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
