#!/usr/bin/env python3
"""Clients of every bad kind, one after another, and what they cost the server.

hostile_clients.py PROGRAM [CONNECTIONS]

Fails when the server's memory is not what it was before, when it was ever much more, when descriptors
are left open, or when a good host is not served at the end as at the beginning.
"""
import os
import random
import sys
import tempfile
import time

import usbip_client as usbip
from usbip_client import Host, Server, import_device

FLOOD = 16 << 20  # bytes: many times what a client may leave behind
MAX_GROWTH = 300  # KiB, from when a good host has been there
MAX_PEAK = 2 << 10  # KiB above that, at any time
LONGEST = 3600  # seconds


def looks_in(port):
    Host(port).close()


def resets(port):
    Host(port).abort()


def breaks_off(port):
    host = Host(port)
    host.send(usbip.IMPORT[:random.randrange(1, len(usbip.IMPORT))])
    host.abort()


def talks_garbage(port):
    with Host(port) as host:
        host.send(random.randbytes(random.randrange(8, 4000)))


def asks_and_leaves(port):
    host = Host(port)
    host.send(usbip.DEVICES)
    host.abort()


def asks_for_another(port):
    with Host(port) as host:
        host.send(usbip.IMPORT[:8] + b"9-9".ljust(32, b"\0"))
        host.has_ended()


def crowds(port):
    hosts = [Host(port) for _ in range(40)]
    for host in hosts:
        host.close()


def attaches_and_resets(port):
    import_device(port).abort()


def takes_no_replies(port):
    """Asks for byte after byte of the bank, and never fetches one."""
    with import_device(port) as host:
        host.handshake()
        host.write(usbip.START_READ)
        host.flood(usbip.bulk_out(9, usbip.READ_NEXT * 1000), FLOOD)


def takes_no_answers(port):
    with import_device(port) as host:
        host.flood(usbip.describe(9) * 200, FLOOD)


def waits_for_too_much(port):
    with import_device(port) as host:
        host.send(b"".join(usbip.bulk_in(number) for number in range(300)))
        host.has_ended()


def breaks_off_a_transfer(port):
    host = import_device(port)
    host.send(usbip.command(1, 1, False, 2, 65536) + bytes(60000))
    host.abort()


def cancels_what_is_not_there(port):
    with import_device(port) as host:
        host.send(b"".join(usbip.unlink(number, 10**6) for number in range(200)))


def lies_about_lengths(port):
    with import_device(port) as host:
        host.send(usbip.command(1, 1, random.random() < 0.5, random.randrange(20), 1 << 31))
        host.has_ended()


def sends_and_leaves(port):
    """A whole send, whose end nobody waits for."""
    host = import_device(port)
    packets = [*usbip.HANDSHAKE, usbip.START_SEND, usbip.TWO_BLOCKS]
    packets.append(b"\x09\x90\x01\x02" * usbip.SENT_SIZE)
    host.send(b"".join(usbip.bulk_out(number, packet) for number, packet in enumerate(packets)))
    host.close()


KINDS = [looks_in, resets, breaks_off, talks_garbage, asks_and_leaves, asks_for_another, crowds,
         attaches_and_resets, takes_no_replies, takes_no_answers, waits_for_too_much,
         breaks_off_a_transfer, cancels_what_is_not_there, lies_about_lengths, sends_and_leaves]


def check_good_host(port):
    with import_device(port) as host:
        if host.handshake()[:8] != bytes.fromhex("099c0102099c0138"):
            raise AssertionError("a good host is not served")
        host.send_bank(bytes([7]) * usbip.BANK_SIZE)


def settle(server):
    """Once a good host was served and left, nobody else is there."""
    check_good_host(server.port)
    import_device(server.port).close()
    descriptors = f"/proc/{server.process.pid}/fd"
    usbip.wait_until(lambda: len(os.listdir(descriptors)) <= server.descriptors,
                     "the server closes what its clients left")
    return server.status("VmRSS")


def meet(kind, port):
    """A client whose connection is dropped has nothing to complain of."""
    try:
        kind(port)
    except ConnectionError:
        pass


def run(program, connections):
    with tempfile.TemporaryDirectory() as folder, Server(
            program, "--bank", os.path.join(folder, "bank")) as server:
        server.descriptors = len(os.listdir(f"/proc/{server.process.pid}/fd"))
        before = settle(server)
        random.seed(connections)
        end = time.monotonic() + LONGEST
        for number in range(connections):
            meet(KINDS[number % len(KINDS)], server.port)
            if time.monotonic() > end:
                raise AssertionError(f"{number} connections took an hour")
        after = settle(server)
        peak = server.status("VmHWM")
        code = server.end()
        with open(os.path.join(folder, "bank"), "rb") as bank:
            content = bank.read()
    print(f"{connections} connections of {len(KINDS)} kinds: {before} KiB before, {after} KiB after, "
          f"{peak} KiB at most, exit code {code}")
    if after - before > MAX_GROWTH or peak - before > MAX_PEAK:
        raise AssertionError("the server has grown")
    if code != 0 or content != bytes([7]) * usbip.BANK_SIZE:
        raise AssertionError("what was sent is not kept")


if __name__ == "__main__":
    run(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 300)
