#!/usr/bin/env python3
"""The simulator as a person uses it: `liveview serve` on a free port with its page open in
headless Chromium; the food delivery published through the API, then the delivery app run against
the simulator. Every state must be on the page within a second of its publish; a click of the
card's button must reach the app as OnResponse; stopping the simulator must reach the app as
OnDied, and the app's next call must answer a code instead of hanging.

Usage: simulator_test.py --liveview PATH --app PATH --scenario FOOD_DELIVERY_JSON
                         --screenshots DIR [--doc-shot FILE]
Prints one line per check and a closing "N passed, N failed"; exits 1 on any failure.
"""
import argparse
import json
import os
import queue
import shutil
import subprocess
import sys
import tempfile
import threading
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "simulator"))
from page_checks import start_browser  # noqa: E402
from sim_process import Simulator  # noqa: E402

SHOWN_WITHIN = 1.0  # seconds from a publish's answer to the page showing it
APP_INTERVAL_MS = 1500
APP_BUNDLE, APP_UID, APP_ID = "com.example.delivery", 20020001, 7
LINE_TIMEOUT = 15  # seconds to wait for the app's next line
CLOCK_START_MILLIS = 1780475400000  # the service clock stands still at 2026-06-03 08:30 UTC

# The card of one live view on the page, by app and id: its text, whether it is drawn as ended,
# and whether its capsule is in the status bar. Null when the page has no such card.
CARD_SCRIPT = """
const [bundle, uid, id] = arguments;
const pick = sel => document.querySelector(
  `${sel}[data-bundle="${bundle}"][data-uid="${uid}"][data-id="${id}"]`);
const card = pick("#shade .sim-card");
if (!card) { return null; }
return {text: card.textContent, ended: card.dataset.ended === "true",
        capsule: !!pick("#capsules .sim-capsule"),
        buttons: [...card.querySelectorAll("button.press")].map(b => b.textContent)};
"""


class Results:
    def __init__(self):
        self.passed = self.failed = 0

    def check(self, name, ok, detail="", note=""):
        """Prints the check's line: note (such as a time) on success, detail on failure."""
        print(f"{'ok' if ok else 'FAIL':4} {name}" + (f" ({note})" if ok and note else ""),
              flush=True)
        if not ok and detail:
            print(f"       {detail}", flush=True)
        if ok:
            self.passed += 1
        else:
            self.failed += 1
        return ok


def expected_texts(request):
    """The primary title and every rich-text run that the card of request must show."""
    extra = request["content"]["extraInfo"]
    texts = [extra["PrimaryData.title"]["value"]]
    texts += [run["text"].strip() for run in json.loads(extra["PrimaryData.content"]["value"])]
    return texts


def wait_for_card(driver, bundle, uid, live_view_id, texts, ended, since):
    """Seconds from since until the page shows the card with texts and the ended state, or None
    with what it showed last when SHOWN_WITHIN passes first."""
    last = None
    while True:
        last = driver.execute_script(CARD_SCRIPT, bundle, uid, live_view_id)
        if last and last["ended"] == ended and all(text in last["text"] for text in texts):
            return time.monotonic() - since, last
        if time.monotonic() - since > SHOWN_WITHIN:
            return None, last
        time.sleep(0.02)


def wait_connected(driver, limit=10):
    """The state of the page's connection once it is live, or after limit seconds."""
    deadline = time.monotonic() + limit
    while True:
        state = driver.execute_script("return document.getElementById('connection').dataset.state")
        if state == "live" or time.monotonic() > deadline:
            return state
        time.sleep(0.05)


def harvest_food_delivery(liveview, scenario):
    """The food delivery's accepted publishes, oldest first, from a play on a scratch simulator."""
    scratch = Simulator(liveview).start()
    try:
        play = subprocess.run([liveview, "play", scenario, "--service", scratch.url],
                              capture_output=True, text=True, timeout=60, check=False)
        if play.returncode != 0:
            raise RuntimeError(f"play --service exited {play.returncode}: {play.stdout}")
        rows = scratch.get("/api/history?limit=0&requests=1")["history"]
    finally:
        scratch.stop()
    return [row for row in reversed(rows) if row["code"] == 0]


