#!/usr/bin/env bash
# Installs the project into a temporary prefix, then builds and runs the consumer example against
# the installed package, once with find_package(LiveView CONFIG) and once with pkg-config.
#   scripts/check-package.sh              configures and builds a fresh tree first
#   scripts/check-package.sh BUILD_DIR    installs from an existing build tree
set -euo pipefail
cd "$(dirname "$0")/.."

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
prefix="$work/prefix"
jobs=2

build="${1:-}"
if [ -z "$build" ]; then
    build="$work/build"
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DLV_BUILD_TESTS=OFF
fi
cmake --build "$build" --target lv_package -j"$jobs"
cmake --install "$build" --prefix "$prefix"

# Host-internal headers are visible only through host_control's own folder.
for header in notification_service.h log_sink.h record_sink.h host_identity.h; do
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

if [ -x "$prefix/bin/liveview" ]; then
    echo "== installed command"
    "$prefix/bin/liveview" validate examples/liveviews/pickup-layout.json
fi
echo "check-package: the installed package builds and runs the consumer"
