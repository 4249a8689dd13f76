"""The command that tells a user what is plugged in, and how to add it to the list."""

import json
import os

from cases_trouble import NOBODY, check_untouched, install_for_everybody
from rig import BIN, CLI, check_equal, some_bank


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
    lines = listed(rig)[2]["linesToAdd"]
    given = (BIN.parent / "share" / "scenewright" / "project.plist").read_text()
    own = rig.file("scenewright")
    own.mkdir()
    (own / "project.plist").write_text(given.replace("</array>", lines + "</array>"))
    out = rig.file("out.bank")
    environment = {**os.environ, "XDG_CONFIG_HOME": str(rig.folder)}
    check_equal(rig.run(CLI, "read", out, env=environment), (0, ""), "read")
    assert out.read_bytes() == some_bank(1), "what was read is not the controller's bank"
