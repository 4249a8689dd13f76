"""Banks read and sent over the real stack, and the MIDI port that is there again afterwards."""

import os

from rig import CLI, check_equal, some_bank, wait_for
from transactions import Transactions


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


def case_read_send_read_in_one_process(rig):
    keyboard = rig.plug(bank=some_bank(4))
    process = Transactions(rig)
    process.read(some_bank(4))
    process.send(some_bank(5))
    keyboard.check_port_is_back()
    process.read(some_bank(5))
    process.end()
    keyboard.check_port_is_back()
