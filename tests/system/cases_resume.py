"""Sends that do not end, because the program is killed or the keyboard pulled out, at places up to
the last packet: what is asked for afterwards leaves one of the two banks, whole."""

from cases_editor import Window
from rig import CLI, PATIENCE, check_equal, some_bank

READ_PACKETS = 2 + 1 + 1012 + 1  # of the read before a send
SEND_PACKETS = 2 + 2 + 1024
BANK, SCENE = 1012, 253
HELD = some_bank(1)
SENT = some_bank(2)
WAYS = (("resume", SENT), ("resume", "--before", HELD))


def places(count, last):
    """So many numbers up to `last`, which is among them."""
    return [last * step // count for step in range(1, count + 1)]


def make_good(rig, keyboard, place, scenes=""):
    """Asks for the one bank or the other; a look tells first whether that is needed. The controller's
    file is written at the end of a send, what it holds before that is told by a read alone."""
    look = rig.file("look.bank")
    code, errors = rig.run(CLI, "read", look)
    mixed = look.read_bytes() not in (HELD, SENT)
    check_equal((code, f"did not end: {scenes}" in errors), (0, mixed),
                f"read after place {place}: {errors}")
    *words, bank = WAYS[place % 2]
    check_equal(rig.run(CLI, *words), (0, ""), f"{words} after place {place}")
    # A keyboard that was found whole needs nothing.
    if mixed:
        assert keyboard.bank_file.read_bytes() == bank, f"another bank after place {place}"
    keyboard.check_port_is_back()
    return mixed


def start_send(rig):
    source = rig.file("source.bank")
    source.write_bytes(SENT)
    return rig.start(CLI, "send", source)


def check_killed(rig, at):
    mixed = 0
    for place in at:
        keyboard = rig.plug(bank=HELD)
        program = start_send(rig)
        keyboard.await_transfers("ep2 out", READ_PACKETS + place)
        program.kill()
        program.wait()
        mixed += make_good(rig, keyboard, place)
        keyboard.unplug()
    rig.notes.append(f"{len(at)} kills, {mixed} of which left a part of each bank")
    assert mixed, "no kill left a part of each bank"


def check_unplugged(rig, at):
    mixed = 0
    for place in at:
        keyboard = rig.plug("--fault", f"unplug:{BANK + place}", bank=HELD)
        code, errors = start_and_wait(rig)
        check_equal((code, "unplugged" in errors), (1, True), f"send at place {place}: {errors}")
        keyboard.plug_again()
        # The bus has taken the byte at which the keyboard leaves.
        mixed += make_good(rig, keyboard, place, f"{(place + 1) // SCENE} of 4 scenes were sent")
        keyboard.unplug()
    rig.notes.append(f"{len(at)} pulls, {mixed} of which left a part of each bank")
    assert mixed, "no pull left a part of each bank"


def start_and_wait(rig):
    program = start_send(rig)
    _, errors = program.communicate()
    return program.returncode, errors


def case_killed_amid_a_send(rig):
    check_killed(rig, [SEND_PACKETS * 2 // 3])


def case_unplugged_amid_a_send(rig):
    check_unplugged(rig, [BANK * 2 // 3])


def case_killed_at_20_places_of_a_send(rig):
    check_killed(rig, places(20, SEND_PACKETS - 1))


def case_unplugged_at_20_places_of_a_send(rig):
    check_unplugged(rig, places(20, BANK - 1))


def case_editor_makes_a_killed_send_good(rig):
    """By the notice of the next start: its first button sends again, its second brings back."""
    source = rig.file("source.bank")
    source.write_bytes(SENT)
    for place, keys, bank in ((400, ["F6", "space"], SENT), (700, ["F6", "Tab", "space"], HELD)):
        keyboard = rig.plug(bank=HELD)
        window = Window(rig, source)
        window.key("ctrl+Return")
        keyboard.await_transfers("ep2 out", READ_PACKETS + place)
        window.program.kill()
        window.program.wait()
        window = Window(rig)
        for key in keys:
            window.key(key)
        window.await_log("\nFinish\n")
        assert keyboard.bank_file.read_bytes() == bank, f"another bank after {keys}"
        window.key("ctrl+q")
        check_equal(window.program.wait(PATIENCE), 0, "exit code")
        check_equal(list(rig.file("state").glob("scenewright/sends/*")), [], "sends not ended")
        keyboard.check_port_is_back()
        keyboard.unplug()
