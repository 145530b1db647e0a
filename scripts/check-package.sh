#!/usr/bin/env bash
# Installs the project into a temporary prefix, then builds and runs the consumer example against
# the installed package, once with find_package(LiveView CONFIG) and once with pkg-config, and the
# delivery app with find_package, briefly, against the embedded service.
#   scripts/check-package.sh              configures and builds a fresh tree first
#   scripts/check-package.sh BUILD_DIR    installs from an existing build tree
set -euo pipefail
cd "$(dirname "$0")/.."

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
prefix="$work/prefix"
jobs=2
# The examples run against the embedded service in their own process, never a simulator.
unset LIVEVIEW_SERVICE

build="${1:-}"
if [ -z "$build" ]; then
    build="$work/build"
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DLV_BUILD_TESTS=OFF
fi
cmake --build "$build" --target lv_package -j"$jobs"
cmake --install "$build" --prefix "$prefix"

# Host-internal headers are visible only through host_control's own folder.
for header in notification_service.h service_backend.h log_sink.h record_sink.h host_identity.h; do
    if [ -e "$prefix/include/liveview/$header" ]; then
        echo "check-package: internal header $header installed among the public ones" >&2
        exit 1
    fi
done

echo "== consumer with find_package(LiveView CONFIG)"
cmake -S examples/consumer -B "$work/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$prefix"
cmake --build "$work/consumer" -j"$jobs"
"$work/consumer/live_view_consumer"

echo "== consumer with pkg-config"
pcdir="$(dirname "$(find "$prefix" -name liveview.pc | head -n 1)")"
# shellcheck disable=SC2046
c++ -std=c++17 examples/consumer/main.cpp -o "$work/consumer-pc" \
    $(PKG_CONFIG_PATH="$pcdir" pkg-config --cflags --libs liveview)
"$work/consumer-pc"

echo "== delivery app with find_package(LiveView CONFIG)"
cmake -S examples/app -B "$work/app" -G Ninja -DCMAKE_PREFIX_PATH="$prefix"
cmake --build "$work/app" -j"$jobs"
expected="started id=7 code=0
updated id=7 stage=1 code=0
updated id=7 stage=2 code=0
stopped id=7 code=0"
status=0
got="$("$work/app/live_view_delivery_app" --updates 2 --interval-ms 10)" || status=$?
if [ "$status" -ne 0 ] || [ "$got" != "$expected" ]; then
    printf 'check-package: the delivery app exited %s after printing\n%s\ninstead of 0 after\n%s\n' \
        "$status" "$got" "$expected" >&2
    exit 1
fi
echo "$got"

if [ -x "$prefix/bin/liveview" ]; then
    echo "== installed command"
    "$prefix/bin/liveview" validate examples/liveviews/pickup-layout.json
fi
echo "check-package: the installed package builds and runs the consumer and the delivery app"
