#!/usr/bin/env python3
"""scenewright-virtual where its streams, files, limits and clients are not what they should be.

surroundings_test.py PROGRAM SLOW_DISK [unittest arguments]
SLOW_DISK is the library of SlowDisk.cpp.
"""
import os
import resource
import signal
import subprocess
import sys
import tempfile
import threading
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "support"))

from preload import loadable
import usbip_client as usbip
from usbip_client import Host, Server, import_device

PROGRAM = SLOW_DISK = ""
REPLY = bytes.fromhex("099c0102099c0138099c0001")
NAME = "scenewright-virtual: "


def limited(kind, value):
    return lambda: resource.setrlimit(kind, (value, resource.getrlimit(kind)[1]))


class Case(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def file(self, name):
        return os.path.join(self.folder, name)

    def content(self, name):
        with open(self.file(name), "rb") as file:
            return file.read()

    def serve(self, *arguments, **options):
        server = Server(PROGRAM, *arguments, **options)
        self.addCleanup(server.__exit__)
        return server

    def serve_told(self, *arguments, **options):
        """The same, its standard error in a file."""
        with open(self.file("errors"), "wb") as errors:
            return self.serve(*arguments, stderr=errors, **options)

    def told(self):
        """The lines on its standard error but the first."""
        lines = self.content("errors").decode().splitlines()
        self.assertIn("listening at", lines[0])
        return [line.removeprefix(NAME) for line in lines[1:]]

    def wait_until_told(self, line):
        usbip.wait_until(lambda: line in self.content("errors").decode(), line)

    def check_serves(self, server):
        with import_device(server.port) as host:
            self.assertEqual(host.handshake(), REPLY)


class StandardError(Case):
    def test_that_nobody_reads_holds_nothing_up(self):
        reader, writer = os.pipe()
        self.addCleanup(os.close, reader)
        server = self.serve(stderr=writer)
        os.close(writer)
        for _ in range(3000):
            with Host(server.port) as host:
                host.send(b"GET / HTTP/1.0\r\n\r\n")
                host.has_ended()
        self.check_serves(server)
        self.assertEqual(server.end(), 0)


class Trace(Case):
    def ask_often(self, server, times):
        with import_device(server.port) as host:
            for _ in range(times):
                host.send(usbip.describe(9))
                host.receive(48 + 101)

    def check_serves_and_tells(self, server, path, why):
        self.check_serves(server)
        self.assertEqual(server.end(), 1)
        self.assertEqual(self.told()[-1], f"{path}: not all of the trace could be written: {why}")

    def test_pipe_that_is_not_read_holds_nothing_up(self):
        pipe = self.file("pipe")
        os.mkfifo(pipe)
        reader = os.open(pipe, os.O_RDONLY | os.O_NONBLOCK)
        self.addCleanup(os.close, reader)
        server = self.serve_told("--trace", pipe)
        self.ask_often(server, 2000)
        self.check_serves_and_tells(server, pipe, "it is not read fast enough")

    def test_reader_that_left_and_full_disk_are_told_at_the_end(self):
        pipe = self.file("pipe")
        os.mkfifo(pipe)
        reader = os.open(pipe, os.O_RDONLY | os.O_NONBLOCK)
        for path, why in [(pipe, "Broken pipe"), ("/dev/full", "No space left on device")]:
            with self.subTest(path):
                server = self.serve_told("--trace", path)
                if path == pipe:
                    os.close(reader)
                self.check_serves_and_tells(server, path, why)

    def test_limit_of_a_files_size_ends_nothing(self):
        trace = self.file("trace")
        server = self.serve_told("--trace", trace,
                                 preexec_fn=limited(resource.RLIMIT_FSIZE, 20000))
        self.ask_often(server, 200)
        self.check_serves_and_tells(server, trace, "File too large")
        self.assertEqual(os.path.getsize(trace), 20000)

    def test_slow_reader_gets_every_line(self):
        reader, writer = os.pipe()  # the file object below closes the reader
        server = self.serve("--trace", "-", stdout=writer)
        os.close(writer)
        self.ask_often(server, 1000)  # more than the pipe holds
        with open(reader, "rb") as lines:
            for _ in range(1000):
                self.assertTrue(lines.readline().startswith(b"9 ep0 in ok 101 (80 06"))
            self.assertEqual(server.end(), 0)
            self.assertEqual(lines.read(), b"")

    def test_standard_output_keeps_what_it_holds_under_each_of_its_names(self):
        for name in ("-", "/dev/stdout", "/dev/fd/1", self.file("k")):
            with self.subTest(name), open(self.file("k"), "wb") as output:
                output.write(b"before\n")
                output.flush()
                server = self.serve("--trace", name, stdout=output)
                self.check_serves(server)
                self.assertEqual(server.end(), 0)
                self.assertEqual(self.content("k").splitlines()[:2],
                                 [b"before", b"1 ep2 out ok 4: 09 9c 01 02"])

    def test_standard_output_that_is_closed_is_told(self):
        server = self.serve_told("--trace", "-", preexec_fn=lambda: os.close(1))
        self.check_serves_and_tells(server, "-", "Bad file descriptor")


class Bank(Case):
    WHOLE = bytes([7]) * usbip.BANK_SIZE
    FAILED = "Cannot write {}: File too large."
    AGAIN = " It is tried again at the next send and at the end."

    def serve_bank(self, **options):
        return self.serve_told("--bank", self.file("bank"), **options)

    def send(self, server, byte):
        with import_device(server.port) as host:
            host.send_bank(bytes([byte]) * usbip.BANK_SIZE)

    def limit_files(self, server, size):
        resource.prlimit(server.process.pid, resource.RLIMIT_FSIZE, (size, resource.RLIM_INFINITY))

    def test_that_cannot_be_saved_is_told_tried_at_the_end_and_exit_code_1(self):
        with open(self.file("bank"), "wb") as bank:
            bank.write(self.WHOLE)
        server = self.serve_bank()
        self.limit_files(server, 500)
        self.send(server, 5)
        failed = self.FAILED.format(self.file("bank"))
        self.wait_until_told(failed + self.AGAIN)
        self.assertEqual(server.end(), 1)
        self.assertEqual(self.told()[-2:],
                         [failed, f"{self.file('bank')}: what was sent is not kept"])
        self.assertEqual(self.content("bank"), self.WHOLE)
        self.assertEqual(os.listdir(self.folder).count("bank"), 1)

    def test_that_could_not_be_saved_is_saved_at_the_end(self):
        server = self.serve_bank()
        self.limit_files(server, 900)
        self.send(server, 7)
        self.wait_until_told(self.AGAIN)
        self.limit_files(server, 1 << 20)
        self.assertEqual(server.end(), 0)
        self.assertEqual(self.content("bank"), self.WHOLE)


class SlowDisk(Case):
    def setUp(self):
        super().setUp()
        # The library's name in the sanitizers' place would be taken for a mistake.
        self.environment = dict(os.environ, LD_PRELOAD=SLOW_DISK,
                                ASAN_OPTIONS="verify_asan_link_order=0")

    def test_delays_neither_the_others_nor_the_end(self):
        with open(self.file("bank"), "wb") as bank:
            bank.write(Bank.WHOLE)
        with open(self.file("errors"), "wb") as errors:
            server = self.serve("--bank", self.file("bank"), stderr=errors,
                                env=self.environment)
        with import_device(server.port) as host:
            host.begin_send()
            for packet in range(usbip.SENT_SIZE - 1):
                host.write(b"\x09\x90\x00\x05")
                if packet == 511:
                    host.read()
            host.send(usbip.bulk_out(5000, b"\x09\x90\x00\x05") + usbip.bulk_in(5001))
            with Host(server.port) as other:
                other.send(usbip.DEVICES)
                self.assertEqual(len(other.receive(328)), 328)
            host.socket.settimeout(0.2)
            with self.assertRaises(TimeoutError):  # nothing is said before it is kept
                host.receive(1)
            self.assertEqual(server.end(), 1)
        self.assertEqual(self.content("bank"), Bank.WHOLE)
        self.assertIn(f"{self.file('bank')}: what was sent could not be written in time",
                      self.content("errors").decode())


class Clients(Case):
    def test_more_than_the_descriptors_allow(self):
        server = self.serve_told(preexec_fn=limited(resource.RLIMIT_NOFILE, 20))
        hosts = [Host(server.port) for _ in range(40)]
        self.wait_until_told("there are too many")
        self.check_serves(server)
        used = server.processor_time()
        with self.assertRaises(subprocess.TimeoutExpired):
            server.process.wait(1)
        self.assertLess(server.processor_time() - used, 0.5)
        for host in hosts:
            host.close()
        self.check_serves(server)
        self.assertEqual(server.end(), 0)
        self.assertEqual([line for line in self.told() if "detached" not in line],
                         ["dropped a connection: there are too many"])

    def test_host_with_the_device_is_not_dropped_for_others(self):
        server = self.serve(preexec_fn=limited(resource.RLIMIT_NOFILE, 20))
        with import_device(server.port) as host:
            for _ in range(100):
                Host(server.port).abort()
            others = [Host(server.port) for _ in range(40)]
            self.assertEqual(host.handshake(), REPLY)
            for other in others:
                other.close()

    def test_flood_does_not_delay_the_end(self):
        server = self.serve("--bank", self.file("bank"))
        host = import_device(server.port)
        flood = threading.Thread(target=host.keep_busy)
        flood.start()
        usbip.wait_until(lambda: server.processor_time() > 0.1, "the flood has begun")
        self.assertEqual(server.end(), 0)
        flood.join()
        host.close()


class Commands(Case):
    def test_last_line_needs_no_line_feed(self):
        with open(self.file("orders"), "wb") as orders:
            orders.write(b"faults stall:1\nfaults stall:1 short:2")
        with open(self.file("orders"), "rb") as orders:
            server = self.serve_told("--orders", stdin=orders)
        self.wait_until_told("2 faults ordered")
        self.assertEqual(server.end(), 0)

    def test_line_that_is_too_long_is_not_executed_in_part(self):
        with open(self.file("orders"), "wb") as orders:
            orders.write(b"faults stall:1" + b" " * 5000 + b"\nfaults\n")
        with open(self.file("orders"), "rb") as orders:
            server = self.serve_told("--orders", stdin=orders)
        self.wait_until_told("0 faults ordered")
        self.assertEqual(server.end(), 0)
        self.assertEqual(self.told(), ["a line of more than 4096 bytes is no order",
                                       "0 faults ordered"])


class Program(Case):
    def test_hang_up_ends_it_unless_it_was_started_to_survive_that(self):
        self.assertEqual(self.serve().end(signal.SIGHUP), 0)
        survivor = self.serve(preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN))
        survivor.process.send_signal(signal.SIGHUP)
        self.check_serves(survivor)
        self.assertEqual(survivor.end(), 0)


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    SLOW_DISK = loadable(Path(sys.argv.pop(1)))
    unittest.main()
