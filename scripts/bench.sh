#!/bin/bash
# Builds and runs all measurements, or those named: scripts/bench.sh [bench_messages ...]
# Each prints its ratios and fails when one is above its limit. Other work on the machine falsifies them.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_deps.sh
cmake --preset release -D KXGUI_BUILD_BENCH=ON
cmake --build --preset release

programs=()
for program in build/release/bin/bench_*; do
    name=$(basename "$program")
    if [ $# -eq 0 ] || printf '%s\n' "$@" | grep -qx "$name"; then programs+=("$program"); fi
done
if [ ${#programs[@]} -eq 0 ]; then
    echo "bench.sh: no such measurement: $*" >&2
    exit 1
fi
failed=0
for program in "${programs[@]}"; do
    echo "== $(basename "$program")"
    QT_QPA_PLATFORM=offscreen "$program" || failed=1
done
exit $failed
