#!/usr/bin/python3
"""The mobile app's view of the hub, from outside: `orvanehub --headless --demo` with its
remote server on the loopback, driven by an independent WebSocket client (Debian's
python3-websockets). The hub's own output (its demo bridge echoes every command it
receives) is the evidence that requests reached the car's side.

Usage: remote_session_test.py <orvanehub>
"""

import asyncio
import json
import os
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time

import websockets

TIMEOUT = 60  # seconds; generous, CI machines are loaded


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Hub:
    """orvanehub in its own process, its output collected line by line."""

    def __init__(self, program, home, arguments):
        env = dict(os.environ, QT_QPA_PLATFORM="offscreen", HOME=home, TMPDIR=home,
                   XDG_CONFIG_HOME=home + "/config", XDG_DATA_HOME=home + "/data")
        self.lines = []
        self.process = subprocess.Popen([program, "--headless", "--demo", "--remote-address", "127.0.0.1"] + arguments,
                                        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, env=env)
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.append(line.rstrip("\n"))

    def count(self, text):
        return sum(text in line for line in self.lines)

    async def wait_for(self, text, times=1):
        deadline = time.monotonic() + TIMEOUT
        while self.count(text) < times:
            if self.process.poll() is not None or time.monotonic() > deadline:
                raise AssertionError(f"the hub never printed {text!r} {times}x:\n" + "\n".join(self.lines))
            await asyncio.sleep(0.05)

    def stop(self):
        stop_process(self.process)


def stop_process(process):
    """SIGTERM, as a user's Ctrl-C or a service manager would; killed only if it hangs."""
    if process.poll() is None:
        process.send_signal(signal.SIGTERM)
        try:
            process.wait(TIMEOUT)
        except subprocess.TimeoutExpired:
            process.kill()
    return process.returncode


class App:
    """One client: replies are matched to requests; push events are kept apart."""

    def __init__(self, socket_):
        self.socket = socket_
        self.pushes = []

    async def ask(self, event, data=None, raw=None):
        await self.socket.send(raw if raw is not None else json.dumps({"event": event, "data": data or {}}))
        while True:
            message = json.loads(await asyncio.wait_for(self.socket.recv(), TIMEOUT))
            if message["event"] in (event, "error"):
                return message
            self.pushes.append(message)

    async def until(self, condition, what):
        deadline = time.monotonic() + TIMEOUT
        while not await condition():
            if time.monotonic() > deadline:
                raise AssertionError("timed out waiting for " + what)
            await asyncio.sleep(0.1)


def check(condition, what):
    if not condition:
        raise AssertionError(what)