def play_food_delivery(results, sim, driver, publishes):
    for row in publishes:
        app = {"bundle": row["bundle"], "uid": row["uid"]}
        answer = sim.post("/api/publish", {"app": app, "request": row["request"]})
        answered = time.monotonic()
        name = f"food delivery {row['operation']} v{row['request']['content']['version']}"
        if not results.check(name + " answered 0", answer["code"] == 0, str(answer)):
            continue
        texts = expected_texts(row["request"])
        took, shown = wait_for_card(driver, row["bundle"], row["uid"], row["id"], texts,
                                    row["operation"] == "end", answered)
        results.check(name + " on the page within 1 s", took is not None, f"page shows {shown}",
                      took is not None and f"{took * 1000:.0f} ms")


def preview_from_simulator(results, sim, driver, liveview, workdir, publishes):
    """`liveview preview --service` draws the food delivery as the simulator holds it."""
    last = publishes[-1]
    page = os.path.join(workdir, "held.html")
    run = subprocess.run([liveview, "preview", "--service", sim.url, "--app", last["bundle"],
                          "--uid", str(last["uid"]), "--id", str(last["id"]), "-o", page],
                         capture_output=True, text=True, timeout=30, check=False)
    if not results.check("preview --service draws a held live view", run.returncode == 0,
                         f"exit {run.returncode}: {run.stdout}{run.stderr}"):
        return
    driver.get("file://" + page)
    title = driver.execute_script(
        "const t = document.querySelector('[data-part=card] [data-part=primary] "
        "[data-part=title]'); return t && t.textContent;")
    results.check("its card shows what the simulator holds",
                  title == expected_texts(last["request"])[0], f"title {title!r}")
    driver.back()


class App:
    """The delivery app as a child process whose lines are read as they come."""

    def __init__(self, path, url):
        env = dict(os.environ, LIVEVIEW_SERVICE=url)
        self.process = subprocess.Popen(
            [path, "--id", str(APP_ID), "--interval-ms", str(APP_INTERVAL_MS)], env=env,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, bufsize=1)
        self.lines = queue.Queue()
        self.seen = []
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.put((time.monotonic(), line.rstrip("\n")))
        self.lines.put((time.monotonic(), None))

    def next_line(self, timeout=LINE_TIMEOUT):
        """(arrival time, line); line None at the end of output; raises queue.Empty on timeout."""
        arrived, line = self.lines.get(timeout=timeout)
        self.seen.append(line)
        return arrived, line

    def wait_for(self, prefix, timeout=LINE_TIMEOUT):
        deadline = time.monotonic() + timeout
        while True:
            arrived, line = self.next_line(max(0.0, deadline - time.monotonic()))
            if line is None or line.startswith(prefix):
                return arrived, line

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait(timeout=10)


def held_request(sim):
    held = sim.post("/api/held", {"app": {"bundle": APP_BUNDLE, "uid": APP_UID}, "id": APP_ID})
    return held["held"][0]["request"] if held["held"] else None


