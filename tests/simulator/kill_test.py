#!/usr/bin/python3
"""`liveview serve --db FILE` killed with SIGKILL while apps are publishing loses no answered
publish: after a restart on the same file, each app's history is every publish it got an answer
to, in order, plus at most the one call it had in flight; and what the restarted simulator holds
is what those publishes leave.

Usage: kill_test.py --liveview PATH [--apps N] [--calls N]"""
import argparse
import os
import shutil
import sys
import tempfile
import threading
import time

sys.dont_write_bytecode = True  # leave no cache in the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from sim_process import Cases, Simulator  # noqa: E402
from stress_test import (Publisher, app_of, first_difference, held_of, history_of,  # noqa: E402
                         model, prepare, sequence)

NO_LIMIT = 1000000


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--liveview", required=True)
    parser.add_argument("--apps", type=int, default=6)
    parser.add_argument("--calls", type=int, default=3000)
    parser.add_argument("--kill-after", type=int, default=1500, help="answered publishes")
    args = parser.parse_args()
    cases = Cases(45)
    folder = tempfile.mkdtemp(prefix="liveview-kill-")
    db = os.path.join(folder, "sim.db")
    apps = [app_of(index) for index in range(args.apps)]
    sim = Simulator(args.liveview, db=db).start()
    prepare(sim, NO_LIMIT)
    publishers = [Publisher(sim, app, sequence(index, args.calls))
                  for index, app in enumerate(apps)]
    for publisher in publishers:
        publisher.start()
    deadline = time.monotonic() + 20
    while (sum(len(p.answers) for p in publishers) < args.kill_after and
           time.monotonic() < deadline and any(p.is_alive() for p in publishers)):
        time.sleep(0.002)
    sim.kill()
    for publisher in publishers:
        publisher.join(15)
    answered = sum(len(p.answers) for p in publishers)
    cut = sum(p.failure is not None for p in publishers)
    cases.check("every app is still publishing when the simulator is killed", cut == args.apps,
                f"{cut} of {args.apps} apps were cut off; raise --calls")

    again = Simulator(args.liveview, db=db).start()
    fresh = Simulator(args.liveview).start()
    prepare(fresh, NO_LIMIT)
    found = landed = 0
    for app, publisher in zip(apps, publishers):
        name, history = app["bundle"], history_of(again, app)
        found += len(history)
        sent = publisher.requests[:len(publisher.answers) + 1]
        logged = [(row["id"], row["code"], row["request"]) for row in history]
        want = [(r["id"], answer["code"], r) for r, (_, answer) in zip(sent, publisher.answers)]
        in_flight = len(logged) == len(want) + 1 and publisher.failure is not None
        landed += in_flight
        cases.check(f"{name}: the history is its {len(want)} answered publishes in order"
                    f"{', and the one in flight' if in_flight else ''}",
                    logged[:len(want)] == want and (len(logged) == len(want) or in_flight and
                                                    logged[-1][2] == sent[-1]),
                    first_difference(logged, want))
        recorded = [row["request"] for row in history]
        codes, view_state = model(recorded, 0)
        cases.equal(f"{name}: the recorded codes are the model's", [row["code"] for row in history],
                    codes)
        held = held_of(again, app)
        cases.equal(f"{name}: held ids and ends after the restart are those the history leaves",
                    {row["id"]: (row["ended"], row["request"]["content"]["version"])
                     for row in held}, view_state)
        replay = Publisher(fresh, app, recorded)
        replay.run()
        cases.equal(f"{name}: held after the restart is the replay's, requests and all",
                    held, held_of(fresh, app))
    print(f"     publishes answered: {answered}; rows found after the restart: {found}; "
          f"calls cut off: {cut}, of which recorded: {landed}")
    again.stop()
    fresh.stop()
    shutil.rmtree(folder, ignore_errors=True)
    cases.finish()


if __name__ == "__main__":
    main()
