#!/usr/bin/env bash
# Opens the preview page of every example live view and the filmstrip of every scenario in
# headless Chromium and checks what a person would see (tests/browser/preview_test.py); saves a
# screenshot of each into BUILD_DIR/screenshots/, or into docs/images/ with --update-docs.
#   scripts/browser-test.sh BUILD_DIR [--update-docs]
# BUILD_DIR is a configured build folder; the liveview command is built there first.
# Ends with "N passed, N failed" and a non-zero status on any failure; the browser test as a
# whole is stopped after BROWSER_TEST_TIMEOUT seconds (default 600), which counts as a failure.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -lt 1 ] || [ $# -gt 2 ] || { [ $# -eq 2 ] && [ "$2" != "--update-docs" ]; }; then
    echo "usage: scripts/browser-test.sh BUILD_DIR [--update-docs]" >&2
    exit 2
fi
build_dir="$1"
screenshots="$build_dir/screenshots"
if [ "${2:-}" = "--update-docs" ]; then
    screenshots=docs/images
fi
mkdir -p "$screenshots"
limit="${BROWSER_TEST_TIMEOUT:-600}"

scripts/setup.sh
cmake --build "$build_dir" -j2 --target liveview

log="$(mktemp)"
trap 'rm -f "$log"' EXIT
# Debian's python3-selenium belongs to the system interpreter. timeout ends the test's whole
# process group (the driver and the browser with it) when the time is up.
set +e
timeout --kill-after=10 "$limit" /usr/bin/python3 -u tests/browser/preview_test.py \
    --liveview "$build_dir/tools/liveview" \
    --examples examples/liveviews \
    --scenarios examples/scenarios \
    --screenshots "$screenshots" \
    --phones food-delivery | tee "$log"
status="${PIPESTATUS[0]}"
set -e
if [ "$status" -eq 124 ] || [ "$status" -eq 137 ]; then
    echo "the browser test was stopped after ${limit} s"
    echo "$(grep -c '^ok ' "$log") passed, $(($(grep -c '^FAIL ' "$log") + 1)) failed"
    exit 1
fi
exit "$status"