async def session(hub, port):
    await hub.wait_for("remote: app server listening on port %d" % port)
    uri = "ws://127.0.0.1:%d" % port

    # A page from another host in a browser on the same network must not drive the car.
    try:
        async with websockets.connect(uri, origin="http://evil.example", open_timeout=TIMEOUT):
            raise AssertionError("a cross-origin handshake was accepted")
    except websockets.exceptions.InvalidStatusCode as refused:
        check(refused.status_code == 403, "cross-origin handshake: status %d" % refused.status_code)

    async with websockets.connect(uri, open_timeout=TIMEOUT, max_size=2 ** 22) as socket_:
        app = App(socket_)

        # Malformed requests get their exact error replies and leave the connection open.
        check(await app.ask(None, raw="{}") == {"event": "error", "message": "Missing 'event' field"}, "empty object")
        reply = await app.ask(None, raw="not json")
        check(reply["event"] == "error" and reply["message"].startswith("Invalid JSON: "), reply)
        check(await app.ask("get_warp_drive") == {"event": "error", "source": "get_warp_drive",
                                                  "message": "Unknown event: get_warp_drive"}, "unknown event")
        reply = await app.ask("set_channel", {"index": 16, "value": 1000})
        check(reply.get("success") is False and reply["message"] == "Invalid channel index. Must be 0-15.", reply)

        # The demo starts transmitting by itself once; stop it, then start it from the app.
        async def running():
            return (await app.ask("get_transmission_status"))["data"]["running"]
        await app.until(running, "the demo's own start")
        check((await app.ask("action_start"))["message"] == "Already running", "a second start")
        check((await app.ask("action_stop"))["success"] is True, "action_stop")
        await hub.wait_for("demo bridge: STOP")
        check(not await running(), "still running after action_stop")
        starts = hub.count("demo bridge: START")
        check((await app.ask("action_start"))["success"] is True, "action_start")
        await hub.wait_for("demo bridge: START", starts + 1)

        # Sixteen channel values that move with the replayed drive.
        first = (await app.ask("get_channels"))["data"]["channels"]
        check(len(first) == 16 and all(isinstance(v, int) and 0 <= v <= 2047 for v in first), first)

        async def moved():
            return (await app.ask("get_channels"))["data"]["channels"][:2] != first[:2]
        await app.until(moved, "the channels to follow the replay")

        # Frame events flow while subscribed and stop with the unsubscribe reply.
        check((await app.ask("action_subscribe", {"events": ["event_frame_sent"]}))["success"], "subscribe")

        async def frames_seen():
            await app.ask("get_frame_count")
            return sum(p["event"] == "event_frame_sent" for p in app.pushes) >= 20
        await app.until(frames_seen, "event_frame_sent pushes")
        numbers = [p["data"]["frameNumber"] for p in app.pushes if p["event"] == "event_frame_sent"]
        check(numbers == sorted(numbers), "frame numbers out of order")
        check((await app.ask("action_unsubscribe", {"events": ["event_frame_sent"]}))["success"], "unsubscribe")
        app.pushes.clear()
        for _ in range(10):
            await app.ask("get_frame_count")
            await asyncio.sleep(0.05)
        check(not any(p["event"] == "event_frame_sent" for p in app.pushes), "frames pushed after unsubscribing")

        # Profiles made and removed from the app.
        created = await app.ask("action_create_profile", {"name": "From the phone"})
        check(created["success"] is True, created)
        new_id = created["data"]["id"]

        async def profile_ids():
            return [p["id"] for p in (await app.ask("get_profiles"))["data"]["profiles"]]
        check(new_id in await profile_ids(), "created profile not listed")
        check((await app.ask("action_delete_profile", {"id": new_id}))["success"] is True, "delete")
        check(new_id not in await profile_ids(), "deleted profile still listed")

        stops = hub.count("demo bridge: STOP")
        check((await app.ask("action_stop"))["success"] is True, "final action_stop")
        await hub.wait_for("demo bridge: STOP", stops + 1)

        # The transmitter module's parameters: configuration mode, the walk the hub starts a
        # few seconds into it, a selection written by name and read back from the next walk.
        check((await app.ask("action_subscribe", {"events": ["event_elrs_params"]}))["success"], "subscribe")

        async def walked_packet_rate():
            app.pushes.clear()
            check((await app.ask("action_elrs_start_config"))["success"] is True, "action_elrs_start_config")

            async def params_pushed():
                await app.ask("get_elrs_state")
                return any(p["event"] == "event_elrs_params" for p in app.pushes)
            await app.until(params_pushed, "event_elrs_params")
            params = next(p for p in app.pushes if p["event"] == "event_elrs_params")["data"]["params"]
            return next(p for p in params if p["name"] == "Packet Rate")

        rate = await walked_packet_rate()
        check(rate["kind"] == "enum" and rate["currentValue"] != 5, rate)
        reply = await app.ask("set_elrs_param", {"name": "Packet Rate", "valueIndex": 5})
        check(reply["success"] is True, reply)
        check((await app.ask("action_elrs_stop_config"))["success"] is True, "action_elrs_stop_config")
        await hub.wait_for("demo bridge: CFGMODE OFF")
        check((await walked_packet_rate())["currentValue"] == 5, "Packet Rate not changed by the write")
        check((await app.ask("action_elrs_stop_config"))["success"] is True, "second action_elrs_stop_config")


def main():
    program = sys.argv[1]
    port = free_port()
    with tempfile.TemporaryDirectory() as home:
        hub = Hub(program, home, ["--remote-port", str(port)])
        try:
            asyncio.run(session(hub, port))
        finally:
            hub.stop()
    print("remote session: passed")


if __name__ == "__main__":
    main()
