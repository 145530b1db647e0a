#!/usr/bin/env python3
"""Opens what `liveview preview` writes in headless Chromium and checks it as a person would see
it: the page of every example live view and the filmstrip of every scenario, hostile text
(tests/browser/hostile-text.json) shown as text, and a refused live view
(tests/browser/refused.json). Saves a screenshot of each example and each filmstrip.

Usage: preview_test.py --liveview PATH --examples DIR --scenarios DIR --screenshots DIR
                       [--phones SCENARIO]...
Prints one line per test as it ends and a closing "N passed, N failed"; exits 1 on any failure.
"""
import argparse
import os
import shutil
import sys
import tempfile
import time

from example_checks import check_example, check_hostile, check_refusal
from filmstrip_checks import check_filmstrip
from page_checks import Check, start_browser, stem


def json_files(folder):
    return sorted(os.path.abspath(os.path.join(folder, name)) for name in os.listdir(folder)
                  if name.endswith(".json"))


def report(check):
    status = "FAIL" if check.failures else "ok"
    print(f"{status:4} {check.name} (liveview preview {check.millis:.0f} ms)", flush=True)
    for failure in check.failures:
        print(f"       {failure}", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for option in ("--liveview", "--examples", "--scenarios", "--screenshots"):
        parser.add_argument(option, required=True)
    parser.add_argument("--phones", action="append", default=[], metavar="SCENARIO",
                        help="also save SCENARIO-phones.png: the phone after each of the "
                             "scenario's first operations, side by side")
    args = parser.parse_args()

    cli = os.path.abspath(args.liveview)
    shots = os.path.abspath(args.screenshots)
    os.makedirs(shots, exist_ok=True)
    workdir = tempfile.mkdtemp(prefix="liveview-preview-")
    tests = [(os.path.basename(source), check_example, (source, workdir, shots))
             for source in json_files(args.examples)]
    tests += [("filmstrip " + os.path.basename(source), check_filmstrip,
               (source, workdir, shots, stem(source) in args.phones))
              for source in json_files(args.scenarios)]
    tests += [("hostile-text", check_hostile, (workdir,)),
              ("refused", check_refusal, (workdir, shots))]

    began = time.perf_counter()
    checks = []
    driver = None
    try:
        driver = start_browser(os.path.join(workdir, "profile"))
    except Exception as error:  # noqa: BLE001 - any failure to start is one failed test
        checks.append(Check("browser"))
        checks[-1].fail(f"the browser did not start: {error}")
        report(checks[-1])
        tests = []
    try:
        for name, test, arguments in tests:
            checks.append(Check(name))
            try:
                test(checks[-1], driver, cli, *arguments)
            except Exception as error:  # noqa: BLE001 - a broken test fails, the others still run
                checks[-1].fail(f"{type(error).__name__}: {error}")
            report(checks[-1])
    finally:
        if driver is not None:
            driver.quit()
        shutil.rmtree(workdir, ignore_errors=True)

    failed = sum(1 for check in checks if check.failures)
    print(f"whole run {time.perf_counter() - began:.1f} s")
    print(f"{len(checks) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
