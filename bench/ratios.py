#!/usr/bin/env python3
"""Prints the performance ratios of one run of live_view_bench against their targets.

Usage: live_view_bench --benchmark_repetitions=5 --benchmark_out=run.json \
           --benchmark_out_format=json
       python3 bench/ratios.py run.json

Every ratio is taken between medians of CPU time of the same run (with a single repetition, the
single figure). Exits 1 when a ratio misses its target or a benchmark it needs is missing.
"""

import json
import sys


def medians(path):
    with open(path, encoding="utf-8") as f:
        report = json.load(f)
    single = {}
    median = {}
    for bench in report["benchmarks"]:
        if bench.get("error_occurred"):
            continue
        name = bench.get("run_name", bench["name"])
        if bench.get("run_type") == "aggregate":
            if bench.get("aggregate_name") == "median":
                median[name] = bench["cpu_time"]
        else:
            single.setdefault(name, bench["cpu_time"])
    single.update(median)
    return single


def main():
    if len(sys.argv) != 2:
        print(__doc__.strip())
        return 2
    times = medians(sys.argv[1])
    failed = False

    def ratio(label, top, bottom, target, at_most):
        nonlocal failed
        if top not in times or bottom not in times:
            print(f"{label}: not measured (needs {top} and {bottom})")
            failed = True
            return
        value = times[top] / times[bottom]
        ok = value <= target if at_most else value >= target
        failed = failed or not ok
        bound = "at most" if at_most else "at least"
        verdict = "met" if ok else "MISSED"
        print(f"{label}: {value:.2f} (target {bound} {target:g}) {verdict}")

    kinds = sorted(name.split("/", 1)[1] for name in times if name.startswith("Floor/"))
    for kind in kinds:
        ratio(f"validation and conversion / floor, {kind}", f"ValidateAndConvert/{kind}",
              f"Floor/{kind}", 2, True)
    ratio("colour pattern compiled per call / CheckArgbHexColor through the capsule check",
          "CheckArgbHexColor/pattern_compiled_per_call",
          "CheckArgbHexColor/through_capsule_check", 20, False)
    ratio("rich text, 1,000 runs / 1 run", "RichText/runs/1000", "RichText/runs/1", 1200, True)
    for low, high in ((1, 10), (10, 100), (100, 1000)):
        top, bottom = f"RichText/runs/{high}", f"RichText/runs/{low}"
        if top in times and bottom in times:
            print(f"  rich text growth {low} -> {high} runs: {times[top] / times[bottom]:.2f}x")
    ratio("GetActiveLiveView, 10,000 held / 10 held", "GetActiveLiveView/held/10000",
          "GetActiveLiveView/held/10", 1.5, True)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
