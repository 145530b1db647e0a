#!/usr/bin/env bash
# Builds the libFuzzer harnesses with clang in build-fuzz (AddressSanitizer and
# UndefinedBehaviorSanitizer, every library instrumented for coverage) and runs each one for a
# bounded time on its seed corpus, two at a time (one per core: four side by side on two cores
# would give each half a core and half the executions).
#   scripts/fuzz.sh [seconds]    seconds per harness, default 60
# The committed seeds in fuzz/corpus/<harness>/ are only read; what a run adds goes to
# build-fuzz/corpus/<harness>/ and is kept for the next run. A crash, leak, timeout or broken
# promise leaves its input in build-fuzz/artifacts/ and makes the script fail.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds="${1:-60}"
harnesses=(validate_fuzzer read_back_fuzzer json_front_end_fuzzer picture_reader_fuzzer
           simulator_api_fuzzer)
scripts/setup.sh

jobs=2
cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_C_COMPILER=clang \
    -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_FLAGS="-O2 -fsanitize=fuzzer-no-link" \
    -DCMAKE_CXX_FLAGS="-O2 -fsanitize=fuzzer-no-link" -DLV_SANITIZE=address,undefined \
    -DLV_BUILD_FUZZERS=ON -DLV_BUILD_TESTS=OFF -DLV_BUILD_TOOLS=ON
cmake --build build-fuzz -j"$jobs" --target "${harnesses[@]}"

mkdir -p build-fuzz/artifacts build-fuzz/logs
# Starts one harness in the background; its process id goes to pids[$1].
start() {
    local name="${harnesses[$1]}"
    mkdir -p "build-fuzz/corpus/$name"
    local dict=()
    if [ -f "fuzz/$name.dict" ]; then
        dict=(-dict="fuzz/$name.dict")
    fi
    # -timeout: one input taking longer than this many seconds counts as a hang.
    # -rss_limit_mb: an input needing more memory than this counts as a failure.
    "build-fuzz/fuzz/$name" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="build-fuzz/artifacts/$name-" "${dict[@]}" \
        "build-fuzz/corpus/$name" "fuzz/corpus/$name" >"build-fuzz/logs/$name.log" 2>&1 &
    pids[$1]="$!"
}

status=0
pids=()
for ((first = 0; first < ${#harnesses[@]}; first += jobs)); do
    last=$((first + jobs < ${#harnesses[@]} ? first + jobs : ${#harnesses[@]}))
    for ((i = first; i < last; i++)); do
        start "$i"
    done
    for ((i = first; i < last; i++)); do
        name="${harnesses[$i]}"
        if wait "${pids[$i]}"; then
            result="ok"
        else
            result="FAILED (see build-fuzz/logs/$name.log)"
            status=1
        fi
        runs=$(grep -o 'stat::number_of_executed_units: [0-9]*' "build-fuzz/logs/$name.log" | grep -o '[0-9]*$' || true)
        cov=$(grep -o 'cov: [0-9]* ft: [0-9]*' "build-fuzz/logs/$name.log" | tail -n 1 || true)
        rate=$([ -n "$runs" ] && echo "$((runs / seconds))/s" || echo "?/s")
        echo "$name: $result, ${runs:-?} executions in ${seconds}s ($rate), ${cov:-no coverage line}"
    done
done
exit "$status"
