#!/usr/bin/env python3
"""Checks that the code in the documents is code that is built and run.

  check_doc_code.py [--root FOLDER] [--update]

A code block behind a line `<!-- code: PATH#REGION -->` (or `<!-- code: PATH -->` for a whole file) must be, word for word,
what stands in that file between two lines `//! [REGION]`. With --update the documents are brought up to date instead.
"""
import argparse
import re
import sys
from pathlib import Path

BLOCK = re.compile(r"(<!-- code: ([^\s#]+)(?:#([^>]+?))? -->\n```\w*\n)(.*?)(```\n)", re.S)


def region(path, name):
    """The text between the two marks; the whole file without its marks for no name."""
    lines = path.read_text(encoding="utf-8").splitlines(keepends=True)
    if name is None:
        return "".join(line for line in lines if not line.startswith("//! ["))
    marks = [number for number, line in enumerate(lines) if line.strip() == f"//! [{name}]"]
    if len(marks) != 2:
        raise ValueError(f"{path.name} has {len(marks)} marks [{name}] instead of two")
    return "".join(lines[marks[0] + 1:marks[1]])


def bring_up_to_date(text, root):
    """The document's text with all code as it is in the sources, and how many blocks it has."""
    blocks = BLOCK.findall(text)
    if len(blocks) != text.count("<!-- code:"):
        raise ValueError("a code mark is not followed by a code block")
    return BLOCK.sub(lambda m: m[1] + region(root / m[2], m[3]) + m[5], text), len(blocks)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--root", type=Path, default=Path(__file__).resolve().parent.parent)
    parser.add_argument("--update", action="store_true")
    options = parser.parse_args()
    faults = total = 0
    for document in [options.root / "README.md", *sorted((options.root / "docs").glob("*.md"))]:
        text = document.read_text(encoding="utf-8")
        try:
            wanted, blocks = bring_up_to_date(text, options.root)
        except (OSError, ValueError) as error:
            print(f"{document.name}: {error}")
            faults += 1
            continue
        total += blocks
        if wanted != text and options.update:
            document.write_text(wanted, encoding="utf-8")
        elif wanted != text:
            print(f"{document.name}: its code is not what the sources say; run scripts/check_doc_code.py --update")
            faults += 1
    if not total:
        print("no document shows any code of the sources")
    return 1 if faults or not total else 0


if __name__ == "__main__":
    sys.exit(main())
