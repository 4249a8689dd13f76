"""Programs that are ended in the middle of things: the MIDI port comes back all the same."""

import os
import time
from pathlib import Path

from rig import CLI, PATIENCE, check_equal, some_bank

MIDDLE = 200  # transfers of a bank's byte that have been made when the signal comes


def start_read(rig, keyboard):
    program = rig.start(CLI, "read", rig.file("none.bank"))
    keyboard.await_transfers("ep1 in", MIDDLE)
    return program


def start_send(rig, keyboard):
    source = rig.file("source.bank")
    source.write_bytes(some_bank(7))
    program = rig.start(CLI, "send", source)
    keyboard.await_transfers("ep2 out", MIDDLE)
    return program


def start_handshakes(rig, keyboard):
    program = rig.start(CLI, "read", rig.file("none.bank"))
    keyboard.await_transfers("ep1 in", 5)
    return program


def plug_refusing(rig):
    return rig.plug("--fault", "handshake:1000000")


def check_ended(rig, keyboard, program, name):
    rig.check_ends_by(program, name)
    assert not rig.file("none.bank").exists(), "a file was written"
    keyboard.check_port_is_back()


def check_killed_then_healed(rig, keyboard, program):
    rig.check_ends_by(program, "SIGKILL")
    check_equal(keyboard.drivers(), [None, None], "drivers after the kill")
    source = rig.file("healing.bank")
    source.write_bytes(some_bank(8))
    check_equal(rig.run(CLI, "send", source), (0, ""), "send after the kill")
    assert keyboard.bank_file.read_bytes() == some_bank(8), "the controller holds another bank"
    keyboard.check_port_is_back()


def processor_ticks(program):
    """The processor time that the program has taken, in hundredths of a second."""
    fields = Path(f"/proc/{program.pid}/stat").read_text().rpartition(")")[2].split()
    return int(fields[11]) + int(fields[12])


def case_sigint_in_a_read(rig):
    keyboard = rig.plug()
    check_ended(rig, keyboard, start_read(rig, keyboard), "SIGINT")


def case_sigterm_in_a_read(rig):
    keyboard = rig.plug()
    check_ended(rig, keyboard, start_read(rig, keyboard), "SIGTERM")


def case_sigkill_in_a_read(rig):
    keyboard = rig.plug()
    check_killed_then_healed(rig, keyboard, start_read(rig, keyboard))


def case_sigint_in_a_send(rig):
    keyboard = rig.plug()
    check_ended(rig, keyboard, start_send(rig, keyboard), "SIGINT")


def case_sigterm_in_a_send(rig):
    keyboard = rig.plug()
    check_ended(rig, keyboard, start_send(rig, keyboard), "SIGTERM")


def case_sigkill_in_a_send(rig):
    keyboard = rig.plug()
    check_killed_then_healed(rig, keyboard, start_send(rig, keyboard))


def case_sigint_in_a_handshake_that_never_succeeds(rig):
    keyboard = plug_refusing(rig)
    check_ended(rig, keyboard, start_handshakes(rig, keyboard), "SIGINT")


def case_sigterm_in_a_handshake_that_never_succeeds(rig):
    keyboard = plug_refusing(rig)
    check_ended(rig, keyboard, start_handshakes(rig, keyboard), "SIGTERM")


def case_sigkill_in_a_handshake_that_never_succeeds(rig):
    keyboard = rig.plug("--fault", "handshake:30")
    check_killed_then_healed(rig, keyboard, start_handshakes(rig, keyboard))


def case_sigint_in_a_read_that_waits_for_ever(rig):
    keyboard = rig.plug("--fault", "silent:0")
    program = rig.start(CLI, "read", rig.file("none.bank"))
    keyboard.await_transfers("ep2 out", 2)
    check_ended(rig, keyboard, program, "SIGINT")


def case_waiting_for_ever_takes_no_processor_time(rig):
    keyboard = rig.plug("--fault", "silent:0")
    program = rig.start(CLI, "read", rig.file("none.bank"))
    keyboard.await_transfers("ep2 out", 2)
    before = processor_ticks(program)
    time.sleep(3)
    assert processor_ticks(program) - before <= 10, "more than 0.1 s in 3 s"
    check_ended(rig, keyboard, program, "SIGTERM")


def case_terminal_that_hangs_up_in_a_read(rig):
    keyboard = rig.plug()
    program, terminal = rig.start_on_terminal(CLI, "read", rig.file("none.bank"))
    keyboard.await_transfers("ep1 in", MIDDLE)
    os.close(terminal)
    check_equal(program.wait(PATIENCE), -1, "exit status")  # SIGHUP
    assert not rig.file("none.bank").exists(), "a file was written"
    keyboard.check_port_is_back()
