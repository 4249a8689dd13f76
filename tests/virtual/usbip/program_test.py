#!/usr/bin/env python3
"""The built scenewright-virtual over TCP: what its hosts, its orders and its options make of it.

program_test.py PROGRAM [unittest arguments]
"""
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import usbip_client as usbip
from usbip_client import Host, Lost, Server, import_device

PROGRAM = ""
NAME = "scenewright-virtual: "
REPLY = bytes.fromhex("099c0102099c0138099c0001")
ATTACHES_ITSELF = "nothing to plug in: a host attaches the controller itself"
WRITE_FAILED = "ended with -71"  # EPROTO


def bank(first):
    return bytes((index + first) % 128 for index in range(usbip.BANK_SIZE))


def byte_of(packet):
    return packet[2] * 16 + packet[3]


class TellingServer(Server):
    """Takes orders, and tells one line after the other."""

    def __init__(self, *arguments):
        super().__init__(PROGRAM, *arguments, stdin=subprocess.PIPE, stderr=subprocess.PIPE)
        self.next_line()  # where it listens

    def next_line(self):
        return self.process.stderr.readline().decode().removeprefix(NAME).removesuffix("\n")

    def order(self, text):
        self.process.stdin.write(text.encode() + b"\n")
        self.process.stdin.flush()
        return self.next_line()


