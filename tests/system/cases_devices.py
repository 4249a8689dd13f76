"""The command that tells a user what is plugged in, and how to add it to the list; and the page that
leads a user through it."""

import json
import os
import re
import subprocess
import sys
from pathlib import Path

from cases_trouble import NOBODY, check_untouched, give_seat, grants_seat, install_for_everybody
from rig import CLI, check_equal, some_bank

ROOT = Path(__file__).resolve().parents[2]
sys.path.append(str(ROOT / "tests/docs"))

import check_commands  # noqa: E402  # from tests/docs
from documents import Document  # noqa: E402  # from tests/docs


def listed(rig, program=CLI, **options):
    """What `devices --json` says, by product id."""
    answer = rig.file("devices.json")
    with answer.open("w") as sink:
        check_equal(rig.run(program, "devices", "--json", stdout=sink, **options), (0, ""),
                    "devices")
    return {device["productId"]: device for device in json.loads(answer.read_text())}


def case_devices_are_told_with_where_they_are(rig):
    ours = rig.plug(port=0)
    other = rig.plug("--identity", "1209:0002", port=1)
    devices = listed(rig)
    check_equal(sorted(devices), [1, 2], "product ids")
    for keyboard, product in ((ours, 1), (other, 2)):
        place = f"{devices[product]['bus']:03}/{devices[product]['address']:03}"
        check_equal(place, "/".join(keyboard.node.parts[-2:]), "bus and address")
        assert devices[product]["name"] and devices[product]["canOpen"], devices[product]
        check_untouched(keyboard)
    check_equal([devices[1]["listed"], devices[2]["listed"]], [True, False], "listed")


def case_device_without_permission_is_told_as_such(rig):
    rig.plug()
    device = listed(rig, install_for_everybody(rig), **NOBODY)[1]
    assert not device["canOpen"] and "You have no permission" in device["cause"], device
    assert device["name"], device


def case_device_that_was_added_to_the_list_is_read(rig):
    rig.plug("--identity", "1209:0002", bank=some_bank(1))
    environment = {**os.environ, "XDG_CONFIG_HOME": str(rig.folder)}
    check_equal(rig.run(CLI, "devices", "--add", listed(rig)[2]["port"], env=environment), (0, ""),
                "devices --add")
    out = rig.file("out.bank")
    check_equal(rig.run(CLI, "read", out, env=environment), (0, ""), "read")
    assert out.read_bytes() == some_bank(1), "what was read is not the controller's bank"


def case_two_keyboards_in_one_evening(rig):
    """Read from one, send to the other; the port tells them apart, as all else is alike."""
    first, second = (rig.plug(port=port, bank=some_bank(port + 1)) for port in (0, 1))
    out = rig.file("first.bank")
    one, other = (
        f"{each.name} (Virtual Controller, serial number 0001)" for each in (first, second)
    )
    told = f"2 keyboards are plugged in, and {one} is used; --device chooses another one: {other}"
    check_equal(rig.run(CLI, "read", out), (0, f"scenewright-cli: {told}\n"), "read without --device")
    check_untouched(second)
    check_equal(rig.run(CLI, "--device", first.name, "read", out), (0, ""), "read")
    assert out.read_bytes() == some_bank(1), "what was read is not the first keyboard's bank"
    read = first.carried("ep1 in")
    check_equal(rig.run(CLI, "--device", second.name, "send", "--verify", out), (0, ""), "send")
    assert second.bank_file.read_bytes() == some_bank(1), "the second keyboard holds another bank"
    check_equal(first.carried("ep1 in"), read, "what came from the first keyboard")
    answer = rig.file("earlier.json")
    with answer.open("w") as sink:
        check_equal(rig.run(CLI, "earlier", "list", "--json", stdout=sink), (0, ""), "earlier")
    assert f"({second.name})" in answer.read_text(), "what was replaced does not tell from where"
    first.unplug()
    check_equal(rig.run(CLI, "--device", first.name, "read", out),
                (1, f"scenewright-cli: There is no keyboard {first.name}; plugged in: {other}\n"),
                "a read from the one that is unplugged")


class Reader:
    """A user with an installed Scenewright and without permission, who does what a page says."""

    def __init__(self, rig):
        self.programs = Path(install_for_everybody(rig)).parent
        self.home = rig.file("home")
        self.home.mkdir(mode=0o777)
        self.home.chmod(0o777)
        # What the page calls the folders of the installed program and of its reader.
        self.places = {"/usr/share": str(rig.file("share")), "/home/you": str(self.home)}

    def printed_by(self, command):
        for on_page, here in self.places.items():
            command = command.replace(on_page, here)
        path = f"{self.programs}:/usr/bin:/bin"
        done = subprocess.run(
            ["bash", "-c", command], cwd=self.home, stdin=subprocess.DEVNULL, text=True,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
            env={"PATH": path, "HOME": str(self.home), "LC_ALL": "C.UTF-8"}, **NOBODY)
        told = done.stdout
        for on_page, here in self.places.items():
            told = told.replace(here, on_page)
        # Which bus and address it has depends on what was plugged in before.
        return re.sub(r"^Bus \d+ Device \d+", "Bus 001 Device 002", told, flags=re.MULTILINE)

    def follow(self, block):
        for command, wanted in check_commands.steps(block.lines):
            told = self.printed_by(command)
            assert check_commands.matches(told.splitlines(), wanted), f"{command} prints\n{told}"


def case_page_about_a_keyboard_of_ones_own_can_be_followed(rig):
    bank = rig.file("default.bank")
    check_equal(rig.run(CLI, "default", bank), (0, ""), "default")
    keyboard = rig.plug("--identity", "1209:0002", bank=bank.read_bytes())
    reader = Reader(rig)
    followed = 0
    for block in Document(ROOT, "docs/your-keyboard.md").blocks:
        if block.remark == "not run: it changes the system":
            assert grants_seat(reader.printed_by("scenewright-cli udev-rules"), keyboard)
            give_seat(keyboard.node, NOBODY["user"])
        elif block.remark not in ("not run: it needs a keyboard that does not answer",
                                  "not run: it needs two keyboards on the bus"):
            reader.follow(block)
            followed += 1
    assert followed > 5, f"{followed} sessions were followed"
    check_equal(keyboard.bank_file.read_bytes()[149 + 4], 75, "the controller that knob 1 sends")
