#!/usr/bin/env bash
# Sets up a fresh machine, builds everything and runs every test.
#   scripts/test.sh            the normal build (g++), all tests, then the browser test of the
#                              previews (scripts/browser-test.sh build)
#   scripts/test.sh asan       AddressSanitizer + UndefinedBehaviorSanitizer build (clang), all tests
#   scripts/test.sh tsan       ThreadSanitizer build (clang), the concurrency tests (CTest label
#                              "concurrency", the simulator's stress among them, against an
#                              instrumented server) and the host platform's concurrency tests
set -euo pipefail
cd "$(dirname "$0")/.."

mode="${1:-default}"
scripts/setup.sh

jobs=2
case "$mode" in
    default)
        cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DLV_BUILD_BENCHMARKS=ON
        cmake --build build -j"$jobs"
        ctest --test-dir build --output-on-failure -j"$jobs"
        # What a person sees: every example and scenario previewed in headless Chromium.
        scripts/browser-test.sh build
        ;;
    asan)
        cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_C_COMPILER=clang \
            -DCMAKE_CXX_COMPILER=clang++ -DLV_SANITIZE=address,undefined
        cmake --build build-asan -j"$jobs"
        ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
            ctest --test-dir build-asan --output-on-failure -j"$jobs"
        ;;
    tsan)
        cmake -S . -B build-tsan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_C_COMPILER=clang \
            -DCMAKE_CXX_COMPILER=clang++ -DLV_SANITIZE=thread
        cmake --build build-tsan -j"$jobs" --target concurrency_tests host_platform_tests liveview
        export TSAN_OPTIONS=halt_on_error=1
        ctest --test-dir build-tsan --output-on-failure -j"$jobs" -L concurrency
        # The host platform's own concurrency tests live in its suite.
        build-tsan/tests/host_platform_tests --gtest_filter='*Concurren*'
        ;;
    *)
        echo "usage: scripts/test.sh [default|asan|tsan]" >&2
        exit 2
        ;;
esac
