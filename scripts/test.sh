#!/bin/bash
# Installs what is missing, builds everything with warnings as errors and passes all tests, twice:
# - the release build with the Qt face, whose tests run on Qt's offscreen platform;
# - the core under the address and undefined-behaviour sanitizers, with the fuzz drivers on their stored inputs. This build
#   is told that there is no Qt, so it also shows that the core needs none.
# Both install themselves and build a consumer against what they installed. Then the fuzz drivers run shortly, guided by
# coverage, from their stored inputs on; FUZZ_SECONDS says how long each.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_deps.sh clang libclang-rt-dev
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

echo "== libfuzzer: configure and build"
cmake --preset libfuzzer "${launcher[@]}"
cmake --build --preset libfuzzer
for driver in drawing tables objects mtext scene layercsv layerfilters; do
    echo "== libfuzzer: $driver"
    found=build/libfuzzer/found/$driver # working folder and what breaks the driver
    mkdir -p "$found/corpus"
    case $driver in
        mtext) words=fuzz/mtext.dict ;;
        layercsv | layerfilters) words=fuzz/layers.dict ;;
        *) words=fuzz/dxf.dict ;;
    esac
    build/libfuzzer/bin/fuzz_$driver -dict=$words -max_len=16384 -timeout=20 -rss_limit_mb=3072 \
        -max_total_time="${FUZZ_SECONDS:-15}" -print_final_stats=1 -verbosity=0 -artifact_prefix="$found/" \
        "$found/corpus" "fuzz/$driver" || failed=1
done

echo
for preset in release sanitize; do
    echo "== $preset"
    sed -n '/tests passed/,$p' "build/$preset/ctest.log"
done
exit $failed
