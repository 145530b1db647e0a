#!/usr/bin/env bash
# Sets up a fresh machine, builds the liveview command and plays a scenario (by default the food
# delivery) against the embedded notification service.
#   scripts/run.sh [SCENARIO] [liveview play options, e.g. --events -v --format json]
# SCENARIO may be given relative to the directory you call this from. The built command stays at
# build-run/tools/liveview (printed on standard error); `cmake --install build-run --prefix DIR`
# puts it in DIR/bin.
set -euo pipefail
caller="$(pwd)"
root="$(cd "$(dirname "$0")/.." && pwd)"
cd "$root"
scripts/setup.sh
cmake -S . -B build-run -G Ninja -DCMAKE_BUILD_TYPE=Release -DLV_BUILD_TESTS=OFF >/dev/null
cmake --build build-run --target liveview -j2 >/dev/null
echo "liveview: the command is $root/build-run/tools/liveview" >&2

scenario="${1:-$root/examples/scenarios/food-delivery.json}"
shift || true
case "$scenario" in
    /*) ;;
    *) scenario="$caller/$scenario" ;;
esac
cd "$caller"
exec "$root/build-run/tools/liveview" play "$scenario" "$@"
