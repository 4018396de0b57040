#!/usr/bin/python3
"""The car's receiver as the mobile app reaches it, from outside: `orvane-sim receiver` on a
pty plays the receiver's USB console beside `orvanehub --headless --demo --receiver LINK`,
and an independent WebSocket client (Debian's python3-websockets) changes its settings,
runs the two mounting steps and the gyro calibration, and pushes an LED strip configuration
over the receiver's console. The simulator's log of the commands
it received is the evidence that the requests reached the receiver.

Usage: receiver_session_test.py <orvanehub> <orvane-sim>
"""

import asyncio
import json
import os
import subprocess
import sys
import tempfile
import threading
import time

import websockets

from remote_session_test import TIMEOUT, App, Hub, check, free_port, stop_process


class Receiver:
    """orvane-sim receiver on its own pty, logging every command it receives."""

    def __init__(self, program, link, log):
        self.log = log
        self.lines = []
        self.process = subprocess.Popen([program, "receiver", "--link", link, "--log", log],
                                        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.append(line.rstrip("\n"))

    def wait_until_listening(self):
        deadline = time.monotonic() + TIMEOUT
        while not any(line.startswith("link: ") for line in self.lines):
            if self.process.poll() is not None or time.monotonic() > deadline:
                raise AssertionError("the receiver simulator never came up:\n" + "\n".join(self.lines))
            time.sleep(0.05)

    def commands(self):
        with open(self.log) as log:
            return [record["command"] for record in map(json.loads, log) if record.get("kind") == "command"]

    def stop(self):
        return stop_process(self.process)


async def session(hub, receiver, port):
    await hub.wait_for("remote: app server listening on port %d" % port)
    async with websockets.connect("ws://127.0.0.1:%d" % port, open_timeout=TIMEOUT, max_size=2 ** 22) as socket_:
        app = App(socket_)

        async def config():
            reply = await app.ask("get_receiver_config")
            check(reply.get("success", True) is not False, reply)
            return reply["data"]

        async def settled_with(wanted):
            data = await config()
            return data["synced"] and all(data["settings"].get(key) == value for key, value in wanted.items())

        await app.until(lambda: settled_with({}), "the receiver's settings read over USB")

        # Away from the simulator's own values and back: each change goes out as its command
        # and the receiver's read-back (TELEM:) reports it.
        for wanted, sent in (({"gpsRateHz": 10, "motionTelem": False}, ["GPS_RATE 10", "SET_MOTION_TELEM 0"]),
                             ({"gpsRateHz": 5, "motionTelem": True}, ["GPS_RATE 5", "SET_MOTION_TELEM 1"])):
            reply = await app.ask("set_receiver_config", {"settings": wanted})
            check(reply["success"] is True, reply)
            await app.until(lambda: settled_with(wanted), "the receiver to report %s" % wanted)
            commands = receiver.commands()
            check(all(command in commands for command in sent), commands)
            last_set = max(commands.index(command) for command in sent)
            check("GET_TELEM" in commands[last_set:], "no read-back after the change: %s" % commands)

        # The console cannot put the receiver into its boot loader.
        reply = await app.ask("action_receiver_command", {"command": "dfu"})
        check(reply["success"] is False and reply["message"] == "Command refused", reply)

        # Mounting detection, the car flat, then its front lifted: the receiver's new axes come back.
        for step, state in ((0, "need_nose_up"), (1, "done")):
            reply = await app.ask("action_receiver_detect_mounting", {"step": step})
            check(reply["success"] is True, reply)

            async def step_finished():
                data = await config()
                check(data["mounting"] != "failed", data)
                return data["mounting"] == state and data["mountingText"] != ""
            await app.until(step_finished, "mounting step %d" % step)

        async def axes_read():
            return (await config())["imuAxes"] == "FWD=-Y LEFT=+X UP=+Z"
        await app.until(axes_read, "the detected axes")

        reply = await app.ask("action_receiver_calibrate_gyro")
        check(reply["success"] is True, reply)

        async def calibrated():
            data = await config()
            check(data["gyroCal"] != "failed", data)
            return data["gyroCal"] == "done" and data["gyroCalText"] != ""
        await app.until(calibrated, "the gyro calibration")

        commands = receiver.commands()
        check(not any(command.lower() == "dfu" for command in commands), commands)
        check(["IMU_ORIENT FLAT", "IMU_ORIENT NOSEUP", "IMU_CAL"] ==
              [c for c in commands if c.startswith("IMU_")], commands)

        # An LED strip of 12 LEDs in two coloured zones, pushed one command at a time.
        for event, data in (("set_led_count", {"count": 12}), ("set_led_mode", {"mode": "range"}),
                            ("add_zone", {"startPercent": 0, "endPercent": 40, "color": {"r": 255, "g": 0, "b": 0}}),
                            ("add_zone", {"startPercent": 60, "endPercent": 100, "color": {"r": 0, "g": 0, "b": 255}})):
            reply = await app.ask(event, data)
            check(reply["success"] is True, reply)
        check((await app.ask("action_subscribe", {"events": ["event_led_push_progress"]}))["success"], "subscribe")
        reply = await app.ask("trigger_led_config")
        check(reply["success"] is True, reply)

        async def pushed():
            status = (await app.ask("get_led_status"))["data"]
            return not status["configPending"] and status["configState"] in ("complete", "idle")
        await app.until(pushed, "the LED push to end")
        outcomes = [p["data"]["state"] for p in app.pushes if p["event"] == "event_led_push_progress"]
        check(outcomes[-1:] == ["success"], outcomes)
        commands = receiver.commands()
        check("LED_COUNT=12" in commands and "LED_MODE=RANGE" in commands, commands)
        check("LED_RANGE_END=1,100" in commands, commands)


def main():
    hub_program, sim_program = sys.argv[1], sys.argv[2]
    with tempfile.TemporaryDirectory() as home:
        receiver = Receiver(sim_program, os.path.join(home, "ttyReceiver"), os.path.join(home, "receiver.jsonl"))
        hub = None
        try:
            receiver.wait_until_listening()
            port = free_port()
            hub = Hub(hub_program, home, ["--receiver", os.path.join(home, "ttyReceiver"), "--remote-port", str(port)])
            asyncio.run(session(hub, receiver, port))
        finally:
            if hub:
                hub.stop()
            code = receiver.stop()
        check(hub.process.returncode == 0, "the hub ended with %s" % hub.process.returncode)
        check(code == 0, "the receiver simulator ended with %s" % code)
    print("receiver session: passed")


if __name__ == "__main__":
    main()