def run_app(results, sim, driver, app_path, shots, doc_shot):
    app = App(app_path, sim.url)
    try:
        # Each state the app publishes, up to the second update; the button is pressed after it.
        for expected in ("started", "updated id=7 stage=1", "updated id=7 stage=2"):
            arrived, line = app.wait_for(expected.split(" ")[0])
            if not results.check(f"app printed {expected!r}", line and line.startswith(expected),
                                 f"printed {app.seen}"):
                return
            request = held_request(sim)
            took, shown = wait_for_card(driver, APP_BUNDLE, APP_UID, APP_ID,
                                        expected_texts(request), False, arrived)
            results.check(f"app's {expected!r} on the page within 1 s", took is not None,
                          f"page shows {shown}", took is not None and f"{took * 1000:.0f} ms")
        driver.save_screenshot(os.path.join(shots, "simulator-delivery.png"))
        if doc_shot:
            driver.save_screenshot(doc_shot)

        card = driver.execute_script(CARD_SCRIPT, APP_BUNDLE, APP_UID, APP_ID)
        if not results.check("the app's card has its action button", card and card["buttons"],
                             f"card {card}"):
            return
        button = card["buttons"][0]
        driver.execute_script(
            "document.querySelector(`#shade .sim-card[data-bundle='${arguments[0]}'][data-id="
            "'${arguments[1]}'] button.press`).click();", APP_BUNDLE, APP_ID)
        _, line = app.wait_for("OnResponse")
        results.check("a click of the page's button reaches the app as OnResponse",
                      line == f"OnResponse id={APP_ID} button={button}", f"printed {app.seen}")
        # The press changes what the next update says.
        _, line = app.wait_for("updated")
        request = held_request(sim)
        results.check("the next update says the rider will call",
                      request is not None and "Sam was asked to call you" in
                      expected_texts(request), f"{line}; held {request and expected_texts(request)}")

        # Once the simulator stops, the page's calls fail as they should: look before.
        errors = [entry for entry in driver.get_log("browser") if entry["level"] == "SEVERE"]
        results.check("the page logged no error while the simulator ran", not errors, str(errors))
        stopped = time.monotonic()
        sim.stop()
        _, died = app.wait_for("OnDied", timeout=10)
        results.check("stopping the simulator reaches the app as OnDied", died == "OnDied",
                      f"printed {app.seen}")
        _, after = app.wait_for("after OnDied", timeout=10)
        status = app.process.wait(timeout=10)
        results.check("the app's next call answers a code instead of hanging",
                      after is not None and after.startswith(f"after OnDied: update id={APP_ID}"
                                                             " code=1003500003") and status == 3,
                      f"{after!r}, exit {status}",
                      f"{time.monotonic() - stopped:.2f} s after the stop")
        connection = driver.execute_script("return document.getElementById('connection')"
                                           ".dataset.state")
        results.check("the page says it lost the simulator", connection == "reconnecting",
                      f"connection state {connection!r}")
    except queue.Empty:
        results.check("the app went on printing", False, f"nothing more after {app.seen}")
    finally:
        app.kill()


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for option in ("--liveview", "--app", "--scenario", "--screenshots"):
        parser.add_argument(option, required=True)
    parser.add_argument("--doc-shot", help="also save the page during the delivery here")
    args = parser.parse_args()
    liveview = os.path.abspath(args.liveview)
    shots = os.path.abspath(args.screenshots)
    os.makedirs(shots, exist_ok=True)

    results = Results()
    workdir = tempfile.mkdtemp(prefix="liveview-simulator-")
    sim = driver = None
    try:
        publishes = harvest_food_delivery(liveview, os.path.abspath(args.scenario))
        sim = Simulator(liveview).start()
        sim.post("/api/clock", {"set": CLOCK_START_MILLIS})
        driver = start_browser(os.path.join(workdir, "profile"))
        driver.set_window_size(1400, 1250)
        driver.get(sim.url)
        loaded = wait_connected(driver)
        if results.check("the page connects to its event stream", loaded == "live",
                         f"connection state {loaded!r}"):
            play_food_delivery(results, sim, driver, publishes)
            preview_from_simulator(results, sim, driver, liveview, workdir, publishes)
            wait_connected(driver)
            run_app(results, sim, driver, os.path.abspath(args.app), shots, args.doc_shot)
    except Exception as error:  # noqa: BLE001 - a broken run is one failure, reported
        results.check("the run", False, f"{type(error).__name__}: {error}")
    finally:
        if driver is not None:
            driver.quit()
        if sim is not None:
            sim.kill()
        shutil.rmtree(workdir, ignore_errors=True)
    print(f"{results.passed} passed, {results.failed} failed")
    return 1 if results.failed else 0


if __name__ == "__main__":
    sys.exit(main())
