"""The keyboard is played: what it sends, and what other programs have connected to it stays."""

import json
import os
import re
import signal
import subprocess

from cases_soak import OrderedKeyboard
from cases_editor import Window
from cases_trouble import NOBODY
from rig import CLI, PATIENCE, check_equal, some_bank, wait_for

NOTE_WITHIN = 60  # seconds, under emulation on a busy machine
CLIENTS = "/proc/asound/seq/clients"
SEQUENCER = "/dev/snd/seq"
HEARD = re.compile(r"(Note on|Note off|Control change)\s+(\d+), (?:note|controller) (\d+)"
                   r"(?:, (?:velocity|value) (\d+))?")

# The same in each scene, but for the scene's global channel and a note: a control of each kind and
# behavior, in both directions of travel.
SETTINGS = (
    "common.PianoKeyCh=Global", "common.KeyTranspose=+1",
    "common.KeyVelocityCurve=Constant", "common.KeyConstVelocity=77",
    "common.PadVelocityCurve=Normal",
    "group*.MIDIChannel=Global",
    "knob1.Enable=On", "knob1.CCOrNoteNumber=20", "knob1.LowerOrLeftValue=0",
    "knob1.UpperOrRightValue=127",
    "slider2.Enable=On", "slider2.CCOrNoteNumber=21", "slider2.LowerOrLeftValue=100",
    "slider2.UpperOrRightValue=20", "slider3.Enable=Off",
    "pad*.MIDIChannel=title:10", "pad*.AssignType=Note", "pad5.MIDIChannel=Global",
    "pad1.PadBehavior=Momentary", "pad2.PadBehavior=Toggle", "pad3.PadBehavior=Trigger",
    "pad4.PadBehavior=Release",
    "pad5.AssignType=CC", "pad5.CCOrNoteNumber=22", "pad5.OnValue=90",
    "pad5.OffValue=10", "pad5.PadBehavior=Momentary", "pad6.AssignType=Off",
    "pad2.CCOrNoteNumber=51", "pad3.CCOrNoteNumber=52", "pad4.CCOrNoteNumber=53",
    "key1.AssignType=Note", "key1.CCOrNoteNumber=60", "key1.KeyBehavior=Momentary",
    "key2.AssignType=CC", "key2.CCOrNoteNumber=23", "key2.KeyBehavior=Toggle",
    "key2.OnValue=127", "key2.OffValue=1",
)


def on(channel, note, velocity):
    return ("Note on", channel, note, velocity)


def off(channel, note):
    return ("Note off", channel, note, 0)


def control(channel, number, value):
    return ("Control change", channel, number, value)


def table(scene):
    """Orders and what they send; channels from 0, as the independent program prints them."""
    own = scene + 3  # the global channel
    return (
        ("press pad1 100", on(9, 40 + scene, 100)), ("release pad1", off(9, 40 + scene)),
        ("press pad2 90", on(9, 51, 90)), ("release pad2",), ("press pad2 80", off(9, 51)),
        ("press pad3 70", on(9, 52, 70), off(9, 52)), ("release pad3",),
        ("press pad4 60",), ("release pad4", on(9, 53, 60), off(9, 53)),
        ("press pad5 1", control(own, 22, 90)), ("release pad5", control(own, 22, 10)),
        ("press pad6 1",), ("release pad6",),
        ("press key1 3", on(own, 72, 77)), ("release key1", off(own, 72)),
        ("press key2 3", control(own, 23, 127)), ("release key2",),
        ("press key2 3", control(own, 23, 1)),
        ("turn knob1 0", control(own, 20, 0)), ("turn knob1 127", control(own, 20, 127)),
        ("slide slider2 0 127 200ms", *(control(own, 21, value) for value in range(100, 19, -1))),
        ("turn slider3 64",),
    )


def played_bank(rig):
    """The default bank with the settings above in each scene."""
    file = rig.file("played.bank")
    check_equal(rig.run(CLI, "default", file), (0, ""), "default")
    each = [f"scene{scene}.{one}" for scene in (1, 2, 3, 4)
            for one in (*SETTINGS, f"common.GlobalMIDICh={scene + 3}",
                        f"pad1.CCOrNoteNumber={40 + scene}")]
    code, errors = rig.run(CLI, "set", file, *each)
    check_equal(code, 0, f"exit code after {errors}")
    return file


