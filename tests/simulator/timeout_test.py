#!/usr/bin/python3
"""A simulator that stops answering (its process stopped with SIGSTOP, its socket still open)
never makes a caller hang: each call of the host platform's remote service gives up after its
time limit and answers "not connected", which the library reports as its public code 1003500003.
The caller here is `liveview play --service`, which calls through the same host platform as an
app.

Usage: timeout_test.py --liveview PATH --scenario FILE"""
import argparse
import os
import signal
import subprocess
import sys

sys.dont_write_bytecode = True  # leave no cache in the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from sim_process import Cases, Simulator  # noqa: E402

NOT_CONNECTED = 1003500003
# Far above the few call limits that the play's first step can meet, far below "hangs".
PLAY_BOUND_SECONDS = 40


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--liveview", required=True)
    parser.add_argument("--scenario", required=True)
    args = parser.parse_args()
    cases = Cases(55)
    sim = Simulator(args.liveview).start()
    sim.process.send_signal(signal.SIGSTOP)
    try:
        play = subprocess.run([args.liveview, "play", args.scenario, "--service", sim.url],
                              capture_output=True, text=True, timeout=PLAY_BOUND_SECONDS,
                              check=False)
        first = play.stdout.splitlines()[0] if play.stdout else ""
        cases.check("the play ends, refused, instead of hanging", play.returncode == 1,
                    f"exit {play.returncode}: {play.stdout}{play.stderr}")
        cases.check("its first step answers not connected",
                    first.startswith("#1 ") and f": {NOT_CONNECTED} " in first, repr(first))
    except subprocess.TimeoutExpired:
        cases.check("the play ends, refused, instead of hanging", False,
                    f"still running after {PLAY_BOUND_SECONDS} s")
    finally:
        sim.process.send_signal(signal.SIGCONT)
    sim.stop()
    cases.finish()


if __name__ == "__main__":
    main()
