"""What is played to other programs, what is tried by touch, and how much comes through at once."""

import json
import re
import signal
import subprocess
import time
from collections import Counter
from datetime import datetime
from itertools import count
from pathlib import Path

from cases_play import (SEQUENCER, Hearer, OrderedKeyboard, await_equal, client_of, keyboards_client,
                        off, on, played_bank, table)
from rig import CLI, PATIENCE, check_equal, wait_for

PLAYER = 'Scenewright"'  # the whole of its client's name
KNOBS = [f"{kind}{number}" for kind in ("knob", "slider") for number in (1, 2, 3, 4)]
BURST = 40_000  # messages
SLIDE = 200  # milliseconds


class Player:
    """The command that plays a bank, with orders on its standard input."""

    def __init__(self, rig, bank, *options):
        self.told = rig.file("told")
        with self.told.open("w") as sink:
            self.program = rig.start(CLI, "play", bank, *options, stdin=subprocess.PIPE,
                                     stdout=subprocess.DEVNULL, stderr=sink, bufsize=1)
        wait_for("its port", lambda: re.search(r"Scenewright \(\d+:0\)", self.told.read_text()))

    def order(self, line):
        print(line, file=self.program.stdin)


def case_played_here_is_heard_by_other_programs(rig):
    """The table that was typed for the keyboard itself holds for a scene that is played here."""
    player = Player(rig, played_bank(rig), "--scene", "1")
    hearer = Hearer(rig, client_of(PLAYER))
    wait_for("its name", lambda: "playing to aseqdump" in player.told.read_text())
    expected = []
    for scene in (1, 2, 3, 4):
        player.order(f"scene {scene}")
        for order, *messages in table(scene):
            player.order(order)
            expected += messages
            await_equal(f"what scene {scene} plays by {order}", hearer.heard, expected)
    rig.notes.append(f"{len(expected)} messages heard")


def case_notes_end_with_what_plays_them(rig):
    bank = played_bank(rig)
    ends = {
        "a change of scene": lambda player, _: player.order("scene 2"),
        "the end of its input": lambda player, _: player.program.stdin.close(),
        "SIGINT": lambda player, _: player.program.send_signal(signal.SIGINT),
        "SIGTERM": lambda player, _: player.program.send_signal(signal.SIGTERM),
        "another program's going": lambda _, other: other.program.kill(),
    }
    for what, end in ends.items():
        player = Player(rig, bank)
        hearers = [Hearer(rig, client_of(PLAYER), name) for name in ("first", "second")]
        player.order("press pad1 100")
        for hearer in hearers:
            await_equal(f"the note before {what}", hearer.heard, [on(9, 41, 100)])
        end(player, hearers[1])
        await_equal(f"the end of the note after {what}", hearers[0].heard,
                    [on(9, 41, 100), off(9, 41)])
        if not player.program.stdin.closed:
            player.program.stdin.close()
        check_equal(player.program.wait(PATIENCE), 0, f"exit code after {what}")
        for hearer in hearers:
            hearer.end()


# What the bank that is tried has otherwise than the keyboard: a setting of a control, and what is said.
DIFFERENCES = (
    ("scene1.pad3", "CCOrNoteNumber=F#2", "sent note D4, expected note F#2"),
    ("scene2.pad5", "CCOrNoteNumber=74", "sent CC 64, expected CC 74"),
    ("scene3.knob1", "CCOrNoteNumber=19", "sent CC 20, expected CC 19"),
    ("scene4.pad1", "MIDIChannel=title:9", "sent note C4, ch 10, expected note C4, ch 9"),
    ("scene4.key2", "AssignType=CC", "sent note C#4, expected CC 49"),
)
# Right but for what is assumed of the keyboard.
ASSUMED = (
    ("scene2.knob1", "group1.MIDIChannel=title:16", "ch 6"),
    ("scene2.slider1", "group1.MIDIChannel=title:16", "ch 6"),
    ("scene3.pad5", "pad5.OnValue=91", "value 90"),
)
TOGGLES = ("pad2", "key2")  # off again before another scene
SILENT = [f"scene{scene}.{name}" for scene in (1, 2, 3, 4) for name in ("slider3", "pad6")]


def touch(keyboard, path):
    name = path.split(".")[1]
    if name.startswith(("knob", "slider")):
        keyboard.order(f"turn {name} 127", "played")
        return
    for _ in range(2 if name in TOGGLES else 1):
        keyboard.order(f"press {name} 100", "played")
        keyboard.order(f"release {name}", "played")


def distinct_bank(rig):
    """The played bank with a number for each control, so that a touch is nobody else's rest."""
    bank = played_bank(rig)
    fills = (("scene*.key*", "C3"), ("scene*.pad*.CCOrNoteNumber", "60"))
    for path, start in fills:
        check_equal(rig.run(CLI, "fill", bank, path, start, stderr=subprocess.DEVNULL)[0], 0, path)
    return bank


