"""scenewright-virtual in surroundings that are not as usual, and beside clients that stop."""

import os
import subprocess
import sys
from pathlib import Path

import surroundings_streams
import sweep_run

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "virtual/usbip"))

import usbip_client as usbip  # noqa: E402  pylint: disable=wrong-import-position
from usbip_client import Host, Server, import_device  # noqa: E402  pylint: disable=wrong-import-position

FLOOD = 1 << 20  # bytes: more than is kept for a client that takes no answers


def half_a_request(port):
    host = Host(port)
    host.send(usbip.IMPORT[:3])
    return host


def half_a_header(port):
    host = import_device(port)
    host.send(bytes(20))
    return host


def after_handshake(port):
    host = import_device(port)
    host.handshake()
    return host


def in_mid_send(port):
    host = import_device(port)
    host.begin_send()
    for _ in range(100):
        host.write(bytes([0x09, 0x90, 0, 0]))
    return host


def takes_no_answer(port):
    host = import_device(port)
    host.flood(usbip.describe(9) * 200, FLOOD)
    return host


def waits_for_a_reply(port):
    host = import_device(port)
    host.write(usbip.HANDSHAKE[0])
    host.send(usbip.bulk_in(2))
    return host


CLIENTS = {
    client.__name__: client
    for client in (
        *(Host, half_a_request, import_device, half_a_header, after_handshake, in_mid_send),
        *(takes_no_answer, waits_for_a_reply),
    )
}


def cells():
    return [
        *(f"server/streams/{name}" for name in surroundings_streams.STREAMS),
        *(f"server/beside/{client}" for client in CLIENTS),
        *(f"server/after/{client}" for client in CLIENTS),
    ]


def served(server, place):
    """Whether a host's bank comes through and into the file, while another client talks badly."""
    image = (place.template / "a.bank").read_bytes()
    with import_device(server.port) as host:
        with Host(server.port) as other:
            other.send(b"GET / HTTP/1.0\r\n\r\n")
            other.has_ended()
        host.send_bank(image)
    kept = (place.files / "held.bank").read_bytes() == image
    return [] if kept else ["does not keep what was sent"]


def ended(server):
    try:
        code = server.end()
    except subprocess.TimeoutExpired:
        return ["does not end by SIGTERM"]
    return [] if code == 0 else [f"exits {code}"]


def faults(cell, programs, place):
    _, kind, name = cell.split("/")
    usual = (subprocess.DEVNULL, subprocess.DEVNULL, os.open(place.stream("err"), os.O_WRONLY))
    stream = name if kind == "streams" else ""
    try:
        with surroundings_streams.streams(stream, usual) as (three, closed):
            started = Server(
                *(programs / "scenewright-virtual", "--bank", "held.bank", "--orders"),
                **dict(zip(("stdin", "stdout", "stderr"), three)),
                cwd=place.files,
                env=place.environment(),
                preexec_fn=surroundings_streams.prepare(closed, None, None),
            )
        with started as server:
            if kind == "streams":
                return served(server, place) + ended(server)
            with CLIENTS[name](server.port):
                if kind == "beside":
                    return ended(server)
            return served(server, place) + ended(server)
    except (AssertionError, OSError) as error:
        return [f"{type(error).__name__}: {error}"]
    finally:
        os.close(usual[2])
        sweep_run.read_back(place, sweep_run.Ended())
