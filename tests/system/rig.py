"""What the guest's cases work with: keyboards on the bus, programs on the system, and checks.

A Rig belongs to one case; close() ends the programs that it started and empties the bus.
"""

import contextlib
import fcntl
import os
import pty
import re
import signal
import subprocess
import tempfile
import termios
import time
from pathlib import Path

BIN = Path(os.environ.get("BUILD", ".")) / "bin"
CLI = BIN / "scenewright-cli"
VIRTUAL = BIN / "scenewright-virtual"
TRANSACTIONS = BIN / "system-transactions"
VHCI = Path("/sys/devices/platform/vhci_hcd.0")
DEVICES = Path("/sys/bus/usb/devices")
SOUND_DRIVER = "snd-usb-audio"
PATIENCE = 600  # seconds for what takes a few at most; the emulator may share a busy machine
PROMPT = 20  # starts of a program, in the time of which a player sees what has happened


def wait_for(what, condition, limit=PATIENCE):
    """Waits until `condition` gives something true, and gives that."""
    end = time.monotonic() + limit
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.02)
    raise AssertionError(f"waited {limit} s for {what}")


def check_equal(found, expected, what):
    assert found == expected, f"{what}: {found!r}, expected {expected!r}"


def some_bank(seed=0):
    """1012 bytes of settings, different for each seed; what is read comes back as it is."""
    return bytes((7 * place + place // 253 + 31 * seed) % 128 for place in range(1012))


class Keyboard:
    """A virtual controller on a port of the kernel's virtual bus."""

    def __init__(self, folder, port, bank, options):
        self.port = port
        self.bank_file = folder / f"controller-{port}.bank"
        self.trace_file = folder / f"trace-{port}"
        self.bank_file.write_bytes(bank)
        self.server = self._serve(*options)
        self.name = wait_for("the device to be listed", self._name)

    def _serve(self, *options):
        """Starts its program."""
        return subprocess.Popen(
            [VIRTUAL, "--vhci", str(self.port), "--bank", self.bank_file,
             "--trace", self.trace_file, *options], stdin=subprocess.DEVNULL)

    def _name(self):
        """Its name in sysfs, such as 1-1, once it has been configured."""
        for line in (VHCI / "status").read_text().splitlines()[1:]:
            _, port, _, _, _, _, name = line.split()
            if int(port) == self.port and (DEVICES / f"{name}:1.0").exists():
                return name
        return None

    @property
    def node(self):
        """Its device node, such as /dev/bus/usb/001/004."""
        numbers = [int((DEVICES / self.name / key).read_text()) for key in ("busnum", "devnum")]
        return Path("/dev/bus/usb") / f"{numbers[0]:03}" / f"{numbers[1]:03}"

    def drivers(self):
        """The kernel driver of each interface, in order; None where there is none."""
        folders = sorted(DEVICES.glob(f"{self.name}:1.*"))
        links = [folder / "driver" for folder in folders]
        return [link.resolve().name if link.exists() else None for link in links]

    def midi_port(self):
        """The raw MIDI device of its sound card, or None."""
        found = list((DEVICES / f"{self.name}:1.0").glob("sound/card*/midiC*D*"))
        return Path("/dev/snd") / found[0].name if found else None

    def await_port(self):
        # The port is there a moment before the kernel lists the second interface.
        wait_for("the MIDI port",
                 lambda: self.midi_port() and self.drivers() == [SOUND_DRIVER, SOUND_DRIVER])

    def check_port_is_back(self):
        check_equal(self.drivers(), [SOUND_DRIVER, SOUND_DRIVER], "drivers")
        port = self.midi_port()
        assert port and port.exists(), "there is no MIDI port"

    def trace(self):
        return self.trace_file.read_text().splitlines()

    def carried(self, endpoint):
        """The bytes of each transfer that ended well on "ep1 in" or "ep2 out"."""
        found = (re.fullmatch(rf"\d+ {endpoint} ok \d+: (.*)", line) for line in self.trace())
        return [match.group(1) for match in found if match]

    def await_transfers(self, endpoint, count):
        wait_for(f"{count} transfers on {endpoint}",
                 lambda: self.trace_file.read_text().count(f" {endpoint} ok ") >= count)

    def plug_again(self):
        """After it has left the bus by a fault."""
        wait_for("the device to go", lambda: not (DEVICES / self.name).exists())
        self.server.send_signal(signal.SIGUSR1)
        self.name = wait_for("the device to be listed again", self._name)
        self.await_port()

    def unplug(self):
        self.server.kill()
        self.server.wait()
        wait_for("the device to go", lambda: not (DEVICES / self.name).exists())


class Rig:
    def __init__(self):
        self._stack = contextlib.ExitStack()
        self.notes = []  # figures to be reported with the case
        self.folder = Path(self._stack.enter_context(tempfile.TemporaryDirectory()))
        self.keyboards = []
        os.environ["XDG_STATE_HOME"] = str(self.folder / "state")

    def close(self):
        for keyboard in self.keyboards:
            if (DEVICES / keyboard.name).exists():
                keyboard.unplug()
        self._stack.close()

    def plug(self, *options, bank=None, port=0, awaits_port=True, kind=Keyboard):
        """A keyboard that is ready for use; `options` go to its program."""
        keyboard = kind(self.folder, port, some_bank() if bank is None else bank, options)
        self.keyboards.append(keyboard)
        if awaits_port:
            keyboard.await_port()
        return keyboard

    def start(self, *command, **options):
        """Starts a program that does not outlive the case."""
        program = subprocess.Popen(command, text=True, **{
            "stdin": subprocess.DEVNULL, "stderr": subprocess.PIPE, **options})
        self._stack.callback(program.wait)
        self._stack.callback(program.kill)
        return program

    def start_on_terminal(self, *command):
        """Starts a program on a terminal of its own; gives it and the terminal's other end."""
        ours, theirs = pty.openpty()
        program = subprocess.Popen(
            command, stdin=theirs, stdout=theirs, stderr=theirs, start_new_session=True,
            preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0))
        os.close(theirs)
        self._stack.callback(program.wait)
        self._stack.callback(program.kill)
        return program, ours

    def run(self, *command, **options):
        """Runs a program to its end; gives its exit code and what it said on stderr."""
        program = self.start(*command, **options)
        _, errors = program.communicate(timeout=PATIENCE)
        return program.returncode, errors

    def check_prompt(self, what, since):
        """Measured in starts of a program, which take as much longer as all does on a busy machine."""
        seconds = time.monotonic() - since
        begin = time.monotonic()
        self.run(CLI, "--version", stdout=subprocess.DEVNULL)
        starts = seconds / (time.monotonic() - begin)
        self.notes.append(f"{what}: {seconds:.2f} s, {starts:.1f} starts of a program")
        assert starts < PROMPT, f"{what} took {seconds:.1f} s, {starts:.0f} starts of a program"

    def traces(self):
        """The last transfers of each keyboard, for a failure's report."""
        return "".join("\n".join([f"Keyboard on port {keyboard.port}:", *keyboard.trace()[-12:]])
                       for keyboard in self.keyboards)

    def file(self, name):
        return self.folder / name

    def check_read(self, bank):
        """A read that succeeds and gives `bank`."""
        out = self.file("read.bank")
        check_equal(self.run(CLI, "read", out), (0, ""), "read")
        assert out.read_bytes() == bank, "what was read is not the controller's bank"
        out.unlink()

    def check_read_fails(self, *words):
        """A read that says all of `words`, ends with 1 and leaves no file."""
        out = self.file("none.bank")
        code, errors = self.run(CLI, "read", out)
        check_equal(code, 1, f"exit code after {errors!r}")
        for word in words:
            assert word in errors, f"{word!r} is missing in {errors!r}"
        assert not out.exists(), "a file was written"

    def check_ends_by(self, program, name):
        """Ends the program by the signal of that name, as it would end by itself."""
        program.send_signal(getattr(signal, name))
        check_equal(program.wait(PATIENCE), -getattr(signal, name), "exit status")
