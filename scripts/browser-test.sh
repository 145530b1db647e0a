#!/usr/bin/env bash
# Opens the preview page of every example live view in headless Chromium and checks what a person
# would see (tests/browser/preview_test.py); saves a screenshot of each into docs/images/.
#   scripts/browser-test.sh BUILD_DIR
# BUILD_DIR is a configured build folder; the liveview command is built there first.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -ne 1 ]; then
    echo "usage: scripts/browser-test.sh BUILD_DIR" >&2
    exit 2
fi
build_dir="$1"

scripts/setup.sh
cmake --build "$build_dir" -j2 --target liveview

# Debian's python3-selenium belongs to the system interpreter.
/usr/bin/python3 tests/browser/preview_test.py \
    --liveview "$build_dir/tools/liveview" \
    --examples examples/liveviews \
    --screenshots docs/images
