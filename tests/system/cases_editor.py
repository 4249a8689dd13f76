"""The editor itself over the real stack, with the keys and the mouse of a display in memory."""

import os
import subprocess
import time
from pathlib import Path

from cases_trouble import check_untouched
from rig import BIN, PATIENCE, TRANSACTIONS, check_equal, some_bank, wait_for

EDITOR = BIN / "scenewright"
DISPLAY = ":7"
FIRST_PAD = 13  # its control index
FIRST_PAD_AT = (790, 160)  # on the picture, in a window of the default size
FIRST_PAD_TYPE = 181  # its place in the first scene
SCENE = 253  # bytes of a scene in a bank
LOOKS = 4  # seconds, in which the editor looks several times
CONTROLLER, NOTE = 1, 2  # positions in the list of types


class Window:
    """The editor on a display, which one case has for all its editors."""

    def __init__(self, rig, *arguments, program=EDITOR, account=None, **variables):
        # Ends at once when there is one. Without the repetition of keys: the two halves of one may come
        # so far apart under emulation that they are a release and a press.
        rig.start("Xvfb", DISPLAY, "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-r",
                  stderr=subprocess.DEVNULL)
        wait_for("the display", Path(f"/tmp/.X11-unix/X{DISPLAY[1:]}").exists)
        self.environment = {**os.environ, "DISPLAY": DISPLAY, "HOME": str(rig.folder),
                            **variables}
        self.log_file = rig.file("editor.log")
        self.seen = 0
        self.program = rig.start(program, "--log", self.log_file, "--console",
                                 rig.file("editor.console"), *arguments, env=self.environment,
                                 **(account or {}))
        window = wait_for("the window", self._find)
        self.do("windowmove", window, "0", "0", "windowfocus", "--sync", window)

    def _find(self):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Scenewright"],
                               env=self.environment, capture_output=True, text=True, check=False)
        return found.stdout.strip()

    def do(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.environment, check=True)

    def key(self, keys):
        self.do("key", keys)

    def click(self, place):
        self.do("mousemove", *place, "click", "1")

    def click_until(self, place, part):
        def clicked():
            self.click(place)
            return part in self.log()
        wait_for(f"{part!r} in the log", clicked)

    def await_log(self, part):
        wait_for(f"{part!r} in the log", lambda: part in self.log())

    def await_input(self):
        """What comes while a read blocks the window is dropped, so until a click is taken."""
        self.click_until(FIRST_PAD_AT, f"点击了按钮：{FIRST_PAD}\n")

    def forget_log(self):
        """What is in the log by now is not waited for again."""
        self.seen = len(self.log_file.read_bytes())

    def log(self):
        return self.log_file.read_bytes()[self.seen:].decode()


def check_sees(rig, watch, presence):
    begin = time.monotonic()
    wait_for(f"the presence {presence!r}", lambda: watch.readline().strip() == presence)
    rig.check_prompt(f"{presence!r} on the status line", begin)


def case_plug_and_unplug_are_told_and_nothing_is_disturbed(rig):
    watch = rig.start(TRANSACTIONS, "--watch", stdout=subprocess.PIPE).stdout
    check_sees(rig, watch, "unplugged")
    window = Window(rig)
    keyboard = rig.plug(awaits_port=False)
    check_sees(rig, watch, "usable")
    keyboard.await_port()
    end = time.monotonic() + LOOKS
    while time.monotonic() < end:
        check_untouched(keyboard)
        time.sleep(0.05)
    keyboard.unplug()
    check_sees(rig, watch, "unplugged")
    check_equal(keyboard.carried("ep1 in") + keyboard.carried("ep2 out"), [], "transfers")
    window.key("ctrl+q")
    check_equal(window.program.wait(PATIENCE), 0, "exit code")


def case_editor_reads_changes_a_pad_and_sends(rig):
    bank = bytearray(some_bank(6))
    bank[FIRST_PAD_TYPE] = NOTE
    keyboard = rig.plug(bank=bytes(bank))
    window = Window(rig)
    window.key("ctrl+r")
    window.await_log("Read Scene Data Finish")
    window.await_input()
    window.key("alt+t")  # the popup of the type
    window.key("Up")
    window.key("ctrl+Return")
    window.await_log("\nFinish\n")
    bank[FIRST_PAD_TYPE] = CONTROLLER
    assert keyboard.bank_file.read_bytes() == bytes(bank), "the controller holds another bank"
    window.key("ctrl+q")
    check_equal(window.program.wait(PATIENCE), 0, "exit code")
    keyboard.check_port_is_back()


def case_editor_swaps_two_scenes_and_sends(rig):
    bank = bytearray(some_bank(7))
    keyboard = rig.plug(bank=bytes(bank))
    window = Window(rig)
    window.key("ctrl+r")
    window.await_log("Read Scene Data Finish")
    window.await_input()
    for keys in ("ctrl+2", "alt+s", "w", "4"):  # of the menu Scene, Swap With, the last scene
        window.key(keys)
    window.key("ctrl+Return")
    window.await_log("\nFinish\n")
    second, fourth = (slice(scene * SCENE, (scene + 1) * SCENE) for scene in (1, 3))
    bank[second], bank[fourth] = bank[fourth], bank[second]
    assert keyboard.bank_file.read_bytes() == bytes(bank), "the controller holds another bank"
    window.key("ctrl+q")
    check_equal(window.program.wait(PATIENCE), 0, "exit code")
    keyboard.check_port_is_back()
