"""A running scenewright-virtual, and hosts that speak USB/IP to it, well or badly."""
import os
import re
import select
import signal
import socket
import struct
import subprocess
import time

PATIENCE = 60  # seconds, for a loaded machine
DEVICES = bytes([0x01, 0x11, 0x80, 0x05, 0, 0, 0, 0])
IMPORT = bytes([0x01, 0x11, 0x80, 0x03, 0, 0, 0, 0]) + b"1-1".ljust(32, b"\0")
IMPORT_REPLY = 320  # bytes
HANDSHAKE = [b"\x09\x9c\x01\x02", b"\x09\x9c\x7e\x7d"]
START_READ = b"\x09\x9c\x01\x04"
READ_NEXT = b"\x09\x9c\x01\x06"
START_SEND = b"\x09\x9c\x01\x03"
TWO_BLOCKS = b"\x09\x9c\x00\x02"
BANK_SIZE = 1012
SENT_SIZE = 1024  # with the fill behind the bank
BLOCK = 512  # bytes that are acknowledged at once
DESCRIBE = bytes([0x80, 6, 0, 2, 0, 0, 255, 0])  # the configuration's descriptor


def command(code, number, is_in, endpoint, length=0, setup=bytes(8), target=0):
    place = length if code == 1 else 0
    return struct.pack(">5I", code, number, 0x10002, int(is_in), endpoint) + struct.pack(
        ">5I", target, place, 0, 0, 0) + setup


def bulk_out(number, data):
    return command(1, number, False, 2, len(data)) + data


def bulk_in(number):
    return command(1, number, True, 1, 64)


def describe(number):
    return command(1, number, True, 0, 255, DESCRIBE)


def unlink(number, target):
    return command(2, number, False, 0, target=target)


def wait_until(condition, what):
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain: {what}")
        time.sleep(0.005)


class Lost(ConnectionError):
    """The server does not answer as a device does."""


def free_port():
    with socket.create_server(("127.0.0.1", 0)) as found:
        return found.getsockname()[1]


class Server:
    """Listens at a free port; what it is given for its streams is Popen's."""

    def __init__(self, program, *arguments, **options):
        self.port = free_port()
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        before = options.pop("preexec_fn", None)

        def prepare():
            signal.pthread_sigmask(signal.SIG_SETMASK, [])
            for number in (signal.SIGINT, signal.SIGHUP):
                signal.signal(number, signal.SIG_DFL)
            if before:
                before()

        self.process = subprocess.Popen(
            [program, "--listen", f"127.0.0.1:{self.port}", *arguments],
            preexec_fn=prepare, **options)
        try:
            wait_until(self.is_listening, "the server listens")
        except AssertionError:
            self.__exit__()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        for stream in (self.process.stdin, self.process.stdout, self.process.stderr):
            if stream:
                stream.close()

    def is_listening(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the server has ended by itself: {self.process.returncode}")
        try:
            Host(self.port).close()
            return True
        except ConnectionRefusedError:
            return False

    def status(self, name):
        """A number of /proc/PID/status, in KiB for a size."""
        with open(f"/proc/{self.process.pid}/status") as status:
            return int(re.search(rf"^{name}:\s+(\d+)", status.read(), re.MULTILINE)[1])

    def processor_time(self):
        """Seconds."""
        with open(f"/proc/{self.process.pid}/stat") as stat:
            fields = stat.read().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def end(self, number=signal.SIGTERM):
        """The exit code; fails when the server does not end."""
        self.process.send_signal(number)
        return self.process.wait(PATIENCE)


class Host:
    def __init__(self, port):
        self.socket = socket.create_connection(("127.0.0.1", port), PATIENCE)
        self.number = 0

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self.socket.close()

    def abort(self):
        """Closes without an end of the conversation: the server gets a reset."""
        self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        self.socket.close()

    def send(self, data):
        self.socket.sendall(data)

    def receive(self, size):
        data = b""
        while len(data) < size:
            piece = self.socket.recv(size - len(data))
            if not piece:
                raise Lost("the connection has ended")
            data += piece
        return data

    def answer(self, request):
        """Of a transfer that ends well: the bytes that it brings."""
        self.send(request)
        return self.heard(request[15])

    def heard(self, is_in=True):
        status, length = struct.unpack(">iI", self.receive(48)[20:28])
        if status:
            raise Lost(f"a transfer ended with {status}")
        return self.receive(length) if is_in else b""

    def has_ended(self):
        """Whether the server ends the connection, whatever else it sends before."""
        try:
            while self.socket.recv(65536):
                pass
        except ConnectionError:
            pass
        return True

    def import_device(self):
        """Lost when another host has it."""
        self.send(IMPORT)
        self.receive(IMPORT_REPLY)

    def write(self, data):
        self.number += 1
        self.answer(bulk_out(self.number, data))

    def listen(self):
        """Asks for a read; heard() gives what it brings."""
        self.number += 1
        self.send(bulk_in(self.number))

    def read(self):
        self.listen()
        return self.heard()

    def ask(self, data):
        self.write(data)
        return self.read()

    def handshake(self):
        for packet in HANDSHAKE:
            self.write(packet)
        return self.read()

    def start_reading(self):
        self.handshake()
        self.ask(START_READ)

    def begin_send(self):
        self.handshake()
        self.write(START_SEND)
        self.ask(TWO_BLOCKS)

    def send_bank(self, bank):
        """The last answer comes when it is kept."""
        self.begin_send()
        for place, byte in enumerate(bank.ljust(SENT_SIZE, b"\xff"), 1):
            self.write(bytes([0x09, 0x90, byte >> 4, byte & 0x0F]))
            if place % BLOCK == 0:
                self.read()

    def flood(self, piece, limit):
        """Sends and takes no answer, until the server ends the connection, takes no more, or has
        been sent so much."""
        sent = 0
        self.socket.setblocking(False)
        try:
            while sent < limit and select.select([], [self.socket], [], 5)[1]:
                sent += self.socket.send(piece[sent % len(piece):])
        except ConnectionError:
            pass

    def keep_busy(self):
        """Has hundreds of messages answered at a time, until the server ends the connection."""
        messages = unlink(1, 2) * 300
        try:
            self.send(messages)
            while self.receive(len(messages)):
                self.send(messages)
        except ConnectionError:
            pass


def attached(port):
    """A host that has the device."""
    host = Host(port)
    try:
        host.import_device()
        return host
    except ConnectionError:
        host.close()
        raise


def import_device(port):
    """The same, once the one before has left."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            return attached(port)
        except ConnectionRefusedError:
            raise
        except ConnectionError:
            time.sleep(0.002)
    raise AssertionError("nobody gives the device back")
