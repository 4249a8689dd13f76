"""scenewright-virtual in surroundings that are not as usual, and beside clients that stop."""

import os
import socket
import subprocess
import time

import surroundings_streams
import sweep_run
from usbip_client import HANDSHAKE, SEND, Host, Lost, free_port

START = 10  # seconds
END = 5  # seconds after SIGTERM; it has to end within one, on a machine that is not busy


def silent(port):
    return socket.create_connection(("127.0.0.1", port))


def half_a_request(port):
    made = silent(port)
    made.sendall(b"\x01\x11\x80")
    return made


def attached(port):
    return Host(port)


def half_a_header(port):
    host = Host(port)
    host.socket.sendall(bytes(20))
    return host


def after_handshake(port):
    host = Host(port)
    host.handshake()
    return host


def in_mid_send(port):
    host = after_handshake(port)
    host.write(SEND[0])
    host.ask(SEND[1])
    for _ in range(100):
        host.write(bytes([0x09, 0x90, 0, 0]))
    return host


def takes_no_answer(port):
    host = Host(port)
    host.socket.settimeout(0.5)
    try:
        for _ in range(20000):
            host.socket.sendall(bytes.fromhex("00000001") + bytes(44))
    except OSError:
        pass
    return host


def waits_for_a_reply(port):
    host = Host(port)
    host.write(HANDSHAKE[0])
    host.sequence += 1
    return host


CLIENTS = (
    *(silent, half_a_request, attached, half_a_header, after_handshake, in_mid_send),
    *(takes_no_answer, waits_for_a_reply),
)


def cells():
    return [
        *(f"server/streams/{name}" for name in surroundings_streams.STREAMS),
        *(f"server/ends-beside/{client.__name__}" for client in CLIENTS),
        *(f"server/goes-on-after/{client.__name__}" for client in CLIENTS),
    ]


def connect(port, process):
    """Once it listens."""
    limit = time.monotonic() + START
    while time.monotonic() < limit and process.poll() is None:
        try:
            silent(port).close()
            return
        except OSError:
            time.sleep(0.01)
    raise Lost("it does not listen")


def end(process):
    if process.poll() is not None:
        return [f"has ended with {process.returncode}"]
    process.terminate()
    try:
        code = process.wait(END)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
        return ["does not end by SIGTERM"]
    return [] if code == 0 else [f"exits {code}"]


def sends(port, place):
    """Whether a host's bank comes through, and into the file."""
    image = (place.template / "a.bank").read_bytes()
    limit = time.monotonic() + START
    while True:  # the device is busy until it is seen that the former host has left
        try:
            host = Host(port)
            break
        except (Lost, OSError) as error:
            if time.monotonic() > limit:
                return [f"a host cannot attach: {error}"]
            time.sleep(0.05)
    try:
        host.send_bank(image)
    except (Lost, OSError) as error:
        return [f"a host cannot send: {error}"]
    finally:
        host.close()
    written = (place.files / "held.bank").read_bytes()
    return [] if written == image else ["does not keep what was sent"]


def faults(cell, programs, place):
    _, kind, name = cell.split("/")
    port = free_port()
    usual = (subprocess.DEVNULL, subprocess.DEVNULL, os.open(place.stream("err"), os.O_WRONLY))
    stream = name if kind == "streams" else ""
    with surroundings_streams.streams(stream, usual) as (three, closed):
        process = subprocess.Popen(
            [programs / "scenewright-virtual", "--listen", f"127.0.0.1:{port}"]
            + ["--bank", "held.bank", "--orders"],
            cwd=place.files,
            env=place.environment(),
            stdin=three[0],
            stdout=three[1],
            stderr=three[2],
            preexec_fn=surroundings_streams.prepare(closed, None, None),
        )
    os.close(usual[2])
    try:
        connect(port, process)
        if kind == "streams":
            return sends(port, place) + end(process)
        client = {each.__name__: each for each in CLIENTS}[name](port)
        if kind == "ends-beside":
            found = end(process)
            client.close()
            return found
        client.close()
        return sends(port, place) + end(process)
    except Lost as error:
        return [str(error), *end(process)]
    finally:
        if process.poll() is None:
            process.kill()
            process.wait()
        sweep_run.read_back(place, sweep_run.Ended())