def case_tried_controls_are_compared(rig):
    bank = distinct_bank(rig)
    keyboard = rig.plug(bank=bank.read_bytes(), kind=OrderedKeyboard)
    wait_for("the sequencer's client", keyboards_client)
    settings = [f"{path}.{setting}" for path, setting, _ in DIFFERENCES]
    settings += [f"{path.split('.')[0]}.{setting}" for path, setting, _ in ASSUMED]
    check_equal(rig.run(CLI, "set", bank, *settings, stderr=subprocess.DEVNULL)[0], 0, "set")
    trial = rig.start(CLI, "try", bank, "--json", stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    for said in trial.stderr:
        if scene := re.search(r"choose scene (\d)", said):
            keyboard.order(f"scene {scene[1]}", "plays scene")
        elif path := re.search(r"touch (\S+),", said):
            touch(keyboard, path[1])
    results = [json.loads(line) for line in trial.stdout]
    check_equal(trial.wait(PATIENCE), 1, "exit code")
    check_equal(len(results), 4 * 41, "controls")
    told = {row["control"]: row for row in results}
    for path, _, text in DIFFERENCES:
        check_equal(told[path]["text"], text, path)
    for path, _, sent in ASSUMED:
        assert sent in told[path]["text"], told[path]
    others = {"wrong": [path for path, *_ in DIFFERENCES], "silent": SILENT,
              "assumed": [path for path, *_ in ASSUMED]}
    for verdict, paths in others.items():
        check_equal([row["control"] for row in results if row["verdict"] == verdict], paths, verdict)
    rights = sum(row["verdict"] == "right" for row in results)
    check_equal(rights, 4 * 41 - sum(map(len, others.values())), "right controls")


def case_port_that_another_program_holds_is_told(rig):
    rig.plug(bank=played_bank(rig).read_bytes(), kind=OrderedKeyboard)
    client = wait_for("the sequencer's client", keyboards_client)
    sentence = f"scenewright-cli: another program has the MIDI port {client}:0 for itself; end that " \
               "program first\n"
    (device,) = Path("/dev/snd").glob("midiC*D0")
    with device.open("rb", buffering=0):
        for command in (("monitor",), ("try", rig.file("played.bank"))):
            check_equal(rig.run(CLI, *command), (1, sentence), command[0])


def case_burst_is_monitored_without_a_loss(rig):
    """Knobs and sliders that slide together, as often as a second has room for."""
    bank = played_bank(rig)
    settings = ("knob*.Enable=On", "slider*.Enable=On")
    code, _ = rig.run(CLI, "set", bank, *(f"scene1.{each}" for each in settings),
                      *(f"scene1.{name}.{end}" for name in KNOBS
                        for end in ("LowerOrLeftValue=0", "UpperOrRightValue=127")))
    check_equal(code, 0, "set")
    keyboard = rig.plug(bank=bank.read_bytes(), kind=OrderedKeyboard)
    wait_for("the sequencer's client", keyboards_client)
    told = rig.file("told")
    with told.open("w") as sink:
        monitor = rig.start(CLI, "monitor", "--json", stdout=sink)
    monitor.stderr.readline()
    values = 128 * len(KNOBS)
    rounds = BURST // values + 1
    begin = time.monotonic()
    for number in range(rounds):
        for name in KNOBS:
            ends = "0 127" if number % 2 == 0 else "127 0"
            keyboard.order(f"slide {name} {ends} {SLIDE}ms", "slides")
        wait_for("the slides' messages",
                 lambda: told.read_bytes().count(b"\n") >= (number + 1) * values)
    seconds = time.monotonic() - begin
    messages = rounds * values
    lines = [json.loads(line) for line in told.read_text().splitlines()]
    check_equal(len(lines), messages, "monitored messages")
    values_of = {}
    for line in lines:
        number, value = line["data"]
        values_of.setdefault(number, []).append(value)
    there_and_back = [*range(128), *range(127, -1, -1)] * rounds
    check_equal(list(values_of.values()), [there_and_back[:128 * rounds]] * len(KNOBS), "the values")
    times = [datetime.fromisoformat(line["time"]) for line in lines]
    longest = max(times[place] - times[place - 1] for place in range(1, messages) if place % values)
    rig.notes.append(f"{messages} messages in {seconds:.1f} s, {messages / seconds:.0f} a second; at most "
                     f"{longest.total_seconds() * 1000:.0f} ms between two lines")


def calls_of_sequencer(rig, call, number):
    """The monitor with strace beside it, one of whose calls on the sequencer fails; ended by SIGINT once
    it listens or waits: its exit code, what it said, and its calls."""
    trace, told = rig.file("trace"), rig.file("told")
    with told.open("w") as sink:
        program = rig.start("strace", "-D", "-qq", "-o", trace, "-P", SEQUENCER, "-e", f"trace={call}",
                            "-e", f"inject={call}:error=EIO:when={number}", CLI, "monitor",
                            stdout=subprocess.DEVNULL, stderr=sink)
    wait_for("a sentence of the monitor", lambda: re.search(
        "listening to|waiting for one", told.read_text()) or program.poll() is not None)
    program.send_signal(signal.SIGINT)
    return program.wait(PATIENCE), told.read_text(), trace.read_text()


def case_failing_calls_of_the_sequencer_are_told(rig):
    """Each of them fails once: one sentence and exit code 1, or the monitor goes on."""
    rig.plug(bank=played_bank(rig).read_bytes(), kind=OrderedKeyboard)
    wait_for("the sequencer's client", keyboards_client)
    ends = Counter()
    for call in ("openat", "ioctl"):
        for number in count(1):
            code, told, trace = calls_of_sequencer(rig, call, number)
            if "(INJECTED)" not in trace:
                break
            lines = told.splitlines()
            what = f"without {call} {number}: {told!r}, exit code {code}"
            assert lines and all(line.startswith("scenewright-cli: ") for line in lines), what
            assert code == 0 or (code == 1 and len(lines) == 1), what
            ends[call, code] += 1
    assert ends["ioctl", 1], ends  # of openat libasound tries another one
    rig.notes += [f"{number} failures of {call} with exit code {code}"
                  for (call, code), number in ends.items()]
