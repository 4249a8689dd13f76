"""The keyboard's MIDI port is back after each command, while another program is connected to it."""

import re
import subprocess
import time

from cases_editor import Window
from rig import CLI, PATIENCE, check_equal, some_bank, wait_for

A_READING = 1 + 1012  # replies: to the handshake, and one a byte
CLIENTS = "/proc/asound/seq/clients"


def sequencer_client():
    """The number of the keyboard's client of the sequencer, or None."""
    with open(CLIENTS, encoding="utf-8") as clients:
        found = re.search(r'Client +(\d+) : "Virtual Controller', clients.read())
    return found and found.group(1)


class Listener:
    """Another program that is connected to the keyboard: it gets its notes."""

    def __init__(self, rig):
        client = wait_for("the sequencer's client", sequencer_client)
        self.program = rig.start("aseqdump", "-p", client, stdout=subprocess.PIPE,
                                 stderr=subprocess.DEVNULL)
        wait_for("the connection", lambda: self._connections(client))

    @staticmethod
    def _connections(client):
        with open(CLIENTS, encoding="utf-8") as clients:
            own = clients.read().split(f"Client {int(client):3}", 1)[1].split("Client")[0]
        return "Connecting To" in own

    def end(self):
        self.program.kill()
        self.program.wait()


def check_back_in_time(rig, keyboard, what):
    begin = time.monotonic()
    keyboard.await_port()
    wait_for("the sequencer's client", sequencer_client)
    rig.check_prompt(f"the port's way back after {what}", begin)


def case_port_is_back_after_each_command_of_the_command_line(rig):
    keyboard = rig.plug(bank=some_bank(1))
    source, kept = rig.file("source.bank"), rig.file("kept.bank")
    source.write_bytes(some_bank(2))
    commands = (("read", kept), ("diff", "device:", source), ("send", source, "--dry-run"),
                ("send", source), ("send", source, "--verify"),
                ("send", source, "--backup", kept))
    for command in commands:
        listener = Listener(rig)
        code, errors = rig.run(CLI, *command, stdout=subprocess.DEVNULL)
        check_equal((code, errors), (1 if command[0] == "diff" else 0, ""), command[0])
        check_back_in_time(rig, keyboard, " ".join(word for word in command if isinstance(word, str)))
        listener.end()


def case_port_is_back_after_each_command_of_the_window(rig):
    keyboard = rig.plug(bank=some_bank(3))
    window = Window(rig)
    # The log tells of the user's command alone, not of what is read beside it.
    for what, keys, end, readings in (("a read", "ctrl+r", "Read Scene Data Finish", 1),
                                      ("a comparison", "ctrl+d", "", 1),
                                      ("a send", "ctrl+Return", "\nFinish\n", 1),
                                      ("a verified send", "ctrl+shift+Return", "\nFinish\n", 2)):
        listener = Listener(rig)
        window.forget_log()
        before = len(keyboard.carried("ep1 in"))
        window.key(keys)
        window.await_log(end)
        keyboard.await_transfers("ep1 in", before + readings * A_READING)
        check_back_in_time(rig, keyboard, what)
        listener.end()
    window.key("ctrl+q")
    check_equal(window.program.wait(PATIENCE), 0, "exit code")
    keyboard.check_port_is_back()
