#!/usr/bin/python3
"""A motion platform driven from a phone's browser, checked from outside: `orvane-sim motion`
plays a 3DOF board on a pty, `orvanehub --headless --motion LINK --motion-platform 3
--web-panel-port N` runs it alone (no transmitter) with the web panel, and plain HTTP (as a
phone's page would send it) starts a pitch test. The simulator's log of the frames it
received is the evidence: set-points that follow the pitch pattern and a sine within the
asked force, and Release ("R") as the last word once the hub is stopped. The page itself is
loaded by Debian's chromium, headless, and must show the board's state.

Usage: motion_panel_session_test.py <orvanehub> <orvane-sim>
"""

import json
import os
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import time
import urllib.request

TIMEOUT = 60
CENTRE = 32767  # a "6" frame's set-point for the park position; +-32767 is +-half the travel


class Process:
    """A program whose output lines are collected as they come."""

    def __init__(self, arguments, env=None):
        self.lines = []
        self.process = subprocess.Popen(arguments, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                        text=True, env=env)
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.append(line.rstrip("\n"))

    def wait_for(self, text):
        deadline = time.monotonic() + TIMEOUT
        while not any(text in line for line in self.lines):
            if self.process.poll() is not None or time.monotonic() > deadline:
                raise AssertionError("never printed %r:\n%s" % (text, "\n".join(self.lines)))
            time.sleep(0.05)

    def stop(self):
        if self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(TIMEOUT)
            except subprocess.TimeoutExpired:
                self.process.kill()
        return self.process.wait()


def check(condition, what):
    if not condition:
        raise AssertionError(what)


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def commands(log):
    with open(log) as records:
        return [r["command"] for r in map(json.loads, records) if r.get("kind") == "command"]


def until(condition, what):
    deadline = time.monotonic() + TIMEOUT
    while not condition():
        if time.monotonic() > deadline:
            raise AssertionError("timed out waiting for " + what)
        time.sleep(0.05)


def post(base, path):
    request = urllib.request.Request(base + path, method="POST", data=b"")
    with urllib.request.urlopen(request, timeout=TIMEOUT) as reply:
        return reply.status, reply.read().decode()


def check_pitch_frames(frames, force_percent):
    """Pitch lifts the rear pair (actuators 1, 2) against the front pair (3, 4); the 3DOF
    platform has no actuators 5 and 6, which stay at park. The deviation swings both ways
    (a sine) and never beyond the force, a share of half the travel."""
    limit = CENTRE * force_percent / 100 + 1
    deviations = []
    for frame in frames:
        a1, a2, a3, a4, a5, a6 = (int(v) for v in frame.split()[1:])
        check(a1 == a2 and a3 == a4, "pitch moves the actuators in pairs: " + frame)
        check(abs((a1 - CENTRE) + (a3 - CENTRE)) <= 1, "the pairs move against each other: " + frame)
        check(a5 == CENTRE and a6 == CENTRE, "actuators 5 and 6 stay at park: " + frame)
        check(abs(a1 - CENTRE) <= limit, "beyond %d%% of the travel: %s" % (force_percent, frame))
        deviations.append(a1 - CENTRE)
    check(max(deviations) > limit / 4 and min(deviations) < -limit / 4,
          "the set-points do not swing both ways: %s" % deviations[:40])


def main():
    hub_program, sim_program = sys.argv[1], sys.argv[2]
    with tempfile.TemporaryDirectory() as home:
        link, log = os.path.join(home, "ttyMotion"), os.path.join(home, "motion.jsonl")
        board = Process([sim_program, "motion", "--link", link, "--log", log, "--platform", "3dof"])
        hub = None
        try:
            board.wait_for("link: ")
            port = free_port()
            env = dict(os.environ, HOME=home, XDG_CONFIG_HOME=os.path.join(home, ".config"),
                       XDG_DATA_HOME=os.path.join(home, ".local", "share"))
            hub = Process([hub_program, "--headless", "--motion", link, "--motion-platform", "3",
                           "--web-panel-port", str(port), "--remote-port", "0"], env=env)
            hub.wait_for("Web panel started at")
            hub.wait_for("motion: state ready")
            base = "http://127.0.0.1:%d" % port

            status, body = post(base, "/test?dof=2&force=30")
            check((status, body) == (200, "testing Pitch at 30%"), (status, body))
            until(lambda: sum(c.startswith("6 ") for c in commands(log)) >= 100, "100 pitch frames")
            check_pitch_frames([c for c in commands(log) if c.startswith("6 ")], 30)

            chromium = shutil.which("chromium")
            check(chromium, "chromium is missing (scripts/bootstrap installs it)")
            dom = subprocess.run([chromium, "--headless", "--no-sandbox", "--disable-gpu",
                                  "--user-data-dir=" + os.path.join(home, "chromium"),
                                  "--virtual-time-budget=3000", "--dump-dom", base + "/"],
                                 capture_output=True, text=True, timeout=180).stdout
            check('id="chip"' in dom and ">ready<" in dom, "the page does not show the board's state")
        finally:
            hub_code = hub.stop() if hub else None
            board_code = board.stop()
        check(hub_code == 0, "the hub ended with %s:\n%s" % (hub_code, "\n".join(hub.lines)))
        check(board_code == 0, "the board simulator ended with %s" % board_code)
        sent = commands(log)
        check(sent and sent[-1] == "R", "Release is not the last word: %s" % sent[-5:])
    print("motion panel session: passed")


if __name__ == "__main__":
    main()