class Case(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def serve(self, *arguments):
        server = TellingServer(*arguments)
        self.addCleanup(server.__exit__)
        return server

    def attach(self, server):
        host = import_device(server.port)
        self.addCleanup(host.close)
        return host

    def attached(self, *arguments):
        server = self.serve(*arguments)
        return server, self.attach(server)

    def host(self, server):
        host = Host(server.port)
        self.addCleanup(host.close)
        return host

    def check_reads(self, host, *lengths):
        for length in lengths:
            self.assertEqual(len(host.ask(usbip.READ_NEXT)), length)

    def check_serves(self, server):
        self.assertEqual(self.attach(server).handshake(), REPLY)


class Banks(Case):
    def test_host_reads_the_file(self):
        (self.folder / "bank").write_bytes(bank(3))
        _, host = self.attached("--bank", str(self.folder / "bank"))
        self.assertEqual(host.handshake(), REPLY)
        self.assertEqual(len(host.ask(usbip.START_READ)), 4)
        packets = [host.ask(usbip.READ_NEXT) for _ in range(usbip.BANK_SIZE)]
        self.assertEqual({len(packet) for packet in packets}, {4})
        self.assertEqual(bytes(map(byte_of, packets)), bank(3))

    def test_sent_bank_is_kept_in_the_file(self):
        _, host = self.attached("--bank", str(self.folder / "bank"))
        host.begin_send()
        self.assertFalse((self.folder / "bank").exists())
        host.send_bank(bank(9))
        self.assertEqual((self.folder / "bank").read_bytes(), bank(9))

    def test_without_one_it_holds_the_default_scenes(self):
        _, host = self.attached()
        host.start_reading()
        name = bytes(byte_of(host.ask(usbip.READ_NEXT)) for _ in range(6))
        self.assertEqual(name, b"SCENE1")


class Hosts(Case):
    def test_find_it_under_its_identity(self):
        server = self.serve("--identity", "abcd:1234", "--interfaces", "1")
        host = self.host(server)
        host.send(usbip.DEVICES)
        reply = host.receive(8 + 4 + 312 + 4)
        self.assertEqual(reply[312:316], bytes.fromhex("abcd1234"))
        self.assertEqual(reply[323], 1, "interfaces")
        self.assertTrue(host.has_ended())

    def test_malformed_ones_are_logged_and_dropped_and_the_others_go_on(self):
        server, host = self.attached()
        stranger = self.host(server)
        stranger.send(b"GET / HTTP")
        self.assertTrue(stranger.has_ended())
        self.assertEqual(server.next_line(), "dropped a connection: version 4745 of the protocol")
        self.assertEqual(host.handshake(), REPLY)
        host.send(b"\x55" * 48)
        self.assertTrue(host.has_ended())
        self.assertEqual(server.next_line(), "dropped a connection: an unknown command 1431655765")
        self.check_serves(server)

    def test_second_one_finds_it_busy_until_the_first_leaves(self):
        server, first = self.attached()
        second = self.host(server)
        second.send(usbip.IMPORT)
        self.assertEqual(second.receive(8), bytes([0x01, 0x11, 0, 3, 0, 0, 0, 2]))
        self.assertTrue(second.has_ended())
        first.close()
        self.assertEqual(server.next_line(), "detached by its host")
        self.attach(server)

    def test_idle_ones_keep_none_out(self):
        server = self.serve()
        for _ in range(40):
            self.host(server)
        self.check_serves(server)
        self.assertEqual(server.next_line(), "dropped a connection: there are too many")

    def test_port_0_is_a_free_one_that_is_told(self):
        with subprocess.Popen([PROGRAM, "--listen", "127.0.0.1:0"],
                              stderr=subprocess.PIPE) as process:
            told = process.stderr.readline().decode()
            self.assertRegex(told, rf"^{NAME}listening at 127\.0\.0\.1:\d+")
            Host(int(told.split(":")[2].split()[0])).close()
            process.terminate()


class Faults(Case):
    def test_unplug_ends_the_connection_and_attaching_plugs_in_again(self):
        server, host = self.attached("--fault", "unplug:1")
        host.start_reading()
        self.check_reads(host, 4)
        host.write(usbip.READ_NEXT)
        self.assertTrue(host.has_ended())
        self.assertEqual(server.next_line(), "unplugged")
        again = self.attach(server)
        again.start_reading()
        self.check_reads(again, 4, 4)  # the fault is spent

    def test_more_than_one_may_be_given(self):
        _, host = self.attached("--fault", "handshake:1", "--fault", "write:4")
        self.assertNotEqual(host.handshake(), REPLY)
        self.assertEqual(host.handshake(), REPLY)
        with self.assertRaisesRegex(Lost, WRITE_FAILED):
            host.write(usbip.START_READ)

    def test_ordered_ones_replace_the_former_ones_and_count_anew(self):
        server, host = self.attached("--orders", "--fault", "short:0")
        host.start_reading()
        self.check_reads(host, 2)
        self.assertEqual(server.order("faults short:1 write:2"), "2 faults ordered")
        self.check_reads(host, 4, 2)  # the read goes on
        with self.assertRaisesRegex(Lost, WRITE_FAILED):
            host.write(usbip.READ_NEXT)
        self.assertEqual(server.order("faults"), "0 faults ordered")
        self.check_reads(host, 4)


class Orders(Case):
    def test_unplug_at_any_time(self):
        server = self.serve("--orders")
        self.assertEqual(server.order("unplug"),
                         "nothing to unplug: the controller is not plugged in")
        host = self.attach(server)
        self.assertEqual(server.order("unplug"), "unplugged")
        self.assertTrue(host.has_ended())
        self.assertEqual(server.order("plug"), ATTACHES_ITSELF)
        self.check_serves(server)

    def test_play_to_the_host_that_listens(self):
        server, host = self.attached("--orders")
        self.assertEqual(server.order("press pad3 100"),
                         "played Note on 38, ch 10, velocity 100, and nobody listens")
        host.listen()
        self.assertEqual(server.order("release pad3"), "played Note off 38, ch 10")
        self.assertEqual(host.heard(), bytes.fromhex("08892600"))
        host.listen()
        self.assertEqual(server.order("slide knob1 0 0 0ms"), "slides")
        self.assertEqual(len(host.heard()), 4)
        self.assertEqual(server.order("scene 2"), "plays scene 2")
        self.assertEqual(server.order("press pad9 1"),
                         "'press pad9 1' is no order: it must be press, a pad or key and a velocity"
                         " from 1 to 127, as in press pad3 100")

    def test_what_is_none_is_told_and_their_end_ends_nothing(self):
        server = self.serve("--orders")
        self.assertEqual(server.order("dance"), "'dance' is no order: those are faults, unplug, "
                         "plug, scene, press, release, turn and slide")
        self.assertEqual(server.order("faults stall"), "'stall' is no fault: a number from 0 to "
                         "4294967295 must follow 'stall:'")
        server.process.stdin.close()
        self.check_serves(server)


class Program(Case):
    def test_trace_has_a_line_a_transfer(self):
        server, host = self.attached("--trace", str(self.folder / "trace"))
        host.handshake()
        self.assertEqual(server.end(), 0)
        self.assertEqual((self.folder / "trace").read_text(),
                         "1 ep2 out ok 4: 09 9c 01 02\n"
                         "2 ep2 out ok 4: 09 9c 7e 7d\n"
                         "3 ep1 in ok 12: 09 9c 01 02 09 9c 01 38 09 9c 00 01\n")

    def test_interrupt_terminate_and_hang_up_end_it_cleanly(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(number):
                server, host = self.attached()
                host.listen()  # for a reply that never comes
                self.assertEqual(server.end(number), 0)
                self.assertTrue(host.has_ended())

    def test_plug_in_signal_means_nothing_over_the_network(self):
        server = self.serve()
        server.process.send_signal(signal.SIGUSR1)
        self.assertEqual(server.next_line(), ATTACHES_ITSELF)
        self.check_serves(server)

    def check_refused(self, arguments, code, sentence):
        with self.subTest(arguments):
            refused = subprocess.run([PROGRAM, *arguments], capture_output=True, check=False,
                                     encoding="utf-8", timeout=usbip.PATIENCE)
            self.assertEqual((refused.returncode, refused.stdout), (code, ""))
            if sentence:
                self.assertEqual(refused.stderr, f"{NAME}{sentence}\n")

    def test_bad_usage_is_refused_with_one_sentence(self):
        address = "must be an address and a port, as in 127.0.0.1:3240"
        identity = "must be two hexadecimal numbers, as in 1209:0001"
        for *arguments, sentence in [
            ("--listen", "127.0.0.1:99999", f"--listen: '127.0.0.1:99999' {address}"),
            ("--listen", "127.0.0.1", f"--listen: '127.0.0.1' {address}"),
            ("--listen", "::1:3240", f"--listen: '::1:3240' {address}"),
            ("--identity", "1209", f"--identity: '1209' {identity}"),
            ("--identity", "1209:00012", f"--identity: '1209:00012' {identity}"),
            ("--interfaces", "3", "--interfaces: Value 3 not in range 1 to 2"),
            ("--fault", "stall:", "--fault: 'stall:' is no fault: a number from 0 to 4294967295 "
             "must follow 'stall:'"),
            ("two\nlines\x1b[31m",
             "The following argument was not expected: two\ufffdlines\ufffd[31m"),
        ]:
            self.check_refused(arguments, 2, f"{sentence} (--help tells more)")

    # What is said behind the options: an address in use, files that are no bank or cannot be.
    def test_what_it_cannot_use_is_told_in_one_sentence_and_left_alone(self):
        used = f"127.0.0.1:{self.serve().port}"
        file, odd = self.folder / "bank", self.folder / "odd"
        file.write_bytes(bank(3))
        odd.write_bytes(bytes(1013))
        for code, sentence, *arguments in [
            (1, f"cannot listen at {used}: Address already in use", "--listen", used),
            (2, f"--trace {file}: it would overwrite the controller's memory",
             "--bank", file, "--trace", file),
            (2, f"{odd}: a bank has 1012 bytes, and this file has 1013", "--bank", odd),
            (2, "", "--bank", self.folder),
            (2, "", "--bank", self.folder / "no/bank"),
            (2, "no\ufffdsuch/trace: cannot be written: No such file or directory",
             "--trace", "no\nsuch/trace"),
        ]:
            self.check_refused(arguments, code, sentence)
        self.assertEqual(file.read_bytes(), bank(3))
        self.assertEqual(odd.read_bytes(), bytes(1013))


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main()
