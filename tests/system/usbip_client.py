"""A host of scenewright-virtual, as far as a test needs one: it sends a bank over USB/IP."""

import socket
import struct

PATIENCE = 20  # seconds for an answer
DEVICE = 0x10002
HANDSHAKE = (bytes.fromhex("099c0102"), bytes.fromhex("099c7e7d"))
READ, NEXT = bytes.fromhex("099c0104"), bytes.fromhex("099c0106")
SEND = (bytes.fromhex("099c0103"), bytes.fromhex("099c0002"))
BANK_SIZE = 1012
WIRE_SIZE = 1024  # padded with FF; each 512 bytes are acknowledged
BLOCK = 512


def free_port():
    with socket.create_server(("127.0.0.1", 0)) as found:
        return found.getsockname()[1]


class Lost(Exception):
    """The server does not answer as a device does."""


class Host:
    def __init__(self, port):
        self.sequence = 0
        self.socket = socket.create_connection(("127.0.0.1", port), PATIENCE)
        self.socket.sendall(bytes.fromhex("0111800300000000") + b"1-1".ljust(32, b"\0"))
        self.receive(320)

    def close(self):
        self.socket.close()

    def receive(self, size):
        found = b""
        while len(found) < size:
            try:
                more = self.socket.recv(size - len(found))
            except OSError as error:
                raise Lost(str(error)) from error
            if not more:
                raise Lost("the connection has ended")
            found += more
        return found

    def submit(self, direction, endpoint, size, payload=b""):
        """The bytes of an answer; how a transfer ended is raised unless it is 0."""
        self.sequence += 1
        header = struct.pack(
            ">5I5i8x", 1, self.sequence, DEVICE, direction, endpoint, 0, size, 0, 0, 0
        )
        try:
            self.socket.sendall(header + payload)
        except OSError as error:
            raise Lost(str(error)) from error
        answer = self.receive(48)
        status, length = struct.unpack(">iI", answer[20:28])
        if status:
            raise Lost(f"transfer ended with {status}")
        return self.receive(length) if direction else b""

    def write(self, packet):
        self.submit(0, 2, len(packet), packet)

    def ask(self, packet):
        self.write(packet)
        return self.submit(1, 1, 64)

    def handshake(self):
        self.write(HANDSHAKE[0])
        self.ask(HANDSHAKE[1])

    def send_bank(self, image):
        self.handshake()
        self.write(SEND[0])
        self.ask(SEND[1])
        for index, value in enumerate(image.ljust(WIRE_SIZE, b"\xff")):
            self.write(bytes([0x09, 0x90, value >> 4, value & 0x0F]))
            if index % BLOCK == BLOCK - 1:
                self.submit(1, 1, 64)

    def read_bank(self):
        self.handshake()
        self.ask(READ)
        packets = [self.ask(NEXT) for _ in range(BANK_SIZE)]
        return bytes((packet[2] << 4 | packet[3]) & 0xFF for packet in packets)
