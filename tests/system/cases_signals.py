"""Programs that are ended in the middle of things: the MIDI port comes back all the same."""

import os
import time
from pathlib import Path

from rig import CLI, PATIENCE, check_equal, some_bank

MIDDLE = 200  # transfers of a bank's byte that have been made when the signal comes
READ_PACKETS = 2 + 1 + 1012 + 1  # of the read before a send


def start_read(rig, keyboard, endpoint="ep1 in", count=MIDDLE):
    program = rig.start(CLI, "read", rig.file("none.bank"))
    keyboard.await_transfers(endpoint, count)
    return program


def start_send(rig, keyboard):
    source = rig.file("source.bank")
    source.write_bytes(some_bank(7))
    program = rig.start(CLI, "send", source)
    keyboard.await_transfers("ep2 out", READ_PACKETS + MIDDLE)
    return program


def start_handshakes(rig, keyboard):
    return start_read(rig, keyboard, count=5)


def start_waiting(rig, keyboard):
    return start_read(rig, keyboard, "ep2 out", 2)


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


# By the stage's name: the keyboard's fault, what comes so far, the signals.
STAGES = {
    "read": ("", start_read, ("SIGINT", "SIGTERM", "SIGKILL")),
    "send": ("", start_send, ("SIGINT", "SIGTERM", "SIGKILL")),
    "handshake_that_never_succeeds": ("handshake:1000000", start_handshakes, ("SIGINT", "SIGTERM")),
    "handshake_that_succeeds_late": ("handshake:30", start_handshakes, ("SIGKILL",)),
    "read_that_waits_for_ever": ("silent:0", start_waiting, ("SIGINT",)),
}


def signalled(fault, start, name):
    def case(rig):
        keyboard = rig.plug(*(("--fault", fault) if fault else ()))
        program = start(rig, keyboard)
        if name == "SIGKILL":
            check_killed_then_healed(rig, keyboard, program)
        else:
            check_ended(rig, keyboard, program, name)
    return case


for stage, (fault, start, names) in STAGES.items():
    for name in names:
        globals()[f"case_{name.lower()}_in_a_{stage}"] = signalled(fault, start, name)


def case_waiting_for_ever_takes_no_processor_time(rig):
    keyboard = rig.plug("--fault", "silent:0")
    program = start_waiting(rig, keyboard)
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
