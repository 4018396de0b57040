#!/usr/bin/python3
"""The motion output seen by motion software: `orvanehub --headless --demo --motion-output`
streams to a UDP socket on the loopback, read by a reader written from DiRT Rally's field
table (not from the hub's code). The reader is first checked against datagrams the game
itself sent, so a wrong index or byte order fails here rather than passing both sides.

Usage: motion_output_test.py <orvanehub> <folder with the DiRT Rally recording>
"""

import csv
import math
import os
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import threading
import time

TIMEOUT = 60  # seconds; generous, CI machines are loaded
PACKET = struct.Struct("<66f")

# DiRT Rally's telemetry fields that motion software reads, by index.
FIELDS = {
    "total_time": 0, "lap_time": 1, "velocity_y": 9,
    "roll_x": 11, "roll_y": 12, "roll_z": 13,
    "pitch_x": 14, "pitch_y": 15, "pitch_z": 16,
    "throttle": 29, "steering": 30, "brake": 31, "clutch": 32, "gear": 33,
    "g_lat": 34, "g_lon": 35, "rpm": 37, "max_rpm": 63, "idle_rpm": 64, "max_gears": 65,
}


def read_packet(data):
    if len(data) != PACKET.size:
        raise AssertionError(f"datagram of {len(data)} bytes, expected {PACKET.size}")
    values = PACKET.unpack(data)
    return {name: values[index] for name, index in FIELDS.items()}, values


def norm(p, prefix):
    return math.sqrt(sum(p[prefix + axis] ** 2 for axis in ("_x", "_y", "_z")))


def check(condition, what):
    if not condition:
        raise AssertionError(what)


def check_reader(folder):
    """The reader against the game's own datagrams and their text dump."""
    with open(os.path.join(folder, "dr2_renault5_first4.bin"), "rb") as f:
        recording = f.read()
    with open(os.path.join(folder, "dr2_renault5_first4.csv")) as f:
        rows = [row for row in csv.reader(f) if row and not row[0].startswith("#")]
    check(len(recording) == len(rows) * PACKET.size and rows, "recording and its text differ in length")
    for number, row in enumerate(rows):
        packet, values = read_packet(recording[number * PACKET.size:(number + 1) * PACKET.size])
        check(list(values) == [float(v) for v in row], f"recorded packet {number} misread")
        for vector in ("roll", "pitch"):
            check(abs(norm(packet, vector) - 1.0) < 1e-3, f"recorded {vector} vector is not a unit vector")
        check(packet["g_lat"] != 0.0 and packet["g_lon"] != 0.0, "recorded G fields empty")


class Hub:
    """orvanehub in its own process, its output collected for the failure message."""

    def __init__(self, program, target_port, home):
        env = dict(os.environ, QT_QPA_PLATFORM="offscreen", HOME=home, TMPDIR=home,
                   XDG_CONFIG_HOME=home + "/config", XDG_DATA_HOME=home + "/data")
        self.lines = []
        self.process = subprocess.Popen(
            [program, "--headless", "--demo", "--remote-port", "0",
             "--motion-output", f"127.0.0.1:{target_port}"],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, env=env)
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.append(line.rstrip("\n"))

    def output(self):
        return "\n".join(self.lines)

    def stop(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
        return self.process.wait(TIMEOUT)


def receive_live_stream(rig, hub):
    """Datagrams from the first one that carries the simulated car's motion, plus 40 more."""
    deadline = time.monotonic() + TIMEOUT
    packets = []
    while len(packets) < 41:
        if time.monotonic() > deadline or hub.process.poll() is not None:
            raise AssertionError(f"no live motion stream ({len(packets)} packets):\n" + hub.output())
        try:
            data = rig.recv(4096)
        except socket.timeout:
            continue
        packet, _ = read_packet(data)
        if packets or abs(packet["g_lat"]) > 0.02:
            packets.append(packet)
    return packets


def check_stream(packets):
    times = [p["total_time"] for p in packets]
    check(all(b >= a for a, b in zip(times, times[1:])) and times[-1] > times[0], f"time not increasing: {times}")
    check(all(p["lap_time"] == p["total_time"] for p in packets), "lap time differs from total time")
    for p in packets:
        for vector in ("roll", "pitch"):
            check(abs(norm(p, vector) - 1.0) < 1e-3, f"{vector} vector not a unit vector: {p}")
        # The simulated car corners at under half a g; anything near the bounds is a fault.
        check(abs(p["g_lat"]) < 1.0 and abs(p["g_lon"]) < 1.0 and abs(p["velocity_y"]) < 1.0, p)
        check(p["max_rpm"] == 800.0 and p["idle_rpm"] == 100.0 and p["max_gears"] == 6.0, p)
        check(p["gear"] in (0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 10.0), p)
        check(-1.0 <= p["steering"] <= 1.0 and 0.0 <= p["throttle"] <= 1.0, p)
    # The car's accelerations change from datagram to datagram as it drives.
    check(len({p["g_lat"] for p in packets}) > 10 and any(abs(p["g_lon"]) > 0.001 for p in packets),
          "G fields do not follow the car")


def main():
    program, data_folder = sys.argv[1], sys.argv[2]
    check_reader(data_folder)
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as rig, tempfile.TemporaryDirectory() as home:
        rig.bind(("127.0.0.1", 0))
        rig.settimeout(1.0)
        hub = Hub(program, rig.getsockname()[1], home)
        try:
            packets = receive_live_stream(rig, hub)
        finally:
            status = hub.stop()
        check_stream(packets)
        check(status == 0, f"orvanehub exited with {status}:\n" + hub.output())
    print("motion output: passed")


if __name__ == "__main__":
    main()
