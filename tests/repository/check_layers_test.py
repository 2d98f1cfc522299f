#!/usr/bin/env python3
"""check_layers.py on a small tree: each line of a file is either fine or the one fault named behind it."""
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
import check_layers  # noqa: E402

FILES = {
    "platform/text/a.cpp": [('#include "platform/text/b.h"', None), ('#include "platform/Export.h"', None),
                            ("#include <unicode/coll.h>", None), ("#include <QString>", "Qt is known only"),
                            ('#include "platform/host/b.h"', "may not include")],
    "platform/toolkit/headless/a.h": [('#include "platform/toolkit/b.h"', None),
                                      ('#  include "platform/drawing/b.h"', "may not include"),
                                      ("#include <unicode/coll.h>", "ICU is known only")],
    "kxgui/frame/a.cpp": [('#include "kxgui/controls/b.h"', None), ('#include "platform/host/units/b.h"', None),
                          ('#include "qt/b.h"', "may not include"), ('#include "b.h"', "in no room"),
                          ('#include "tavocad/b.h"', "may not include"), ("#include <QtWidgets/QLabel>", "Qt is known")],
    "qt/a.cpp": [("#include <QString>", None), ('#include "kxgui/frame/b.h"', "may not include"),
                 ('#include "platform/frx/b.h"', "may not include")],
    "tavocad/a.cpp": [('#include "kxgui/frame/b.h"', None), ('#include "tavocad/window/b.h"', "may not include"),
                      ("#include <QString>", "Qt is known")],
    "tavocad/window/a.cpp": [('#include "qt/b.h"', None), ('#include "tavocad/b.h"', None), ("#include <QString>", None)],
    "docs/a.md": [("see Part " + "1.2", "not here"), ("as is" + "sue 7 says", "tracker"), ("# TO" + "DO", "unfinished"),
                  ("/ho" + "me/me/x", "one machine"), ("${HOME}/wo" + "rk/x and a/wo" + "rk/b", None), ("part 2 of 3", None)],
}

with tempfile.TemporaryDirectory() as folder:
    root = Path(folder)
    for name, lines in FILES.items():
        (root / name).parent.mkdir(parents=True, exist_ok=True)
        (root / name).write_text("\n".join(line for line, _ in lines) + "\n", encoding="utf-8")
    faults = check_layers.check(root)

wanted = {f"{name}:{number}": fault for name, lines in FILES.items() for number, (_, fault) in enumerate(lines, 1)}
wrong = 0
for place, fault in wanted.items():
    found = [line for line in faults if line.startswith(place + ": ")]
    if (fault is None and found) or (fault is not None and (len(found) != 1 or fault not in found[0])):
        print(f"{place}: wanted {fault}, found {found}")
        wrong += 1
sys.exit(1 if wrong else 0)
