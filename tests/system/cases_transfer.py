"""Banks read and sent over the real stack, and the MIDI port that is there again afterwards."""

import os
import subprocess

from rig import CLI, TRANSACTIONS, check_equal, some_bank, wait_for


def case_read_equals_the_bank(rig):
    keyboard = rig.plug(bank=some_bank(1))
    rig.check_read(some_bank(1))
    keyboard.check_port_is_back()


def case_send_equals_the_bank(rig):
    keyboard = rig.plug()
    source = rig.file("source.bank")
    source.write_bytes(some_bank(2))
    check_equal(rig.run(CLI, "send", source), (0, ""), "send")
    assert keyboard.bank_file.read_bytes() == some_bank(2), "the controller holds another bank"
    keyboard.check_port_is_back()


def case_midi_port_plays_after_a_read(rig):
    keyboard = rig.plug(bank=some_bank(3))
    rig.check_read(some_bank(3))
    port = os.open(keyboard.midi_port(), os.O_WRONLY)
    os.write(port, bytes([0x90, 0x3C, 0x40]))
    wait_for("the note to arrive", lambda: "09 90 3c 40" in keyboard.carried("ep2 out"))
    os.close(port)


class Transactions:
    """A process that makes one transaction after the other, as it is told."""

    def __init__(self, rig):
        self.program = rig.start(TRANSACTIONS, bufsize=1, stdin=subprocess.PIPE,
                                 stdout=subprocess.PIPE)
        self.rig = rig

    def make(self, verb, file):
        """Makes one transaction; gives the number of files that the process has open then."""
        print(verb, file, file=self.program.stdin)
        answer = self.program.stdout.readline().split()
        check_equal(answer[:1], ["done"], f"{verb} of {file}")
        return int(answer[1])

    def read(self, bank):
        out = self.rig.file("out.bank")
        files = self.make("read", out)
        assert out.read_bytes() == bank, "what was read is not the controller's bank"
        return files

    def send(self, bank):
        source = self.rig.file("in.bank")
        source.write_bytes(bank)
        return self.make("send", source)

    def end(self):
        self.program.stdin.close()
        check_equal(self.program.wait(30), 0, "exit code")


def case_read_send_read_in_one_process(rig):
    keyboard = rig.plug(bank=some_bank(4))
    process = Transactions(rig)
    process.read(some_bank(4))
    process.send(some_bank(5))
    keyboard.check_port_is_back()
    process.read(some_bank(5))
    process.end()
    keyboard.check_port_is_back()


def case_fifty_transactions_in_one_process_leak_nothing(rig):
    keyboard = rig.plug(bank=some_bank(0))
    process = Transactions(rig)
    counts = []
    for turn in range(25):
        reading = process.read(some_bank(turn))
        sending = process.send(some_bank(turn + 1))
        keyboard.check_port_is_back()
        counts.append((reading, sending))
    check_equal(set(counts), {counts[0]}, "open files after each read and send")
    process.end()
    keyboard.check_port_is_back()
