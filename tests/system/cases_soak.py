"""Read after send after read, with a trouble drawn for each; right or told, and level, after each.

The keyboard's program and a monitor live from the first round to the last, and so does the process
that makes the transactions, but for those that only a person ends: these are made by the command line.
"""

import os
import re
import signal
import statistics
import subprocess
import time
from collections import Counter
from pathlib import Path

import soak_plan
from rig import CLI, DEVICES, PATIENCE, VIRTUAL, Keyboard, check_equal, some_bank, wait_for
from soak_plan import CARRIED, ENDED, RIGHT, TOLD
from transactions import Transactions

ROUNDS, SEED = map(int, os.environ.get("SOAK", "20 0").split())
BLOCK = 512  # bytes that the controller takes over at once
LETS_GO = 5  # seconds in which a program notices that the keyboard is gone, unless it cannot
GROWTH_KIB = 256  # of a process, from its being warm to the end


class OrderedKeyboard(Keyboard):
    """A keyboard that is told what goes wrong while it runs, and keeps no trace."""

    def _serve(self, *options):
        return subprocess.Popen(
            [VIRTUAL, "--vhci", str(self.port), "--bank", self.bank_file, "--orders", *options],
            stdin=subprocess.PIPE, stderr=subprocess.PIPE, text=True, bufsize=1)

    def order(self, line, answer):
        """Gives an order, and waits until the program has said `answer`."""
        print(line, file=self.server.stdin)
        for said in self.server.stderr:
            if re.search(answer, said):
                return
        raise AssertionError(f"the keyboard ended after {line!r}")

    def trace(self):
        return []

    def plug_in(self):
        wait_for("the device to go", lambda: not (DEVICES / self.name).exists())
        self.order("plug", "plugged into port")
        self.name = wait_for("the device to be listed again", self._name)
        self.await_port()


