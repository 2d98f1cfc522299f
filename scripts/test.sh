#!/bin/bash
# Installs what is missing, builds everything with warnings as errors and passes all tests, twice:
# - the release build with the Qt face, whose tests run on Qt's offscreen platform;
# - the core under the address and undefined-behaviour sanitizers, with the fuzz drivers on their stored inputs. This build
#   is told that there is no Qt, so it also shows that the core needs none.
# Both install themselves and build a consumer against what they installed.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_deps.sh
export QT_QPA_PLATFORM=offscreen
unset DISPLAY WAYLAND_DISPLAY
launcher=()
if command -v ccache >/dev/null; then launcher=(-D CMAKE_CXX_COMPILER_LAUNCHER=ccache); fi

failed=0
for preset in release sanitize; do
    echo "== $preset: configure and build"
    cmake --preset "$preset" "${launcher[@]}"
    cmake --build --preset "$preset"
    if [ "$preset" = sanitize ] && grep -q '^Qt6.*_DIR:' build/sanitize/CMakeCache.txt; then
        echo "test.sh: the core was built without its Qt face and yet looked for Qt" >&2
        exit 1
    fi
    echo "== $preset: tests"
    ctest --preset "$preset" -j "$(nproc)" | tee "build/$preset/ctest.log" || failed=1
done

echo
for preset in release sanitize; do
    echo "== $preset"
    sed -n '/tests passed/,$p' "build/$preset/ctest.log"
done
exit $failed
