"""The window and MIDI: what it monitors, tries and plays, as a screen reader and other programs have it."""

import subprocess

from cases_editor import Window
from cases_midi import PLAYER, distinct_bank
from cases_play import (Hearer, OrderedKeyboard, await_equal, client_of, clients, keyboards_client,
                        off, on, played_bank)
from rig import CLI, PATIENCE, check_equal, some_bank, wait_for

SAID_WITHIN = 60  # seconds, under emulation on a busy machine


class Reader:
    """The window as a screen reader has it, on a bus of its own."""

    CLOSED = ("combo box", "list")  # not looked into: they have hundreds of entries

    def __init__(self, rig):
        from sweep_editor import ScreenReader  # as it needs more of the system than the other cases

        bus = rig.start("dbus-daemon", "--session", "--nofork", "--print-address",
                        stdout=subprocess.PIPE)
        self.address = bus.stdout.readline().strip()
        # The window answers when a command has ended.
        self.reader = ScreenReader(self.address, 1000 * PATIENCE)

    @property
    def environment(self):
        return {"DBUS_SESSION_BUS_ADDRESS": self.address, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def parts(self, part):
        for each in self.reader.children(*part):
            yield each
            if self.reader.role(*each) not in self.CLOSED:
                yield from self.parts(each)

    def find(self, name):
        for application in self.reader.children("org.a11y.atspi.Registry", self.reader.ROOT):
            for part in self.parts(application):
                if self.reader.name(*part) == name:
                    return part
        return None

    def rectangle(self, part):
        from gi.repository import GLib

        screen = GLib.Variant("(u)", (0,))
        return self.reader.call(self.reader.bus, *part, "org.a11y.atspi.Component.GetExtents",
                                screen)[0]

    def texts(self, part):
        return [self.reader.name(*each) for each in self.parts(part)]


def shot(window, left, top, width, height):
    """A part of the display: red, green and blue of each pixel."""
    crop = f"{width}x{height}+{left}+{top}"
    return subprocess.run(["import", "-window", "root", "-crop", crop, "-depth", "8", "rgb:-"],
                          env=window.environment, capture_output=True, check=True).stdout


def upper_part(reader, control):
    """A place on the picture that no other control covers."""
    left, top, width, height = reader.rectangle(control)
    return left + width // 2, top + height // 5


def choose_control(window, reader, name, number):
    """By a click on the picture; gives the control."""
    control = wait_for(f"{name} on the picture", lambda: reader.find(name))
    window.click_until(upper_part(reader, control), f"点击了按钮：{number}\n")
    return control


def set_values(window, *values):
    """Popups by their keys, and what is typed into each."""
    for popup, value in values:
        window.key(popup)
        window.do("type", value)
        window.key("Return")


def await_listening():
    """Gives the number of the keyboard's client, once the window is connected to it."""
    client = wait_for("the sequencer's client", keyboards_client)
    wait_for("the monitor's connection", lambda: f"{client}:0" in clients().partition(
        '"Scenewright monitor"')[2].partition("Client")[0])
    return client


PAD_3 = {"number": 191, "red": 231, "green": 239, "blue": 247}  # places in a scene


def case_pad_changed_in_the_window_is_heard_and_seen(rig):
    """Made to send F#2 and red in the window, sent, and hit."""
    bank = played_bank(rig)
    check_equal(rig.run(CLI, "set", bank, "scene1.pad3.PadBehavior=Momentary")[0], 0, "set")
    keyboard = rig.plug(bank=bank.read_bytes(), kind=OrderedKeyboard)
    reader = Reader(rig)
    window = Window(rig, **reader.environment)
    window.key("ctrl+r")
    window.await_log("Read Scene Data Finish")
    pad = choose_control(window, reader, "Pad 3", 15)
    set_values(window, ("alt+c", "F#2"), ("alt+r", "127"), ("alt+g", "0"), ("alt+b", "0"))
    window.key("ctrl+Return")
    window.await_log("\nFinish\n")
    sent = keyboard.bank_file.read_bytes()
    check_equal({name: sent[place] for name, place in PAD_3.items()},
                {"number": 42, "red": 127, "green": 0, "blue": 0}, "what the keyboard holds")
    keyboard.await_port()
    window.key("ctrl+m")
    hearer = Hearer(rig, await_listening())
    lines = wait_for("the monitor", lambda: reader.find("What the keyboard sends"))
    window.do("mousemove", 0, 0)  # off the pad, which is lighter below it
    check_equal(shot(window, *upper_part(reader, pad), 1, 1), bytes((255, 0, 0)),
                "the colour of the pad on the picture")
    place = reader.rectangle(pad)
    dark = shot(window, *place)
    keyboard.order("press pad3 100", "played")
    wait_for("the pad to light up", lambda: shot(window, *place) != dark)
    keyboard.order("release pad3", "played")
    wait_for("the pad to go dark", lambda: shot(window, *place) == dark)
    await_equal("what is heard", hearer.heard, [on(9, 42, 100), off(9, 42)])
    texts = reader.texts(lines)
    for line in ("Note on F#2, ch 10, velocity 100", "Note off F#2, ch 10"):
        # Pad 7 has the same note from the start.
        check_equal(texts[texts.index(line) + 1], "Pad 3, Pad 7", f"the controls beside {line}")
    window.key("ctrl+q")
    check_equal(window.program.wait(PATIENCE), 0, "exit code")


TRIED = (
    "scene1.knob*.Enable=Off", "scene1.knob1.Enable=On", "scene1.slider*.Enable=Off",
    "scene1.slider2.Enable=On", "scene1.pad*.AssignType=Off", "scene1.pad1.AssignType=Note",
    "scene1.pad5.AssignType=CC", "scene1.key*.AssignType=Off",
    *(f"scene1.key{number}.AssignType=Note" for number in (1, 2, 3)),
)
# What the player does when a control is named, and what is said then.
TOUCHES = (
    (("turn knob1 64",), "Touch Slider 2. Knob 1: ✓ sent CC 20, ch 5, value 64."),
    (("turn slider2 127",), "Touch Pad 1. Slider 2: ✓ sent CC 21, ch 5, value 20."),
    (("press pad1 100", "release pad1"),
     "Touch Pad 5. Pad 1: ✓ sent Note on C4, ch 10, velocity 100."),
    (("turn knob1 9",), "Touch Key 1. Pad 5: ✗ sent CC 20, expected CC 64."),
    (("press key1 3", "release key1"), "Touch Key 2. Key 1: ✓ sent Note on C4, ch 5, velocity 77."),
)
REPORT = "Scene 1: 4 right, 1 wrong, 1 skipped, 34 passed over, 1 not tried"
ROWS = (
    ["Knob 1", "CC 20, ch 5", "✓ sent CC 20, ch 5, value 64"],
    ["Pad 5", "CC 64, ch 5", "✗ sent CC 20, expected CC 64"],
    ["Key 2", "note C#4, ch 5", "skipped"],
    ["Key 3", "note D4, ch 5", ""],
    ["Key 4", "", "sends nothing: it is off"],
)


def case_scene_is_tried_by_touch_in_the_window(rig):
    """Sent, then each control touched as it is named, one of them wrong, one skipped, the last not."""
    bank = distinct_bank(rig)
    check_equal(rig.run(CLI, "set", bank, *TRIED, stderr=subprocess.DEVNULL)[0], 0, "set")
    keyboard = rig.plug(bank=bank.read_bytes(), kind=OrderedKeyboard)
    reader = Reader(rig)
    window = Window(rig, **reader.environment)
    window.key("ctrl+r")
    window.await_log("Read Scene Data Finish")
    choose_control(window, reader, "Pad 1", 13)  # what comes while the read blocks it is dropped
    window.key("ctrl+Return")
    window.await_log("\nFinish\n")
    keyboard.await_port()
    for key in ("alt+d", "i"):  # Device > Try It
        window.key(key)
    told = wait_for("the first control to be named",
                    lambda: reader.find("Touch Knob 1. Choose scene 1 on the keyboard."))
    table = reader.find("What was tried")
    await_listening()

    def await_told(sentence):
        try:
            wait_for("", lambda: reader.reader.name(*told) == sentence, SAID_WITHIN)
        except AssertionError:
            check_equal(reader.reader.name(*told), sentence, "what is said")

    for orders, sentence in TOUCHES:
        for order in orders:
            keyboard.order(order, "played")
        await_told(sentence)
    window.key("space")  # on Skip, which has had the keyboard from the start
    await_told("Touch Key 3.")
    window.key("Escape")
    await_told(REPORT)
    texts = reader.texts(table)
    for row in ROWS:
        place = texts.index(row[0])
        check_equal(texts[place:place + len(row)], row, f"what the table has of {row[0]}")
    window.key("Escape")
    wait_for("the strip to go", lambda: not reader.reader.shows(*table))
    window.key("ctrl+q")
    check_equal(window.program.wait(PATIENCE), 0, "exit code")


def case_edited_scene_is_played_in_the_window(rig):
    """By the mouse and the computer's keys, before it is sent; other programs hear it."""
    held = some_bank(5)
    keyboard = rig.plug(bank=held)
    reader = Reader(rig)
    window = Window(rig, played_bank(rig), **reader.environment)
    pad = choose_control(window, reader, "Pad 1", 13)
    set_values(window, ("alt+c", "G2"))
    for key in ("alt+f", "p"):  # File > Play This Scene Here
        window.key(key)
    client = wait_for("the window's port", lambda: client_of(PLAYER))
    hearer = Hearer(rig, client)

    def await_said(scene):
        wait_for("who hears it", lambda: reader.find(
            f"Playing scene {scene} into aseqdump, through the port Scenewright ({client}:0)"))

    await_said(1)
    heard = []
    window.do("mousemove", *upper_part(reader, pad))
    note = 43
    for scene in (1, 2):
        for word, key, begin, end in (
                ("mouse", "1", on(9, note, 100), off(9, note)),
                ("key", "1", on(9, note, 100), off(9, note)),
                ("key", "a", on(3 + scene, 72, 77), off(3 + scene, 72))):
            for gesture, message in (("down", begin), ("up", end)):
                window.do(word + gesture, key)
                heard.append(message)
                await_equal(f"what {word} {key} plays in scene {scene}", hearer.heard, heard)
        window.key("ctrl+2")
        await_said(2)
        note = 42  # as the file has it
    window.do("keydown", "a")
    await_equal("a key that is held", hearer.heard, [*heard, on(5, 72, 77)])
    window.key("Escape")
    await_equal("its end", hearer.heard, [*heard, on(5, 72, 77), off(5, 72)])
    wait_for("the port to go", lambda: not client_of(PLAYER))
    window.do("keyup", "a")
    check_equal(keyboard.carried("ep2 out"), [], "packets to the keyboard")
    window.key("ctrl+q")
    check_equal(window.program.wait(PATIENCE), 0, "exit code")
    keyboard.check_port_is_back()
