#!/usr/bin/env python3
"""Shows TavoCAD at work where there is no display: offscreen_tour.py TAVOCAD DRAWING FOLDER

Opens the drawing, changes its length units in the dialog as a person would, saves a copy, undoes the change and saves
another copy. Pictures of each step and both copies go into the folder; the drawing itself is not touched. The exit code
is 1 when a step fails, when the change does more than its header lines or when the undone copy is not the drawing again.
"""
import difflib
import json
import os
import re
import subprocess
import sys
from pathlib import Path


class Tavocad:
    """The program at the other end of a pipe; docs/automation.md describes the requests."""

    def __init__(self, program, pictures):
        self.process = subprocess.Popen(
            [program, "--automation", "--face", "qt", "--language", "en", "--screenshots", pictures],
            # What Qt says about the offscreen platform's limits is no fault of the tour.
            env=dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_LOGGING_RULES="default.warning=false"), encoding="utf-8",
            stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def ask(self, do, **fields):
        try:
            self.process.stdin.write(json.dumps({"do": do, **fields}) + "\n")
            self.process.stdin.flush()
            line = self.process.stdout.readline()
        except BrokenPipeError:
            line = ""
        if not line:
            sys.exit(f"tavocad ended at the request {do}, exit code {self.process.wait()}")
        reply = json.loads(line)
        if not reply["ok"]:
            sys.exit(f"{do}: {reply['error']}")
        for message in reply["messages"]:
            print("   ", message)
        return reply

    def control(self, name):
        return next(c for c in self.ask("dialog")["dialog"]["controls"] if c["name"] == name)

    def end(self):
        self.process.stdin.close()
        return self.process.wait()


def header_and_rest(content):
    """The drawing's bytes up to the end of its first section, which is the header, and behind."""
    end = re.search(rb"\n *0\r?\nENDSEC", content)
    return (content[:end.start()], content[end.start():]) if end else (content, b"")


def change_length_type(program):
    """Picks the next length type of the list and closes the dialog; answers what was picked."""
    types = program.control("IDC_UNITS_LTYPE")
    index = (types["selection"][0] + 1) % len(types["items"]) if types["selection"] else 0
    program.ask("choose", control="IDC_UNITS_LTYPE", index=index)
    program.ask("screenshot", path="2-units-changed.png")
    if program.ask("click", control="IDOK")["modal"]:  # the question about inches
        program.ask("screenshot", path="3-question.png")
        program.ask("click", control="IDOK")
    return types["items"][index]


def freeze_layers(program):
    """Freezes every layer but the current one in the layer manager, as one step."""
    print("LAYER: the layer manager")
    program.ask("command", name="LAYER")
    layers = program.control("IDC_LAYER_LIST")
    current = (layers["selection"] or [0])[0]
    others = [row for row in range(layers["rowCount"]) if row != current]
    if others:
        ranges = [[0, current - 1], [current + 1, layers["rowCount"] - 1]]
        program.ask("selectRows", control="IDC_LAYER_LIST", ranges=[r for r in ranges if r[0] <= r[1]])
        program.ask("cell", control="IDC_LAYER_LIST", row=others[0], column=3)
        print(f"    {len(others)} frozen or thawed")
    program.ask("screenshot", path="4-layers.png")
    program.ask("click", control="IDOK")
    program.ask("screenshot", path="5-drawing-frozen.png")
    return bool(others)


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    tavocad, drawing, folder = sys.argv[1], Path(sys.argv[2]).resolve(), Path(sys.argv[3]).resolve()
    folder.mkdir(parents=True, exist_ok=True)
    changed, undone = folder / f"{drawing.stem}-changed.dxf", folder / f"{drawing.stem}-undone.dxf"

    program = Tavocad(tavocad, str(folder))
    print(f"Opening {drawing}")
    program.ask("open", path=str(drawing))
    program.ask("screenshot", path="0-drawing.png")
    print("UNITS: the dialog of the drawing's units")
    program.ask("command", name="UNITS")
    program.ask("screenshot", path="1-units.png")
    print(f"    length type: {change_length_type(program)}")
    program.ask("save", path=str(changed), force=True)
    frozen = freeze_layers(program)
    print("Undo")
    if frozen:
        program.ask("undo")
    program.ask("undo")
    program.ask("save", path=str(undone), force=True)
    code = program.end()

    before, after = header_and_rest(drawing.read_bytes()), header_and_rest(changed.read_bytes())
    print("Lines of the saved drawing that differ:")
    lines = [[line.decode(errors="replace") for line in part[0].splitlines()] for part in (before, after)]
    for line in difflib.unified_diff(*lines, n=1, lineterm=""):
        if not line.startswith(("---", "+++", "@@")):
            print("   ", line)
    print(f"Pictures and drawings: {folder}")
    if before[1] != after[1]:
        sys.exit("the change did more than its header lines")
    if undone.read_bytes() != drawing.read_bytes():
        sys.exit("the undone copy is not the drawing again")
    return code


if __name__ == "__main__":
    sys.exit(main())
