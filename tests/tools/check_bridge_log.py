#!/usr/bin/python3
"""Checks a JSON-lines log written by `orvane-sim bridge --log FILE`.

An independent reading of the log: every frame's CRC is recomputed bit by bit
from its raw hex, the sixteen channels of every 0x16 frame are unpacked again and
must equal the channels the simulator logged. Optional expectations pin the
commands seen and the number of channel frames. Exit status 0 when all holds,
1 when something does not (each problem printed), 2 for a usage error.
Standard library only.
"""

import argparse
import json
import sys

SYNC_BYTES = {0xC8, 0xEA, 0xEE}
KINDS = {"frame", "command", "keepalive", "garbage", "event"}


def crc8_dvb_s2(data):
    crc = 0
    for byte in data:
        crc ^= byte
        for _ in range(8):
            crc = ((crc << 1) ^ 0xD5) & 0xFF if crc & 0x80 else (crc << 1) & 0xFF
    return crc


def unpack_channels(payload):
    bits = int.from_bytes(payload[:22], "little")
    return [(bits >> (11 * i)) & 0x7FF for i in range(16)]


def check_frame(record, where, problems):
    try:
        raw = bytes.fromhex(record["hex"])
    except (KeyError, TypeError, ValueError):
        problems.append(f"{where}: frame without valid hex")
        return None
    if len(raw) < 4 or raw[0] not in SYNC_BYTES:
        problems.append(f"{where}: not a CRSF frame: {record['hex']}")
        return None
    if raw[1] + 2 != len(raw):
        problems.append(f"{where}: length byte {raw[1]} does not fit {len(raw)} bytes")
        return None
    if crc8_dvb_s2(raw[2:-1]) != raw[-1]:
        problems.append(f"{where}: bad CRC")
    if record.get("type") != raw[2]:
        problems.append(f"{where}: logged type {record.get('type')} but the frame says {raw[2]}")
    if raw[2] == 0x16:
        if len(raw) != 26:
            problems.append(f"{where}: channel frame of {len(raw)} bytes")
            return None
        channels = unpack_channels(raw[3:25])
        if record.get("channels") != channels:
            problems.append(f"{where}: logged channels {record.get('channels')} but the frame holds {channels}")
        return channels
    return None


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("log")
    parser.add_argument("--expect-commands", help="comma-separated commands in order (keepalives not listed)")
    parser.add_argument("--expect-channel-frames", type=int)
    parser.add_argument("--expect-last-channels", help="sixteen comma-separated values")
    args = parser.parse_args()

    problems = []
    commands = []
    channel_frames = []
    last_time = None
    try:
        with open(args.log, encoding="utf-8") as f:
            lines = f.readlines()
    except OSError as e:
        print(f"cannot read {args.log}: {e}")
        return 1

    for number, line in enumerate(lines, 1):
        where = f"line {number}"
        try:
            record = json.loads(line)
        except ValueError:
            problems.append(f"{where}: not JSON")
            continue
        if not isinstance(record, dict):
            problems.append(f"{where}: not an object")
            continue
        t = record.get("t")
        if not isinstance(t, (int, float)):
            problems.append(f"{where}: no millisecond timestamp")
        elif last_time is not None and t < last_time:
            problems.append(f"{where}: time goes backwards")
        else:
            last_time = t
        kind = record.get("kind")
        if kind not in KINDS:
            problems.append(f"{where}: unknown kind {kind!r}")
        elif kind == "frame":
            channels = check_frame(record, where, problems)
            if channels is not None:
                channel_frames.append(channels)
        elif kind == "command":
            commands.append(record.get("command"))

    if args.expect_commands is not None:
        expected = [c for c in args.expect_commands.split(",") if c]
        if commands != expected:
            problems.append(f"commands {commands}, expected {expected}")
    if args.expect_channel_frames is not None and len(channel_frames) != args.expect_channel_frames:
        problems.append(f"{len(channel_frames)} channel frames, expected {args.expect_channel_frames}")
    if args.expect_last_channels is not None:
        expected = [int(v) for v in args.expect_last_channels.split(",")]
        if not channel_frames or channel_frames[-1] != expected:
            problems.append(f"last channels {channel_frames[-1] if channel_frames else None}, expected {expected}")

    for p in problems:
        print(p)
    print(f"{len(lines)} records, {len(channel_frames)} channel frames, commands {commands}: "
          + ("OK" if not problems else f"{len(problems)} problem(s)"))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
