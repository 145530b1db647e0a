#!/usr/bin/env bash
# Sets up a fresh machine, builds the liveview command and plays a scenario (by default the food
# delivery) against the embedded notification service.
#   scripts/run.sh [SCENARIO] [liveview play options, e.g. --events -v]
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake -S . -B build-run -G Ninja -DCMAKE_BUILD_TYPE=Release -DLV_BUILD_TESTS=OFF >/dev/null
cmake --build build-run --target liveview -j2 >/dev/null
scenario="${1:-examples/scenarios/food-delivery.json}"
shift || true
exec build-run/tools/liveview play "$scenario" "$@"
