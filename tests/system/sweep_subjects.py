"""The commands that are swept, and the files that they work on."""

import subprocess

from sweep_judge import Subject

VIRTUAL = "--virtual=held.bank"
ORDERS = "press pad3 100\nrelease pad3\nslide knob1 0 3 30ms\nscene 2\npress pad1 1\n"

SUBJECTS = [
    Subject("read", [VIRTUAL, "read", "out.bank"]),
    Subject("read-over", [VIRTUAL, "read", "a.json"]),
    Subject("read-out", [VIRTUAL, "read", "-"]),
    # What the controller has taken cannot be taken back when something fails afterwards.
    Subject(
        "send",
        [VIRTUAL, "send", "a.bank", "--no-backup"],
        may_stay=("held.bank",),
        sends="a.bank",
    ),
    Subject(
        "send-json",
        ["--virtual=held.json", "send", "b.bank", "--no-backup"],
        may_stay=("held.json",),
        sends="b.bank",
    ),
    Subject(
        "send-verify",
        [VIRTUAL, "send", "a.bank", "--no-backup", "--verify"],
        may_stay=("held.bank",),
        sends="a.bank",
    ),
    Subject(
        "send-backup",
        [VIRTUAL, "send", "a.bank", "--backup", "before.bank"],
        may_stay=("before.bank", "held.bank"),
        sends="a.bank",
    ),
    # What it finds there is no default bank, and is kept.
    Subject(
        "send-kept",
        ["--virtual=b.bank", "send", "a.bank"],
        may_stay=("b.bank",),
        sends="a.bank",
    ),
    Subject("send-dry-run", [VIRTUAL, "send", "a.bank", "--dry-run"]),
    Subject("show", ["show", "a.bank"]),
    Subject("show-json", ["show", "a.json"]),
    Subject("get", ["get", "a.bank", "scene1.pad*"]),
    Subject("set", ["set", "a.bank", "scene1.pad3.CR=9"]),
    Subject("copy", ["copy", "a.json", "scene1", "scene4"]),
    Subject("copy-from", ["copy", "a.bank", "scene2", "scene3", "--from", "b.bank"]),
    Subject("diff", ["diff", "a.bank", "b.bank"], errors=(2,)),
    Subject("diff-equal", ["diff", "a.bank", "a.json"], errors=(2,)),
    Subject("diff-device", [VIRTUAL, "diff", "device:", "a.bank"], errors=(2,)),
    Subject("convert", ["convert", "a.bank", "out.json"]),
    Subject("convert-back", ["convert", "a.json", "b.bank"]),
    Subject("convert-in", ["convert", "-", "-", "--to", "json"], given="a.bank"),
    Subject("convert-link", ["convert", "a.json", "link"]),
    Subject("default", ["default", "out.bank"]),
    Subject("default-json", ["default", "out.json"]),
    Subject("play", ["--virtual", "play", "a.bank"], given="orders", may_lack=True),
    # These want a sequencer, which there is none of (SweepPreload.cpp).
    Subject("play-port", ["play", "a.bank"], given="orders"),
    Subject("try", ["try", "a.bank"]),
    Subject("monitor", ["monitor", "--bank", "a.bank", "--json"]),
    Subject("devices", ["devices"]),
    Subject("udev-rules", ["udev-rules"]),
]


def make_files(folder, programs):
    """Four banks that differ, in both forms, a link to one of them, and two memories of the virtual
    controller."""
    folder.mkdir()

    def cli(*arguments):
        subprocess.run([programs / "scenewright-cli", *arguments], cwd=folder, check=True)

    cli("default", "held.bank")
    for name in ("a", "b", "real"):
        cli("default", f"{name}.bank")
    cli("set", "a.bank", "scene1.pad3.CR=1", "scene2.common.PitchBendSpeed=5")
    cli("set", "b.bank", "scene3.pad1.CG=2", "scene4.knob2.CCOrNoteNumber=6")
    cli("convert", "a.bank", "a.json")
    cli("convert", "held.bank", "held.json")
    (folder / "link").symlink_to("real.bank")
    (folder / "orders").write_text(ORDERS)
