#!/usr/bin/python3
"""The hub's mDNS responder as a phone on the same network sees it.

Everything runs in private network namespaces, so no packet can leave the machine: the
hub's namespace (this script re-executes itself under `unshare -n`) holds one end of a
veth pair, a second namespace holds the other end and plays the phone. python3-zeroconf
builds the queries and decodes the answers, independently of our code.

Usage: /usr/bin/python3 mdns_netns_test.py <mdnspeer executable>
"""
import ctypes
import os
import select
import socket
import subprocess
import sys
import time

from zeroconf import DNSIncoming, DNSOutgoing, DNSQuestion
from zeroconf.const import _CLASS_IN, _FLAGS_QR_QUERY, _TYPE_A, _TYPE_AAAA

SKIP = 77
GROUP, PORT = "224.0.0.251", 5353
OUR_NAME = "orvanelabs-transmitter.local."
HUB_ADDRESS, PHONE_ADDRESS = "10.77.0.1", "10.77.0.2"
# Generous: CI runs on two loaded cores. Only the "nothing is sent" case waits it out.
WAIT_SECONDS = 60
SILENCE_SECONDS = 5
CLONE_NEWNET = 0x40000000
IP_PKTINFO = getattr(socket, "IP_PKTINFO", 8)  # Python 3.11 lacks the name; 8 on Linux


def run(command, pid=None):
    prefix = ["nsenter", "-t", str(pid), "-n"] if pid else []
    subprocess.run(prefix + command.split(), check=True)


def spawn(command):
    """A process in a namespace of its own that says it is ready and lives until stdin closes."""
    process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    if process.stdout.readline().strip() not in ("ready", "listening"):
        sys.exit(f"FAIL: {command[-1]} did not start")
    return process


def socket_in_namespace_of(pid, interface_address):
    """A socket on the mDNS port, joined to the group on the given interface, made inside
    the network namespace of pid (a socket keeps the namespace it was made in)."""
    libc = ctypes.CDLL(None, use_errno=True)
    own = os.open("/proc/self/ns/net", os.O_RDONLY)
    other = os.open(f"/proc/{pid}/ns/net", os.O_RDONLY)
    try:
        if libc.setns(other, CLONE_NEWNET) != 0:
            sys.exit(f"FAIL: setns: {os.strerror(ctypes.get_errno())}")
        sock = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        sock.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        sock.bind(("", PORT))
        interface = socket.inet_aton(interface_address)
        sock.setsockopt(socket.IPPROTO_IP, socket.IP_ADD_MEMBERSHIP, socket.inet_aton(GROUP) + interface)
        sock.setsockopt(socket.IPPROTO_IP, socket.IP_MULTICAST_IF, interface)
        sock.setsockopt(socket.IPPROTO_IP, IP_PKTINFO, 1)
    finally:
        libc.setns(own, CLONE_NEWNET)
        os.close(own)
        os.close(other)
    return sock


def send_query(sock, query_id, name, record_type):
    out = DNSOutgoing(_FLAGS_QR_QUERY, multicast=False, id_=query_id)  # multicast=True zeroes the ID
    out.add_question(DNSQuestion(name, record_type, _CLASS_IN))
    sock.sendto(out.packets()[0], (GROUP, PORT))


def messages(sock, seconds):
    """(decoded datagram, its destination address) as they arrive, for at most the given time."""
    deadline = time.monotonic() + seconds
    while (remaining := deadline - time.monotonic()) > 0:
        if select.select([sock], [], [], remaining)[0]:
            data, ancillary, _, _ = sock.recvmsg(9000, 64)
            pktinfo = next(d for level, kind, d in ancillary if kind == IP_PKTINFO)
            yield DNSIncoming(data), socket.inet_ntoa(pktinfo[8:12])  # in_pktinfo.ipi_addr


def answers_of(message):
    return message.answers() if callable(message.answers) else message.answers


def check(condition, what):
    if not condition:
        sys.exit(f"FAIL: {what}")


def test_phone_across_veth(peer_program):
    phone = spawn(["unshare", "-n", "sh", "-c", "echo ready; exec cat"])
    # An earlier interface that is up with an address but has no carrier (its peer is
    # down) must not be taken: nobody could reach the hub through it.
    run("ip link add dead0 type veth peer name dead1")
    run("ip addr add 10.78.0.1/24 dev dead0")
    run("ip link set dead0 up")
    run(f"ip link add veth0 type veth peer name veth1 netns {phone.pid}")
    for pid, end, address in ((None, "veth0", HUB_ADDRESS), (phone.pid, "veth1", PHONE_ADDRESS)):
        run("ip link set lo up", pid)
        run(f"ip addr add {address}/24 dev {end}", pid)
        run(f"ip link set {end} multicast on up", pid)
        run(f"ip route add 224.0.0.0/4 dev {end}", pid)
    hub = spawn([peer_program])
    sock = socket_in_namespace_of(phone.pid, PHONE_ADDRESS)
    # Datagrams go both ways in order over one link, so by the time the answer to the last
    # query arrives, any answer to the earlier two would have arrived before it.
    send_query(sock, 0x1111, OUR_NAME, _TYPE_AAAA)
    send_query(sock, 0x2222, "printer.local.", _TYPE_A)
    send_query(sock, 0x3333, OUR_NAME.upper(), _TYPE_A)
    responses = []
    for message, destination in messages(sock, WAIT_SECONDS):
        if message.is_response():
            responses.append(message)
            check(destination == GROUP, f"answer sent to {destination}, not to the group")
            if message.id == 0x3333:
                break
    check([m.id for m in responses] == [0x3333], f"answered IDs {[hex(m.id) for m in responses]}, want 0x3333 only")
    records = answers_of(responses[0])
    check(len(records) == 1 and records[0].name == OUR_NAME and records[0].type == _TYPE_A,
          f"answer records {records}")
    check(records[0].address == socket.inet_aton(HUB_ADDRESS), f"address {records[0].address}, want {HUB_ADDRESS}")
    for process in (hub, phone):
        process.kill()


def test_silent_with_only_loopback(peer_program):
    setup = "ip link set lo up; ip link set lo multicast on; ip route add 224.0.0.0/4 dev lo"
    hub = spawn(["unshare", "-n", "sh", "-c", f"{setup} && exec {peer_program}"])
    sock = socket_in_namespace_of(hub.pid, "127.0.0.1")
    send_query(sock, 0x4444, OUR_NAME.upper(), _TYPE_A)
    # The query looping back to us shows the group works here, so silence means something.
    heard_query = False
    for message, _ in messages(sock, WAIT_SECONDS):
        if message.id == 0x4444 and message.is_query():
            heard_query = True
            break
    check(heard_query, "the query did not come back over loopback")
    responses = [m for m, _ in messages(sock, SILENCE_SECONDS) if m.is_response()]
    check(not responses, "answered with only loopback up")
    hub.kill()


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    if os.environ.get("MDNS_NETNS_INSIDE") != "1":
        probe = subprocess.run(["unshare", "-n", "true"], capture_output=True, text=True)
        if probe.returncode != 0:
            print(f"SKIP: network namespaces are not permitted here: {probe.stderr.strip()}")
            sys.exit(SKIP)
        os.environ["MDNS_NETNS_INSIDE"] = "1"
        os.execvp("unshare", ["unshare", "-n", sys.executable, *sys.argv])
    test_phone_across_veth(sys.argv[1])
    test_silent_with_only_loopback(sys.argv[1])
    print("PASS")


if __name__ == "__main__":
    main()
