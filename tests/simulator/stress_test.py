#!/usr/bin/python3
"""Apps publishing side by side through `liveview serve` get, app by app, exactly what they get
publishing one after another: the same answer to every call, the same held live views and the
same history, and the answers that a model of the service's rules gives.

Usage: stress_test.py --liveview PATH [--apps N] [--calls N]"""
import argparse
import http.client
import os
import random
import sys
import threading

sys.dont_write_bytecode = True  # leave no cache in the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from sim_process import Cases, Simulator, wire_request  # noqa: E402

CREATE, UPDATE, END, FULL_UPDATE = 0, 1, 2, 3
# The service's own numbers, which the simulator answers as they are.
OK, NOT_EXISTS, RATE, REPEAT_CREATE, ENDED, STALE = 0, *(0x4000000 + n for n in (
    0x10, 0x12, 0x28, 0x29, 0x2A))
CLOCK = 7_000_000


def app_of(index):
    return {"bundle": f"com.example.stress{index}", "uid": 20040000 + index}


def sequence(index, calls, ids=(1, 2, 3)):
    """The app's publishes: creates, updates, full updates and ends on a few ids with versions
    that mostly rise, and stale versions, repeated creates and updates after an end among them."""
    rng = random.Random(index)
    bundle = app_of(index)["bundle"]
    version = {view_id: 0 for view_id in ids}
    requests = []
    for step in range(calls):
        view_id = rng.choice(ids)
        status = rng.choice([CREATE, UPDATE, UPDATE, FULL_UPDATE, END, "stale"])
        if status == "stale":
            status, version[view_id] = UPDATE, max(0, version[view_id] - rng.randint(0, 1))
        else:
            version[view_id] += rng.randint(1, 3)
        extra = {"step": (5, step), "from": (9, bundle)} if rng.random() < 0.7 else None
        requests.append(wire_request(
            view_id, status, version[view_id], title=f"{bundle} #{step}", text=f"step {step}",
            extra=extra, keep=rng.choice([-1, 3600]),
            target=f"{bundle}/Main" if rng.random() < 0.3 else None))
    return requests


def model(requests, rate_limit):
    """The codes that the service's rules give to requests of one app on a stopped clock, and
    what it holds after them: {id: (ended, version)}."""
    held, codes, taken = {}, [], 0
    for request in requests:
        view_id, status = request["id"], request["content"]["status"]
        version = request["content"]["version"]
        if 0 < rate_limit <= taken:
            code = RATE
        elif status == CREATE:
            code = REPEAT_CREATE if view_id in held and not held[view_id][0] else OK
        elif view_id not in held:
            code = NOT_EXISTS
        else:
            code = ENDED if held[view_id][0] else STALE if version <= held[view_id][1] else OK
        if code == OK:
            taken += 1
            held[view_id] = (status == END, version)
        codes.append(code)
    return codes, held


class Publisher(threading.Thread):
    """Publishes one app's requests in order over one keep-alive connection; answers holds
    (status, answer) per answered call, and stops at the first call that gets no answer."""

    def __init__(self, sim, app, requests, start_line=None):
        super().__init__(daemon=True)
        self.sim, self.app, self.requests, self.start_line = sim, app, requests, start_line
        self.answers, self.failure = [], None

    def run(self):
        connection = self.sim.connection(timeout=10)
        if self.start_line:
            self.start_line.wait(10)
        try:
            for request in self.requests:
                self.answers.append(self.sim.call("POST", "/api/publish",
                                                  {"app": self.app, "request": request},
                                                  connection=connection))
        except (OSError, http.client.HTTPException, ValueError) as failure:
            self.failure = failure
        finally:
            connection.close()


def prepare(sim, rate_limit):
    sim.post("/api/clock", {"set": CLOCK})
    sim.post("/api/rate-limit", {"perSecond": rate_limit})


def held_of(sim, app):
    return sim.post("/api/held", {"app": app})["held"]


