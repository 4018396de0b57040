#!/usr/bin/python3
# The hub's mDNS responder as a phone on the same network sees it.
#
# Everything runs in private network namespaces, so no packet can leave the machine: the
# hub's namespace (this script re-executes itself under `unshare -n`) holds one end of a
# veth pair, a second namespace holds the other end and plays the phone. python3-zeroconf
# builds the queries and decodes the answers, independently of our code.
#
# Usage: /usr/bin/python3 mdns_netns_test.py <mdnspeer executable>
import ctypes
import os
import select
import socket
import subprocess
import sys
import time

from zeroconf import DNSIncoming, DNSOutgoing, DNSQuestion
from zeroconf.const import _CLASS_IN, _FLAGS_QR_QUERY, _TYPE_A, _TYPE_AAAA

GROUP, PORT = "224.0.0.251", 5353
OUR_NAME = "orvanelabs-transmitter.local."
HUB_ADDRESS, PHONE_ADDRESS = "10.77.0.1", "10.77.0.2"
# Generous: CI runs on two loaded cores. Only the "nothing is sent" case waits its time out.
WAIT_SECONDS, SILENCE_SECONDS = 60, 5
CLONE_NEWNET = 0x40000000
IP_PKTINFO = getattr(socket, "IP_PKTINFO", 8)  # Python 3.11 lacks the name; 8 on Linux


def check(condition, what):
    if not condition:
        sys.exit(f"FAIL: {what}")


def ip(commands, pid=None):
    prefix = ["nsenter", "-t", str(pid), "-n"] if pid else []
    subprocess.run(prefix + ["ip", "-batch", "-"], input="\n".join(commands), text=True, check=True)


# A process that prints one line once it is ready and lives until our end of its stdin
# closes, so nothing outlives the test, whichever way it ends.
def spawn(command):
    process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    check(process.stdout.readline().strip() in ("ready", "listening"), f"{command} did not start")
    return process


# The phone's socket, made inside the network namespace of pid (a socket keeps the
# namespace it was made in) and joined to the group on the given interface.
def socket_in_namespace_of(pid, interface_address):
    libc = ctypes.CDLL(None, use_errno=True)
    own, other = os.open("/proc/self/ns/net", os.O_RDONLY), os.open(f"/proc/{pid}/ns/net", os.O_RDONLY)
    check(libc.setns(other, CLONE_NEWNET) == 0, f"setns: {os.strerror(ctypes.get_errno())}")
    sock = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    sock.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
    sock.bind(("", PORT))
    interface = socket.inet_aton(interface_address)
    sock.setsockopt(socket.IPPROTO_IP, socket.IP_ADD_MEMBERSHIP, socket.inet_aton(GROUP) + interface)
    sock.setsockopt(socket.IPPROTO_IP, socket.IP_MULTICAST_IF, interface)
    sock.setsockopt(socket.IPPROTO_IP, IP_PKTINFO, 1)
    check(libc.setns(own, CLONE_NEWNET) == 0, "setns back")
    return sock


def send_query(sock, query_id, name, record_type):
    out = DNSOutgoing(_FLAGS_QR_QUERY, multicast=False, id_=query_id)  # multicast=True zeroes the ID
    out.add_question(DNSQuestion(name, record_type, _CLASS_IN))
    sock.sendto(out.packets()[0], (GROUP, PORT))


# (decoded datagram, the address it was sent to) as they arrive, for at most the given time.
def messages(sock, seconds):
    deadline = time.monotonic() + seconds
    while (remaining := deadline - time.monotonic()) > 0:
        if select.select([sock], [], [], remaining)[0]:
            data, ancillary, _, _ = sock.recvmsg(9000, 64)
            pktinfo = next(d for _, kind, d in ancillary if kind == IP_PKTINFO)
            yield DNSIncoming(data), socket.inet_ntoa(pktinfo[8:12])  # in_pktinfo.ipi_addr


def test_phone_across_veth(peer_program):
    phone = spawn(["unshare", "-n", "sh", "-c", "echo ready; exec cat"])
    # dead0 comes first, is up and has an address but no carrier (its peer is down): nobody
    # could reach the hub through it, so its address must not be given out.
    ip(["link add dead0 type veth peer name dead1", "addr add 10.78.0.1/24 dev dead0", "link set dead0 up",
        f"link add veth0 type veth peer name veth1 netns {phone.pid}"])
    for pid, end, address in ((None, "veth0", HUB_ADDRESS), (phone.pid, "veth1", PHONE_ADDRESS)):
        ip(["link set lo up", f"addr add {address}/24 dev {end}", f"link set {end} multicast on up",
            f"route add 224.0.0.0/4 dev {end}"], pid)
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
            check(destination == GROUP, f"answer sent to {destination}, not to the group")
            responses.append(message)
            if message.id == 0x3333:
                break
    ids = [hex(m.id) for m in responses]
    check(ids == ["0x3333"], f"answered IDs {ids}, want 0x3333 only")
    records = responses[0].answers
    records = records() if callable(records) else records  # a method in newer zeroconf
    found = [(r.name, r.type, socket.inet_ntoa(r.address)) for r in records]
    check(found == [(OUR_NAME, _TYPE_A, HUB_ADDRESS)], f"records {found}")
    for process in (hub, phone):
        process.stdin.close()


def test_silent_with_only_loopback(peer_program):
    setup = "ip link set lo up multicast on && ip route add 224.0.0.0/4 dev lo"
    hub = spawn(["unshare", "-n", "sh", "-c", f'{setup} && exec "$0"', peer_program])
    sock = socket_in_namespace_of(hub.pid, "127.0.0.1")
    send_query(sock, 0x4444, OUR_NAME.upper(), _TYPE_A)
    # Hearing our own query come back shows the group works here, so silence means something.
    heard = any(m.id == 0x4444 and m.is_query() for m, _ in messages(sock, WAIT_SECONDS))
    check(heard, "our query did not come back over loopback")
    answered = any(m.is_response() for m, _ in messages(sock, SILENCE_SECONDS))
    check(not answered, "answered with only loopback up")


def main():
    if os.environ.get("MDNS_NETNS_INSIDE") != "1":
        probe = subprocess.run(["unshare", "-n", "true"], capture_output=True, text=True)
        if probe.returncode != 0:
            print(f"SKIP: network namespaces are not permitted here: {probe.stderr.strip()}")
            sys.exit(77)
        os.environ["MDNS_NETNS_INSIDE"] = "1"
        os.execvp("unshare", ["unshare", "-n", sys.executable, *sys.argv])
    test_phone_across_veth(sys.argv[1])
    test_silent_with_only_loopback(sys.argv[1])
    print("PASS")


if __name__ == "__main__":
    main()