def clients():
    with open(CLIENTS, encoding="utf-8") as text:
        return text.read()


def client_of(name):
    found = re.search(rf'Client +(\d+) : "{name}', clients())
    return found and int(found.group(1))


def keyboards_client():
    return client_of("Virtual Controller")


def connections(client):
    """Those of the client, in both directions, without our own programs'."""
    own = clients().split(f"Client {client:3} ", 1)
    if len(own) < 2:
        return None
    ours = {f"{client}:0" for client in re.findall(r'Client +(\d+) : "Scenewright', clients())}
    text = own[1].split("Client")[0]
    return {(direction, other) for direction, others in
            re.findall(r"(Connecting To|Connected From): (.*)", text)
            for other in re.findall(r"\d+:\d+", others) if other not in ours}


class Hearer:
    """An independent program that is connected to the keyboard and prints what it hears."""

    def __init__(self, rig, client, name=""):
        self.file = rig.file(f"heard-{client}{name}")
        before = connections(client)
        with self.file.open("w") as sink:
            self.program = rig.start("aseqdump", "-p", str(client), stdout=sink,
                                     stderr=subprocess.DEVNULL)
        wait_for("the connection", lambda: connections(client) != before)

    def end(self):
        self.program.kill()
        self.program.wait()

    def heard(self):
        return [(what, int(channel), int(number), int(value or 0)) for what, channel, number, value
                in HEARD.findall(self.file.read_text())]


def await_equal(what, found, expected):
    """Waits until `found` gives as many as are expected, and compares."""
    wait_for(what, lambda: len(found()) >= len(expected))
    check_equal(found(), list(expected), what)


def monitored(line):
    """A line of the monitor as the independent program would have it, and the controls it names."""
    told = json.loads(line)
    kinds = {0x8: "Note off", 0x9: "Note on", 0xB: "Control change"}
    value = 0 if told["status"] >> 4 == 0x8 else told["data"][1]
    return (kinds[told["status"] >> 4], told["status"] & 15, told["data"][0], value), told["controls"]


def case_played_controls_are_heard_and_monitored(rig):
    bank = played_bank(rig)
    keyboard = rig.plug(bank=bank.read_bytes(), kind=OrderedKeyboard)
    hearer = Hearer(rig, wait_for("the sequencer's client", keyboards_client))
    told = rig.file("told")
    with told.open("w") as sink:
        monitor = rig.start(CLI, "monitor", "--json", "--bank", bank, stdout=sink)
    check_equal(monitor.stderr.readline(),
                "scenewright-cli: listening to Virtual Controller MIDI 1\n", "what is listened to")
    expected, senders = [], []
    for scene in (1, 2, 3, 4):
        keyboard.order(f"scene {scene}", "plays scene")
        for order, *messages in table(scene):
            keyboard.order(order, "played|slides")
            expected += messages
            senders += [f"scene{scene}.{order.split()[1]}"] * len(messages)
            await_equal(f"what scene {scene} sends by {order}", hearer.heard, expected)

    def lines():
        return [monitored(line) for line in told.read_text().splitlines()]
    await_equal("what the monitor tells", lambda: [line[0] for line in lines()], expected)
    for (message, controls), sender in zip(lines(), senders):
        assert sender in controls, f"{message} is told to come from {controls}, not from {sender}"
    monitor.send_signal(signal.SIGINT)
    check_equal(monitor.wait(PATIENCE), 0, "exit code of the monitor")
    rig.notes.append(f"{len(expected)} messages heard")


