#!/usr/bin/python3
"""What a screen reader gets of the running editor over the accessibility bus: names, roles, values of
its parts, and what the bus tells when a notice comes and when the status changes.

screen_reader_test.py PROGRAM
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "system"))
import sweep_editor  # noqa: E402

PATIENCE = 120  # seconds, for a machine that is busy
CHECKED, ENABLED, SELECTED = 4, 8, 23  # the bits of states, as the bus numbers them
ALERTS = sweep_editor.ALERTS
TOGGLE = 1  # an action of a control, behind that of pressing it
LABELLED_BY = 2  # a relation, as the bus numbers them
REGISTRY = "org.a11y.atspi.Registry"
SAME = "The controller holds what you see"


class Editor:
    """The editor on a display and a bus of its own; its parts by role and name."""

    def __init__(self, program, folder, *arguments):
        from gi.repository import GLib

        self.context = GLib.MainContext.default()
        self.display = sweep_editor.Display(folder / "display")
        self.reader = self.display.screen_reader
        self.reader.limit = PATIENCE * 1000  # the editor answers when a read has ended
        self.told = []
        self.listen()
        self.command = [program, *(arguments or ["--virtual"])]
        self.command += [f"--console={folder}/console", f"--log={folder}/log"]
        self.folder = folder
        self.start()

    def start(self):
        folder = self.folder
        self.process = subprocess.Popen(
            self.command,
            env={
                **os.environ,
                **self.display.variables,
                "HOME": str(folder),
                "XDG_CONFIG_HOME": str(folder),
                "XDG_STATE_HOME": str(folder),
                "LC_ALL": "C.UTF-8",
            },
        )

    def listen(self):
        """Events are sent to those alone who asked for them."""
        for event in ("object:property-change", "object:state-changed"):
            self.reader.call(
                self.reader.bus,
                REGISTRY,
                "/org/a11y/atspi/registry",
                f"{REGISTRY}.RegisterEvent",
                self.reader.text(event),
            )
        self.reader.bus.signal_subscribe(
            None, "org.a11y.atspi.Event.Object", None, None, None, 0, self.note
        )

    def note(self, _bus, name, path, _interface, signal, words):
        self.told.append((name, path, signal, words.unpack()[0]))

    def wait(self, what, condition):
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            while self.context.iteration(False):
                pass
            if found := condition():
                return found
            time.sleep(0.05)
        raise AssertionError(f"{what}: has not come")

    def parts(self, name, path):
        for part in self.reader.children(name, path):
            yield part
            yield from self.parts(*part)

    def window(self):
        for application in self.reader.children(REGISTRY, self.reader.ROOT):
            for window in self.reader.children(*application):
                return window
        return None

    def find(self, role, name):
        for part in self.parts(*self.window()):
            if self.reader.role(*part) == role and self.reader.name(*part) == name:
                return part
        return None

    def labelled(self, role, label):
        for part in self.parts(*self.window()):
            if self.reader.role(*part) == role and self.reader.shows(*part):
                if label in [self.reader.name(*at) for at in self.labels(part)]:
                    return part
        return None

    def labels(self, part):
        member = f"{self.reader.ACCESSIBLE}.GetRelationSet"
        relations = self.reader.call(self.reader.bus, *part, member)[0]
        return [at for kind, targets in relations if kind == LABELLED_BY for at in targets]

    def state(self, part, bit):
        states = self.reader.call(self.reader.bus, *part, f"{self.reader.ACCESSIBLE}.GetState")[0]
        return bool(states[0] >> bit & 1)

    def act(self, part, action=0):
        """One of the things that can be done with it, by its place; the first is what it is for."""
        from gi.repository import GLib

        words = GLib.Variant("(i)", (action,))
        self.reader.call(self.reader.bus, *part, "org.a11y.atspi.Action.DoAction", words)

    def has_told(self, part, signal, detail):
        return (*part, signal, detail) in self.told

    def press(self, role, name):
        self.act(self.wait(name, lambda: self.find(role, name)))

    def choose(self, label, value):
        """An entry of a popup, in its opened list."""
        box = self.wait(label, lambda: self.labelled("combo box", label))
        self.act(box)

        def entry():
            for entries in self.reader.children(*box):
                for part in self.reader.children(*entries):
                    if self.reader.name(*part) == value:
                        return part
            return None

        self.act(self.wait(value, entry))
        self.wait(f"{label} {value}", lambda: self.reader.name(*box) == value)

    def close(self):
        self.process.terminate()
        self.process.wait(PATIENCE)
        self.display.close()


class ScreenReader(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.editor = Editor(PROGRAM, pathlib.Path(cls.folder.name))
        cls.editor.wait("the window", cls.editor.window)
        cls.editor.wait("the status", lambda: cls.editor.find("label", "Ready"))

    @classmethod
    def tearDownClass(cls):
        cls.editor.close()
        cls.folder.cleanup()

    def test_scenes_are_radio_buttons_of_which_one_is_chosen(self):
        scenes = [
            self.editor.find("radio button", f"Scene {number}, SCENE{number}")
            for number in (1, 2, 3, 4)
        ]
        self.assertNotIn(None, scenes)
        self.editor.act(scenes[2])
        self.editor.wait("the third scene", lambda: self.editor.state(scenes[2], CHECKED))
        self.assertEqual(sum(self.editor.state(scene, CHECKED) for scene in scenes), 1)
        self.editor.act(scenes[0])

    def test_controls_of_the_picture_stand_in_their_order(self):
        for part in self.editor.parts(*self.editor.window()):
            if self.editor.reader.name(*part) == "Picture of the keyboard":
                names = [
                    self.editor.reader.name(*control)
                    for control in self.editor.reader.children(*part)
                ]
        kinds = (("Group", 4), ("Knob", 4), ("Slider", 4), ("Pad", 8), ("Key", 25))
        wanted = [f"{kind} {number + 1}" for kind, count in kinds for number in range(count)]
        self.assertEqual(names, wanted)

    def test_a_chosen_control_shows_its_settings_by_name_and_value(self):
        self.editor.act(self.editor.find("push button", "Pad 2") or self.fail("no Pad 2"))
        box = self.editor.wait("the pane", lambda: self.editor.labelled("combo box", "Red"))
        self.assertRegex(self.editor.reader.name(*box), r"^\d+$")  # a box is called by its value

    def test_the_status_is_told_when_it_changes(self):
        status = self.editor.find("label", "Ready") or self.editor.find(
            "label", "Read Scene Data Finish"
        )
        self.assertTrue(self.editor.find("label", "Virtual controller"))
        self.editor.told.clear()
        self.editor.act(self.editor.find("push button", "Read scenes"))
        self.editor.wait(
            "the status",
            lambda: self.editor.has_told(status, "PropertyChange", "accessible-name"),
        )
        self.editor.wait(
            "the end", lambda: self.editor.reader.name(*status) == "Read Scene Data Finish"
        )

    def test_a_notice_is_an_alert_that_comes_and_goes(self):
        self.editor.told.clear()
        compare = self.editor.find("menu item", "Compare With Device")
        self.editor.act(compare)
        alert = self.editor.wait(
            "the alert",
            lambda: next(filter(None, (self.editor.find(a, SAME) for a in ALERTS)), None),
        )
        self.editor.wait("its coming", lambda: self.editor.has_told(alert, "StateChanged", "showing"))
        self.editor.act(self.editor.find("push button", "Dismiss the notice"))
        self.editor.wait("its going", lambda: not self.editor.reader.shows(*alert))


class ScreenReaderAlone(unittest.TestCase):
    """What a player does who has neither mouse nor keys, but the bus."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        folder = pathlib.Path(self.folder.name)
        self.bank = folder / "controller.bank"
        self.editor = Editor(PROGRAM, folder, f"--virtual={self.bank}")
        self.await_window()

    def tearDown(self):
        self.editor.close()
        self.folder.cleanup()

    def await_window(self):
        self.editor.wait("the window", self.editor.window)
        self.editor.wait("the status", lambda: self.editor.find("label", "Ready"))

    def choose_red(self, pad, value):
        self.editor.press("push button", f"Pad {pad}")
        self.editor.choose("Red", str(value))

    def read(self):
        self.editor.press("push button", "Read scenes")
        self.editor.wait("the end", lambda: self.editor.find("label", "Read Scene Data Finish"))

    def send(self):
        """What the keyboard holds afterwards."""
        self.bank.unlink(missing_ok=True)
        self.editor.press("push button", "Send scenes")
        self.editor.wait("the send", lambda: self.bank.exists() and self.bank.stat().st_size)
        self.editor.wait(
            "the button", lambda: self.editor.state(self.editor.find("push button", "Send scenes"), ENABLED)
        )
        return self.bank.read_bytes()

    def test_several_controls_are_chosen_told_and_changed_at_once(self):
        self.read()
        before = self.send()
        self.editor.press("push button", "Pad 1")
        pad = self.editor.wait("Pad 3", lambda: self.editor.find("push button", "Pad 3"))
        self.editor.wait("Pad 1", lambda: self.editor.labelled("combo box", "Red"))
        self.editor.told.clear()
        self.editor.act(pad, TOGGLE)
        title = self.editor.wait(
            "the title", lambda: self.editor.find("label", "Pad 3 and 1 more pad")
        )
        self.assertTrue(self.editor.has_told(title, "PropertyChange", "accessible-name"))
        self.assertTrue(self.editor.has_told(pad, "StateChanged", "selected"))
        self.assertTrue(self.editor.state(pad, SELECTED))
        self.editor.choose("Red", "77")
        self.assertTrue(self.editor.find("menu item", "Undo 2 Pads Red"))
        sent = self.send()
        changed = [place for place, byte in enumerate(sent) if byte != before[place]]
        self.assertEqual([place - changed[0] for place in changed], [0, 2])
        self.assertEqual([sent[place] for place in changed], [77, 77])

    def test_a_whole_evening_loses_nothing(self):
        self.read()
        for pad, value in ((1, 11), (2, 22), (3, 33)):
            self.choose_red(pad, value)
        self.editor.press("menu item", "Undo Pad 3 Red")
        sent = self.send()
        place = sent.index(bytes((11, 22)))
        self.assertNotEqual(sent[place + 2], 33)
        self.choose_red(3, 44)
        try:
            self.editor.press("menu item", "Quit")
        except self.editor.reader.error:
            pass  # it ends before it answers
        self.assertEqual(self.editor.process.wait(PATIENCE), 0)

        self.editor.start()
        self.await_window()
        self.editor.press("push button", "Bring Back")
        wanted = sent[: place + 2] + bytes((44,)) + sent[place + 3 :]
        self.assertEqual(self.send(), wanted)


PROGRAM = sys.argv.pop(1)
unittest.main()