def history_of(sim, app):
    """The app's history rows, oldest first, without their place in the whole history."""
    rows = sim.get("/api/history?limit=0&requests=1")["history"]
    mine = [row for row in rows if (row["bundle"], row["uid"]) == (app["bundle"], app["uid"])]
    return [{k: v for k, v in row.items() if k != "seq"} for row in reversed(mine)]


def first_difference(got, want):
    for index, (a, b) in enumerate(zip(got, want)):
        if a != b:
            return f"call {index}: got {a!r}, want {b!r}"
    return f"{len(got)} rows, want {len(want)}"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--liveview", required=True)
    parser.add_argument("--apps", type=int, default=6)
    parser.add_argument("--calls", type=int, default=300)
    parser.add_argument("--rate-limit", type=int, default=130)
    args = parser.parse_args()
    cases = Cases(45)
    apps = [app_of(index) for index in range(args.apps)]
    sequences = [sequence(index, args.calls) for index in range(args.apps)]
    expected = [model(seq, args.rate_limit) for seq in sequences]
    every_code = {code for codes, _ in expected for code in codes}
    cases.equal("the sequences hold every kind of answer", every_code,
                {OK, REPEAT_CREATE, RATE, NOT_EXISTS, ENDED, STALE})

    together, alone = Simulator(args.liveview).start(), Simulator(args.liveview).start()
    prepare(together, args.rate_limit)
    prepare(alone, args.rate_limit)
    start_line = threading.Barrier(args.apps)
    publishers = [Publisher(together, app, seq, start_line) for app, seq in zip(apps, sequences)]
    for publisher in publishers:
        publisher.start()
    for publisher in publishers:
        publisher.join(30)
    for app, publisher, (codes, held) in zip(apps, publishers, expected):
        name, one = app["bundle"], Publisher(alone, app, publisher.requests)
        one.run()  # in this thread: the apps alone go one after another
        cases.check(f"{name}: every call answered, side by side and alone",
                    publisher.failure is one.failure is None and not publisher.is_alive(),
                    f"{publisher.failure!r}, {one.failure!r}")
        cases.check(f"{name}: side by side and alone, the same answers",
                    publisher.answers == one.answers, first_difference(publisher.answers,
                                                                       one.answers))
        got = [(status, answer["code"]) for status, answer in publisher.answers]
        want = [(200, code) for code in codes]
        cases.check(f"{name}: {len(want)} answers are the model's", got == want,
                    first_difference(got, want))
        held_now = held_of(together, app)
        view_state = {row["id"]: (row["ended"], row["request"]["content"]["version"])
                      for row in held_now}
        cases.equal(f"{name}: held ids, ends and versions are the model's", view_state, held)
        cases.equal(f"{name}: held side by side and alone are the same", held_now,
                    held_of(alone, app))
        history = history_of(together, app)
        cases.check(f"{name}: history side by side and alone is the same",
                    history == history_of(alone, app),
                    first_difference(history, history_of(alone, app)))
        logged = [(row["id"], row["code"], row["atMillis"], row["request"]) for row in history]
        sent = [(r["id"], code, CLOCK, r) for r, code in zip(publisher.requests, codes)]
        cases.check(f"{name}: history is every request sent, in order, with its code",
                    logged == sent, first_difference(logged, sent))
    rows = together.get("/api/history?limit=0")["history"]
    cases.check("the history numbers every call once", sorted(row["seq"] for row in rows) ==
                list(range(1, args.apps * args.calls + 1)), f"{len(rows)} rows")
    # Had the apps run one after another, the history would change app only apps - 1 times.
    switches = sum(a["bundle"] != b["bundle"] for a, b in zip(rows, rows[1:]))
    print(f"     {len(rows)} publishes, the history changes app {switches} times")
    cases.check("the apps' calls interleaved", switches > args.apps - 1, f"{switches} changes")
    together.stop()
    alone.stop()
    cases.finish()


if __name__ == "__main__":
    main()