class Connected:
    """A keyboard that is connected to a program, and to which another keyboard is connected."""

    def __init__(self, rig, bank=None):
        self.rig = rig
        self.keyboard = rig.plug(bank=bank or played_bank(rig).read_bytes(), kind=OrderedKeyboard)
        client = wait_for("the sequencer's client", keyboards_client)
        # Of ids that are in no list. Its client has the same name, and is the one that is not ours.
        rig.plug("--identity", "1209:0002", port=1)
        other = wait_for("the other client", lambda: max(
            map(int, re.findall(r'Client +(\d+) : "Virtual Controller', clients()))))
        assert other != client
        self.hearer = Hearer(rig, client)
        check_equal(rig.run("aconnect", f"{other}:0", f"{client}:0"), (0, ""), "aconnect")
        self.count = 0
        self.before = connections(client)
        check_equal(len(self.before), 2, f"connections in {self.before}")
        self.check("the start")

    def check(self, what):
        """Both are there, and a note is heard by the program that has not been touched."""
        self.rig.notes.append(f"connections compared after {what}")
        wait_for(f"the connections after {what}",
                 lambda: connections(keyboards_client() or -1) == self.before, NOTE_WITHIN)
        self.keyboard.order("press pad3 100", "played")
        self.count += 2
        wait_for(f"a note after {what}", lambda: len(self.hearer.heard()) == self.count, NOTE_WITHIN)


def case_connections_are_back_after_a_read_and_a_send(rig):
    there = Connected(rig)
    source = rig.file("played.bank")
    for command in (("read", rig.file("kept.bank")), ("send", source, "--verify")):
        check_equal(rig.run(CLI, *command, stdout=subprocess.DEVNULL), (0, ""), command[0])
        # At once: the command has waited for them.
        check_equal(connections(keyboards_client()), there.before, f"after {command[0]}")
        there.check(command[0])


def note_file():
    return os.path.join(os.environ["XDG_STATE_HOME"], "scenewright/connections.json")


def start_waiting_read(rig, keyboard):
    """A read that waits for an answer that does not come."""
    keyboard.order("faults silent:300", "ordered")
    read = rig.start(CLI, "read", rig.file("never.bank"))
    wait_for("the port to go", lambda: not keyboard.midi_port())
    return read


def case_connections_are_back_after_signals(rig):
    there = Connected(rig)
    for name in ("SIGINT", "SIGTERM"):
        read = start_waiting_read(rig, there.keyboard)
        rig.check_ends_by(read, name)
        check_equal(connections(keyboards_client()), there.before, f"after {name}")
        assert not os.path.exists(note_file()), f"the note stays after {name}"
        there.keyboard.order("faults", "ordered")
        there.check(name)


def case_connections_are_back_by_the_next_run_after_a_kill(rig):
    there = Connected(rig)
    read = start_waiting_read(rig, there.keyboard)
    read.kill()
    read.wait()
    assert os.path.exists(note_file()), "there is no note"
    there.keyboard.order("faults", "ordered")
    check_equal(rig.run(CLI, "read", rig.file("kept.bank")), (0, ""), "read")
    check_equal(connections(keyboards_client()), there.before, "after the next read")
    assert not os.path.exists(note_file()), "the note stays"
    there.check("a kill")


def case_connections_are_back_after_commands_of_the_window_and_an_unplug(rig):
    there = Connected(rig)
    window = Window(rig)
    for what in ("a read", "another read"):
        window.forget_log()
        window.key("ctrl+r")
        window.await_log("Read Scene Data Finish")
        there.check(what + " of the window")
        window.await_input()
    there.keyboard.order("unplug", "unplugged")
    there.keyboard.plug_in()
    there.check("an unplug")
    window.key("ctrl+q")
    check_equal(window.program.wait(PATIENCE), 0, "exit code")


def check_monitor_says(rig, sentence, **options):
    check_equal(rig.run(CLI, "monitor", **options), (1, f"scenewright-cli: {sentence}\n"), "monitor")


def case_without_a_sequencer_the_rest_works(rig):
    bank = some_bank(4)
    rig.plug(bank=bank)
    os.rename(SEQUENCER, SEQUENCER + ".away")
    try:
        check_monitor_says(rig, f"there is no sequencer of ALSA's on this system ({SEQUENCER}); as "
                                "root, modprobe snd-seq loads it")
        rig.check_read(bank)
    finally:
        os.rename(SEQUENCER + ".away", SEQUENCER)
    os.chmod(SEQUENCER, 0o600)
    code, errors = rig.run(CLI, "monitor", **NOBODY)
    check_equal((code, errors.split(";")[0]),
                (1, f"scenewright-cli: you have no permission to use {SEQUENCER}"), "monitor")
