"""What the programs may leave in their user's state folder, where a send writes beside its work."""

import json
import re
from dataclasses import dataclass

TOP = "home/.local"
FOLDER = f"{TOP}/state/scenewright"
ENTRY = re.compile(rf"{FOLDER}/sends/send-(\d+)-\d+\.json")
EARLIER = re.compile(rf"{FOLDER}/backups/scenes-\d{{8}}T\d{{6}}\.\d{{3}}Z\.json")
BANK = 1012  # bytes
SCENES = [str(count) for count in range(5)]  # that may have been sent
EDITED = b"scenewright edited scenes 1\n"
NOTHING = "nothing was sent"
HALF = "may hold half a bank"


@dataclass
class Sent:
    """The banks that the entry of a send names: before, where the program has read that."""

    sent: bytes
    before: bytes = b""


def without_times(contents):
    """New earlier scenes are called by the time: here by their order, after those that were there."""
    new = [name for name in sorted(contents) if EARLIER.fullmatch(name)]
    names = {name: f"{FOLDER}/backups/scenes-later-{number}" for number, name in enumerate(new)}
    return {names.get(name, name): what for name, what in contents.items()}


def parted(contents):
    """The entries of sends, whose names are never the same, and everything else."""
    entries = {name: what for name, what in contents.items() if ENTRY.fullmatch(name)}
    return entries, {name: what for name, what in contents.items() if name not in entries}


def lasting(contents):
    """What of a whole run may stay though a run fails: folders and earlier scenes."""
    return {name: what for name, what in contents.items() if f"{name}/".startswith(f"{TOP}/")}


def entry_faults(entries, sends, said=()):
    """What is wrong with the entries that a send has left that did not end: one at most, a whole
    one, and none where the program says that nothing was sent."""
    found = [f"leaves {len(entries)} sends not ended"] if len(entries) > (sends is not None) else []
    if entries and any(NOTHING in line for line in said):
        found.append("notes a send that was none")
    if not entries and any(HALF in line for line in said):
        found.append("forgets a send that did not end")
    return found + [
        f"leaves {name} not whole"
        for name, what in entries.items()
        if not is_whole_entry(name, what, sends)
    ]


def is_whole_entry(name, what, sends):
    entry = told_in(what) if what[:2] == ("file", 0o600) else {}
    wanted = {"format": "scenewright-send", "version": 1, "begun": ENTRY.fullmatch(name)[1]}
    if sends:
        wanted["sent"] = sends.sent.hex()
        if sends.before:
            wanted["before"] = sends.before.hex()
    texts = {"subject", "keyboard", "scenes"}
    return (
        entry.keys() == wanted.keys() | texts
        and entry["scenes"] in SCENES
        and all(entry[key] == value for key, value in wanted.items())
        and all(isinstance(entry[key], str) for key in texts)
    )


def told_in(what):
    try:
        told = json.loads(what[2])
    except ValueError:
        return {}
    return told if isinstance(told, dict) else {}


def is_whole_image(what):
    told = told_in(what)
    digits = str(told.get("image"))
    return told.get("format") == "scenewright-earlier" and bool(
        re.fullmatch(f"[0-9a-f]{{{2 * BANK}}}", digits)
    )


def is_whole_edit(what):
    rest = what[2].removeprefix(EDITED)[BANK:]
    return what[2].startswith(EDITED) and rest.count(b"\0") == 2 and rest.endswith(b"\0")


# Below the folder, and whether what lies there is as it must be.
KINDS = (
    (r"", lambda what: what == ("folder", 0o755)),
    (r"/(sends|backups|unsent)", lambda what: what == ("folder", 0o755)),
    (r"/backups/scenes-later-\d+", is_whole_image),
    (r"/backups/scenes-.*Z\.bank", lambda what: len(what[2]) == BANK),
    (r"/unsent/\d+\.lock", lambda what: what[2] == b""),
    (r"/unsent/\d+\.scenes", is_whole_edit),
    (r"/(.*/)?\.scenewright-\d+-\d+", lambda what: what[0] == "file"),  # of a killed program
)


def faults(contents):
    """What is wrong in the folder, the entries of sends apart."""

    def is_right(name, what):
        return any(
            re.fullmatch(FOLDER + pattern, name) and is_so(what) for pattern, is_so in KINDS
        )

    return [
        f"leaves {name} not whole"
        for name, what in parted(contents)[1].items()
        if name.startswith(FOLDER) and not is_right(name, what)
    ]
