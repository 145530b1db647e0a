#!/usr/bin/env bash
# The browser tests, in headless Chromium:
#  1. the preview page of every example live view and the filmstrip of every scenario, checked as
#     a person would see them (tests/browser/preview_test.py);
#  2. the simulator's live page while the food delivery is published through its API and the
#     delivery app of examples/app, built against the installed package, runs against it
#     (tests/browser/simulator_test.py).
# Saves a screenshot of each page into BUILD_DIR/screenshots/, or into docs/images/ with
# --update-docs.
#   scripts/browser-test.sh BUILD_DIR [--update-docs]
# BUILD_DIR is a configured build folder; the liveview command is built there first.
# Each test ends with "N passed, N failed"; the script fails when either has a failure. Each test
# is stopped after BROWSER_TEST_TIMEOUT seconds (default 600), which counts as a failure.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -lt 1 ] || [ $# -gt 2 ] || { [ $# -eq 2 ] && [ "$2" != "--update-docs" ]; }; then
    echo "usage: scripts/browser-test.sh BUILD_DIR [--update-docs]" >&2
    exit 2
fi
build_dir="$1"
screenshots="$build_dir/screenshots"
doc_shot=()
if [ "${2:-}" = "--update-docs" ]; then
    screenshots=docs/images
    doc_shot=(--doc-shot docs/images/simulator-delivery.png)
fi
mkdir -p "$screenshots"
limit="${BROWSER_TEST_TIMEOUT:-600}"

scripts/setup.sh
cmake --build "$build_dir" -j2 --target liveview lv_package

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
log="$work/log"

# Runs a test under the time limit; timeout ends its whole process group (the driver, the browser,
# the simulator and the app with it) when the time is up.
run_limited() {
    local status
    set +e
    timeout --kill-after=10 "$limit" "$@" | tee "$log"
    status="${PIPESTATUS[0]}"
    set -e
    if [ "$status" -eq 124 ] || [ "$status" -eq 137 ]; then
        echo "the browser test was stopped after ${limit} s"
        echo "$(grep -c '^ok ' "$log") passed, $(($(grep -c '^FAIL ' "$log") + 1)) failed"
        return 1
    fi
    return "$status"
}

failed=0
# Debian's python3-selenium belongs to the system interpreter.
run_limited /usr/bin/python3 -u tests/browser/preview_test.py \
    --liveview "$build_dir/tools/liveview" \
    --examples examples/liveviews \
    --scenarios examples/scenarios \
    --screenshots "$screenshots" \
    --phones food-delivery || failed=1

# The delivery app as an application developer builds it: against the installed package.
cmake --install "$build_dir" --prefix "$work/prefix" > /dev/null
cmake -S examples/app -B "$work/app" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix" > /dev/null
cmake --build "$work/app" -j2 > /dev/null
run_limited /usr/bin/python3 -u tests/browser/simulator_test.py \
    --liveview "$build_dir/tools/liveview" \
    --app "$work/app/live_view_delivery_app" \
    --scenario examples/scenarios/food-delivery.json \
    --screenshots "$screenshots" "${doc_shot[@]}" || failed=1
exit "$failed"
