"""Keyboards that misbehave, are not what is looked for, or may not be used."""

import os
import re
import shutil
import struct
from pathlib import Path

from rig import BIN, CLI, DEVICES, check_equal, some_bank

NOBODY = {"user": 65534, "group": 65534, "extra_groups": []}
NOT_CONNECTED = "The keyboard could not be reached"


def check_untouched(keyboard):
    check_equal(keyboard.carried("ep1 in") + keyboard.carried("ep2 out"), [], "transfers")
    keyboard.check_port_is_back()


def case_wrong_handshakes_then_a_right_one(rig):
    keyboard = rig.plug("--fault", "handshake:3", bank=some_bank(1))
    rig.check_read(some_bank(1))
    check_equal(keyboard.carried("ep2 out").count("09 9c 01 02"), 4, "handshake requests")
    keyboard.check_port_is_back()


def check_unplugged_in_a_read(rig, byte):
    keyboard = rig.plug("--fault", f"unplug:{byte}", bank=some_bank(2))
    rig.check_read_fails("unplugged", f"byte {byte} of 1012")
    keyboard.plug_again()
    rig.check_read(some_bank(2))
    keyboard.check_port_is_back()


def case_unplugged_at_byte_0_of_a_read(rig):
    check_unplugged_in_a_read(rig, 0)


def case_unplugged_at_byte_500_of_a_read(rig):
    check_unplugged_in_a_read(rig, 500)


def case_unplugged_at_byte_1011_of_a_read(rig):
    check_unplugged_in_a_read(rig, 1011)


def case_unplugged_in_a_send(rig):
    keyboard = rig.plug("--fault", f"unplug:{1012 + 700}")  # the read before the send has 1012 bytes
    source = rig.file("source.bank")
    source.write_bytes(some_bank(3))
    code, errors = rig.run(CLI, "send", source)
    check_equal(code, 1, "exit code")
    assert "unplugged" in errors and "half a bank" in errors, errors
    keyboard.plug_again()
    check_equal(rig.run(CLI, "send", source), (0, ""), "send after plugging in again")
    assert keyboard.bank_file.read_bytes() == some_bank(3), "the controller holds another bank"


def case_keyboard_that_does_not_answer_is_told_as_such(rig):
    keyboard = rig.plug("--fault", "silent:0")
    program = rig.start(CLI, "read", rig.file("none.bank"))
    assert "does not answer" in program.stderr.readline()
    rig.check_ends_by(program, "SIGTERM")
    keyboard.check_port_is_back()


def case_stalled_pipe(rig):
    keyboard = rig.plug("--fault", "stall:100", bank=some_bank(4))
    rig.check_read_fails("byte 100 of 1012", "the keyboard refused it")
    keyboard.check_port_is_back()


def case_short_transfer(rig):
    keyboard = rig.plug("--fault", "short:10")
    rig.check_read_fails("byte 10 of 1012", "too short")
    keyboard.check_port_is_back()


def case_device_of_one_interface(rig):
    rig.plug("--interfaces", "1", awaits_port=False)
    rig.check_read_fails(NOT_CONNECTED, "second USB interface")


def case_device_that_is_not_listed(rig):
    keyboard = rig.plug("--identity", "1209:0002")
    rig.check_read_fails(NOT_CONNECTED, "No keyboard of the device list is plugged in")
    check_untouched(keyboard)


def case_no_device(rig):
    rig.check_read_fails(NOT_CONNECTED, "No keyboard of the device list is plugged in")


def case_interface_held_by_another_process(rig):
    keyboard = rig.plug("--fault", "silent:0")
    holder = rig.start(CLI, "read", rig.file("never.bank"))
    keyboard.await_transfers("ep2 out", 2)
    rig.check_read_fails(NOT_CONNECTED, "Another program is using the keyboard")
    rig.check_ends_by(holder, "SIGTERM")
    keyboard.check_port_is_back()


def install_for_everybody(rig):
    """A copy of the program where every user can run it, whoever may enter the build folder."""
    rig.folder.chmod(0o777)
    shutil.copytree(BIN.parent / "share", rig.file("share"))
    rig.file("bin").mkdir()
    return shutil.copy2(CLI, rig.file("bin"))


def case_user_without_permission(rig):
    keyboard = rig.plug()
    program = install_for_everybody(rig)
    out = rig.file("none.bank")
    code, errors = rig.run(program, "read", out, **NOBODY)
    check_equal(code, 1, "exit code")
    assert NOT_CONNECTED in errors and "You have no permission" in errors, errors
    assert "udev-rules" in errors and not out.exists(), errors
    check_untouched(keyboard)


def grants_seat(rules, keyboard):
    """Whether a rule gives the device to the user at the seat."""
    ids = {key: (DEVICES / keyboard.name / key).read_text().strip()
           for key in ("idVendor", "idProduct")}
    for rule in rules.splitlines():
        wanted = dict(re.findall(r'ATTR\{(\w+)\}=="(\w+)"', rule))
        if wanted == ids and 'TAG+="uaccess"' in rule:
            return True
    return False


def give_seat(node, user):
    """Gives the user access to the node by an access list, as `uaccess` has logind do."""
    undefined = 0xFFFFFFFF
    entries = [(0x01, 6, undefined), (0x02, 6, user), (0x04, 4, undefined), (0x10, 6, undefined),
               (0x20, 4, undefined)]
    data = struct.pack("<I", 2) + b"".join(struct.pack("<HHI", *entry) for entry in entries)
    os.setxattr(node, "system.posix_acl_access", data)


def case_same_user_with_the_permission_of_the_rule(rig):
    keyboard = rig.plug(bank=some_bank(7))
    program = install_for_everybody(rig)
    rules = rig.file("rules")
    with rules.open("w") as sink:
        check_equal(rig.run(program, "udev-rules", stdout=sink, **NOBODY), (0, ""), "udev-rules")
    assert grants_seat(rules.read_text(), keyboard), rules.read_text()
    give_seat(keyboard.node, NOBODY["user"])
    out = rig.file("out.bank")
    check_equal(rig.run(program, "read", out, **NOBODY), (0, ""), "read")
    assert Path(out).read_bytes() == some_bank(7), "what was read is not the controller's bank"
    keyboard.check_port_is_back()