class Meter:
    """The memory and the open files of a process, looked at after each round."""

    def __init__(self, name, program):
        self.name = name
        self.folder = Path("/proc") / str(program.pid)
        self.resident = []  # KiB, with the pages of its files that it has touched
        self.memory = []  # KiB, without them
        self.files = []

    def look(self):
        status = (self.folder / "status").read_text()
        for sizes, field in ((self.resident, "VmRSS"), (self.memory, "RssAnon")):
            sizes.append(int(re.search(rf"{field}:\s+(\d+) kB", status).group(1)))
        self.files.append(len(os.listdir(self.folder / "fd")))

    def told(self):
        tenths = [self.memory[len(self.memory) * tenth // 10 - 1] for tenth in range(1, 11)]
        return (f"{self.name}: resident {self.resident[0]} KiB after the first round, "
                f"{self.resident[-1]} after the last; of these its own {self.memory[0]} after the "
                f"first, then after each tenth {tenths}; open files {self.files[0]} first, "
                f"{self.files[-1]} last, {max(self.files)} at most")

    def _settled(self):
        """The round by which every kind has been there, or half of a short soak: the first rounds
        may all be made by other programs, and what is opened once is not open before."""
        return min(len(soak_plan.KINDS), len(self.memory) // 2)

    def check_level(self):
        files = self.files[self._settled():]
        assert len(set(files)) == 1, f"{self.name}: open files {self.files}"
        end = statistics.median(self.memory[-5:])
        warm = self.memory[self._settled()]
        assert end <= warm + GROWTH_KIB, f"{self.name}: KiB {self.memory}"


def monitor_listens():
    """Whether the monitor is connected to more than the sequencer's own announcements."""
    text = Path("/proc/asound/seq/clients").read_text()
    own = text.partition(': "Scenewright monitor"')[2].split("Client")[0]
    return set(re.findall(r"\d+:\d+", "".join(re.findall("Connected From: .*", own)))) - {"0:1"}


class Soak:
    def __init__(self, rig):
        self.rig = rig
        self.may_hold = {some_bank()}  # by what was told of the sends
        self.keyboard = rig.plug(kind=OrderedKeyboard)
        self.process = Transactions(rig)
        self.monitor = rig.start(CLI, "monitor", stdout=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL)
        wait_for("the monitor to listen", monitor_listens)
        self.meters = [Meter("transactions", self.process.program),
                       Meter("controller", self.keyboard.server)]
        self.tally = Counter()

    def run(self, step):
        """One round, and all that must hold after it."""
        source, out = self.rig.file("in.bank"), self.rig.file("out.bank")
        source.write_bytes(step.bank)
        out.unlink(missing_ok=True)
        count = len(step.faults.split())
        self.keyboard.order(f"faults {step.faults}", f"{count} faults ordered")
        file = source if step.kind.verb == "send" else out
        end = self._by_hand(step, file) if step.kind.hand else self._by_process(step, file)
        if step.kind.verb == "send":
            self._check_sent(step.bank, end)
        elif self._check_read(out, end) == step.number:
            end = CARRIED
        assert end in step.kind.ends, f"the round ended {end}"
        self.tally[step.kind.title, end] += 1
        self._check_bus(step)

    def _by_process(self, step, file):
        told = self.process.attempt(step.kind.verb, file)
        self.process.release()
        return TOLD if told else RIGHT

    def _by_hand(self, step, file):
        options = ["--no-backup"] if step.kind.verb == "send" else []
        program = self.rig.start(CLI, step.kind.verb, file, *options,
                                 env={**os.environ, "XDG_STATE_HOME": "/nonexistent"})
        time.sleep(step.delay)
        if step.kind.hand == "unplug":
            self.keyboard.order("unplug", "unplugged")
        try:
            program.wait(LETS_GO if step.kind.hand == "unplug" else 0)
        except subprocess.TimeoutExpired:
            program.send_signal(getattr(signal, step.signal))
        return self._end_of(program, step.signal)

    def _end_of(self, program, name):
        _, errors = program.communicate(timeout=PATIENCE)
        if program.returncode == -getattr(signal, name):
            return ENDED
        assert program.returncode in (0, 1), f"exit code {program.returncode}: {errors}"
        assert bool(errors) == (program.returncode == 1), f"{program.returncode} with {errors!r}"
        return TOLD if errors else RIGHT

    def _check_sent(self, bank, end):
        """What went well is in the controller; of anything else, each block may be."""
        if end == RIGHT:
            check_equal(self.keyboard.bank_file.read_bytes(), bank, "the controller's file")
            self.may_hold = {bank}
        else:
            self.may_hold |= {bank, *(bank[:BLOCK] + held[BLOCK:] for held in self.may_hold)}

    def _check_read(self, out, end):
        """A file has what the controller holds; there is one after a read that went well, and
        perhaps after one that was ended at its last moment. Gives the place of a wrong byte."""
        if not out.exists():
            assert end != RIGHT, "no file was written"
            return None
        assert end != TOLD, "a file was written"
        found = out.read_bytes()
        if found in self.may_hold:
            self.may_hold = {found}
            return None
        wrong = min(([place for place in range(len(held)) if found[place] != held[place]]
                     for held in self.may_hold), key=len)
        check_equal(len(wrong), 1, "bytes that the controller does not hold")
        return wrong[0]

    def _check_bus(self, step):
        if step.kind.hand == "unplug" or "unplug" in step.faults:
            self.keyboard.plug_in()
        self.keyboard.check_port_is_back()
        wait_for("the monitor to listen again", monitor_listens)
        for meter in self.meters:
            meter.look()


def case_soak(rig):
    soak = Soak(rig)
    begin = time.monotonic()
    rig.notes.append(f"soak of {ROUNDS} rounds, seed {SEED}")
    for number, step in enumerate(soak_plan.rounds(ROUNDS, SEED)):
        try:
            soak.run(step)
        except Exception as error:
            error.add_note(f"in round {number} of seed {SEED}: {step.kind.title}, "
                           f"faults {step.faults!r}, after {step.delay:.2f} s, {step.signal}")
            raise
        print(f"round {number} after {time.monotonic() - begin:.0f} s: {step.kind.title}")
    rig.notes += [f"{title}: {count} {end}" for (title, end), count in sorted(soak.tally.items())]
    rig.notes += [meter.told() for meter in soak.meters]
    soak.process.end()
    soak.monitor.send_signal(signal.SIGINT)
    check_equal(soak.monitor.wait(PATIENCE), 0, "exit code of the monitor")
    for meter in soak.meters:
        meter.check_level()
