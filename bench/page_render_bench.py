#!/usr/bin/env python3
"""How long the simulator's page takes, in headless Chromium, to draw many held live views: the
first load with N held, and the redraw after one of them changes. The live views are the food
delivery's first publish (a pickup layout with a picture and a progress capsule) under N ids and
ten apps.

Usage: page_render_bench.py --liveview PATH [--held N] [--rounds R] [--scenario FILE]
Prints a table in milliseconds; every time is measured from the test's side, polling the page
every 5 ms, so it includes the state's transfer and the browser's layout.
"""
import argparse
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.dont_write_bytecode = True
sys.path.insert(0, os.path.join(HERE, "..", "tests", "browser"))
sys.path.insert(0, os.path.join(HERE, "..", "tests", "simulator"))
from page_checks import start_browser  # noqa: E402
from sim_process import Simulator  # noqa: E402

APPS = 10
COUNT_CARDS = "return document.querySelectorAll('#shade .sim-card').length"
SHOWS = ("const c = document.querySelector(`#shade .sim-card[data-bundle='${arguments[0]}']"
         "[data-id='${arguments[1]}']`); return !!c && c.textContent.includes(arguments[2]);")


def wait(driver, script, *args, want=True, limit=120):
    began = time.monotonic()
    while time.monotonic() - began < limit:
        if driver.execute_script(script, *args) == want:
            return (time.monotonic() - began) * 1000
        time.sleep(0.005)
    raise TimeoutError(f"the page did not get there in {limit} s: {script}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--liveview", required=True)
    parser.add_argument("--held", type=int, default=1000)
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--scenario",
                        default=os.path.join(HERE, "..", "examples", "scenarios",
                                             "food-delivery.json"))
    args = parser.parse_args()

    sim = Simulator(os.path.abspath(args.liveview)).start()
    workdir = tempfile.mkdtemp(prefix="page-render-bench-")
    driver = None
    try:
        subprocess.run([args.liveview, "play", args.scenario, "--service", sim.url],
                       capture_output=True, check=True, timeout=60)
        create = next(row for row in reversed(sim.get("/api/history?limit=0&requests=1")["history"])
                      if row["operation"] == "create" and row["code"] == 0)["request"]
        sim.post("/api/rate-limit", {"perSecond": 0})
        apps = [{"bundle": f"com.example.bench{n}", "uid": 20040000 + n} for n in range(APPS)]
        for i in range(args.held):
            request = dict(create, id=1000 + i)
            answer = sim.post("/api/publish", {"app": apps[i % APPS], "request": request})
            assert answer["code"] == 0, answer
        held = len(sim.post("/api/held", {})["held"])

        driver = start_browser(os.path.join(workdir, "profile"))
        driver.set_window_size(1400, 1000)
        loads, redraws = [], []
        for round_ in range(args.rounds):
            began = time.monotonic()
            driver.get(sim.url)
            wait(driver, COUNT_CARDS, want=held)
            loads.append((time.monotonic() - began) * 1000)
            # One live view changes: an update with a new title, then the page must show it.
            title = f"Update {round_}"
            update = dict(create, id=1000 + round_)
            update["content"] = dict(create["content"], status=1,
                                     version=create["content"]["version"] + 1 + round_)
            extra = dict(update["content"]["extraInfo"])
            extra["PrimaryData.title"] = {"type": 9, "value": title}
            update["content"]["extraInfo"] = extra
            began = time.monotonic()
            assert sim.post("/api/publish", {"app": apps[round_ % APPS],
                                             "request": update})["code"] == 0
            wait(driver, SHOWS, apps[round_ % APPS]["bundle"], 1000 + round_, title)
            redraws.append((time.monotonic() - began) * 1000)
        state = sim.request("GET", "/api/state")[2]
        print(f"page_render_bench: {held} live views held, a state of {len(state):,} bytes; "
              f"{args.rounds} rounds")
        print(f"{'':44}{'min':>9}{'median':>9}{'max':>9}")
        for name, values in (("load the page until every card is drawn", loads),
                             ("publish one update until the page shows it", redraws)):
            print(f"{name:44}{min(values):9.0f}{statistics.median(values):9.0f}"
                  f"{max(values):9.0f}")
    finally:
        if driver is not None:
            driver.quit()
        sim.stop()
        shutil.rmtree(workdir, ignore_errors=True)


if __name__ == "__main__":
    main()
