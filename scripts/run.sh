#!/bin/sh
# Installs what is missing, builds TavoCAD and opens a drawing in it: scripts/run.sh [drawing.dxf]
# Without a display it shows the same on Qt's offscreen platform: units are changed, layers frozen, both undone, the drawing
# saved in copies, and the pictures and drawings of it are put into out/.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
drawing=${1:-$root/samples/workshop.dxf}
if [ ! -f "$drawing" ] || [ ! -r "$drawing" ]; then
    echo "run.sh: there is no readable drawing $drawing" >&2
    exit 1
fi
drawing=$(realpath "$drawing")

cd "$root"
scripts/install_deps.sh
cmake --preset release
cmake --build --preset release --target tavocad
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec build/release/bin/tavocad "$drawing"
fi
echo "There is no display: TavoCAD runs on the offscreen platform."
exec python3 scripts/offscreen_tour.py build/release/bin/tavocad "$drawing" out
