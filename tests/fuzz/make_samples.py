"""Makes what the fuzzers begin with: make_samples.py CLI RESOURCES FOLDER

For each fuzzer a folder of inputs, a NAME.list of them, and a NAME.dict of words worth putting into
an input. Banks come from our own command line, property lists from our own resources; what a client
or a controller sends is put together here.
"""

import itertools
import json
import plistlib
import shutil
import struct
import subprocess
import sys
from pathlib import Path
from typing import Any

CLI = ""


def cli(*arguments: str, stdin: bytes = b"") -> bytes:
    command = [CLI, *arguments]
    return subprocess.run(command, input=stdin, stdout=subprocess.PIPE, check=True).stdout


def scene_images() -> list[bytes]:
    bank = cli("default", "-")
    return [bank, bank[:253], bytes(range(256)) * 4, b"\xff" * 253]


def property_lists(resources: Path) -> list[bytes]:
    texts = [(resources / f"{name}.plist").read_bytes() for name in ("project", "default", "basic")]
    small: list[object] = [
        {"VID": "4617", "PID": 1, "flag": True, "half": 0.5, "text": "a <&> \u00e9"},
        [[[]], {}, -1, 2**63, 2**64 - 1, b"data", plistlib.UID(3)],
        {"deep": [[[[[[[["x" * 20]]]]]]]]},
    ]
    lists = [plistlib.loads(text) for text in texts] + small
    written = [plistlib.dumps(value, fmt=plistlib.FMT_BINARY) for value in lists]
    written += [plistlib.dumps(value) for value in (small[0], small[2])]
    return texts + written


def uncommented(node: Any) -> Any:
    if isinstance(node, dict):
        return {key: uncommented(node[key]) for key in node if not key.startswith("//")}
    return [uncommented(element) for element in node] if isinstance(node, list) else node


def bank_files() -> list[bytes]:
    image = cli("default", "-")
    named = cli("set", "-", "scene1.common.SceneName=bytes:" + "ff00" * 6, stdin=image)
    text = cli("convert", "--to", "json", "-", "-", stdin=named)
    bank = uncommented(json.loads(text))
    plain = json.dumps(bank).encode()
    scene = json.dumps({"format": "scenewright-scene", "version": 1, "scene": bank["scenes"][0]})
    return [image, named, text, plain, scene.encode(), b"{}"]


def json_edits() -> list[bytes]:
    """A line, one of the eight edits, and what it takes; and a setting with another value, which
    leaves a right bank."""
    places = [0, 1, 2, 5, 17, 30, 100, 500]
    edited = [struct.pack(">HBB", at, edit, 5) + b"xyz12" for at in places for edit in range(8)]
    return [*edited, struct.pack(">HBB", 8, 3, 5)]


PATHS = [
    "scene1", "scene*", "scene1.common", "scene2.common.SceneName", "scene1.pad3.CR",
    "scene*.knob*.Enable", "scene4.key25.OnValue", "scene3.group4.MIDIChannel", "scene1.slider*",
    "scene5", "scene1.pad9", "scene1.pad1.Nothing", "scene", "", "scene1.pad*.colour",
]  # fmt: skip

ASSIGNMENTS = [
    "scene1.pad3.CR=127", "scene*.knob*.Enable=On", "scene1.common.SceneName=STAGE",
    "scene1.common.SceneName=bytes:000102030405060708090a0b", "scene1.pad1.CR=title:1",
    "scene1.pad1.AssignType=Note\nscene1.pad1.CCOrNoteNumber=C2", "scene1.pad1.CR=128",
    "scene1=1", "scene1.key1.KeyBehavior=Nonsense", "scene1.pad1.colour=#ff8000",
    "scene1.pad1.MIDIChannel=raw:127", "scene1.pad1.MIDIChannel=ch:10",
    "scene1.knob1.CCOrNoteNumber=sustain", "scene1.key1.CCOrNoteNumber=db+2",
    "scene1.pad1.MIDIChannel=raw:scene ",
]  # fmt: skip

COPIES = [
    "scene1\nscene2", "scene1.pad1\nscene*.pad*", "scene*.knob1\nscene*.knob2",
    "scene1.pad1.CR\nscene2.pad*.CR", "scene1.common.SceneName\nscene*.common.SceneName",
    "scene1.pad1\nscene1.key1", "raw:scene1\nscene2", "scene1.pad1.colour\nscene*.pad*.colour",
]  # fmt: skip


FILLS = [
    "scene1.pad*\nC2", "scene*.key*\nD3\n2,1,2,2,2,1,2", "scene1.pad*\ncc:20\n-1",
    "scene1.pad*\nch:10", "scene1.pad*.colour\n#ff0000..#ffff00", "scene1.pad*\n#ff0000,#00ff00",
    "scene*.pad*.colour\nsafe", "scene1.knob*\nsustain", "scene1.key*\nC9", "scene1\n5",
    "scene1.group4\n",
]  # fmt: skip


def edits() -> list[bytes]:
    kinds = enumerate((ASSIGNMENTS, COPIES, FILLS))
    return [bytes([kind]) + text.encode() for kind, texts in kinds for text in texts]


def bank_pairs() -> list[bytes]:
    pattern = b"NAME\0\1\2\3\4"
    changes = [(0, 65), (12, 3), (20, 2), (181, 1), (300, 127), (1011, 9), (5, 0xFF)]
    edited = b"".join(struct.pack(">HB", at, value) for at, value in changes)
    return [bytes([len(pattern)]) + pattern + edited, b"\0", b"\0" + edited]


def transactions() -> list[bytes]:
    """Read or send, then orders: of the USB system (0) or the controller's replies (1)."""
    wrong = b"\x09\x9c\x01\x02\x09\x9c\x01\x39"
    orders = [
        b"",
        *(bytes([0, 5, step, 1, code]) for step in range(9) for code in (0, 3)),
        *(bytes([0, 2, step, 3]) for step in range(14)),
        *(bytes([0, 3, step]) for step in range(5)),
        b"\0\0\2\1\3\2" + bytes(range(12)) + b"\1\1\0",
        bytes([1, 0, 8]) + wrong,
        bytes([1, 1, 1, 4]) + wrong,
        bytes([1, 2, 0, 7, 4, 9, 0x90, 0x1F, 0xFF]),
        *(bytes([1, order, 0, at, 4]) for order in (3, 4) for at in (0, 1, 3, 60)),
        bytes([1, 5, 5]) + b"NAME\0",
    ]
    return [bytes([kind]) + order for kind in (0, 1) for order in orders]


def buses() -> list[bytes]:
    endpoints = bytes([0x81, 2, 0, 64, 0, 0x02, 2, 0, 64, 0])
    pair = bytes([2, 0, 1, 1, 0, 1, 1, 3, 2]) + endpoints
    orders = [
        b"\0" + pair,
        bytes([3, 8]) + b"\x09\x9c\x01\x02\x09\x9c\x01\x38",
        bytes([4, 7]),
        *(bytes([2, call, code]) for call in range(14) for code in (2, 5)),
        *(bytes([1, at, holder]) for at in (0, 1) for holder in (0, 1, 2)),
        bytes([5, 0, 2]),
        bytes([6, 0]),
        bytes([7, 1, 0]),
    ]
    names = bytes([4]) + b"Acme" + bytes([7]) + b"Keys 25"
    return [bytes([1]) + order + names for order in orders] + [
        bytes([2]) + one + two + names for one, two in itertools.pairwise(orders)
    ]


def submit(sequence: int, endpoint: int, is_in: bool, length: int, data: bytes) -> bytes:
    """A transfer; `data` is a setup stage on endpoint 0, else what is written."""
    setup = data.ljust(8, b"\0")[:8] if endpoint == 0 else bytes(8)
    head = struct.pack(">5I", 1, sequence, 0x10002, int(is_in), endpoint)
    body = b"" if is_in or endpoint == 0 else data
    return head + struct.pack(">5I", 0, length, 0, 0, 0) + setup + body


def unlink(sequence: int, target: int) -> bytes:
    return struct.pack(">6I", 2, sequence, 0x10002, 0, 0, target).ljust(48, b"\0")


PACKETS = ["099c0102", "099c7e7d", "099c0103", "099c0104", "099c0105", "099c0106", "09900f0f"]
SETUPS = ["8006000100001200", "800600020000ff00", "8006020309040001", "0009010000000000",
          "0201000081000000", "8200000081000200", "010b000001000000"]  # fmt: skip


def clients() -> list[bytes]:
    packets = [bytes.fromhex(text) for text in PACKETS]
    writes = [submit(10 + i, 2, False, 4, packet) for i, packet in enumerate(packets)]
    reads = [submit(30 + i, 1, True, 63, b"") for i in range(4)]
    setups = [submit(50 + i, 0, True, 255, bytes.fromhex(t)) for i, t in enumerate(SETUPS)]
    read_one = b"".join([reads[0], *writes[:2], reads[1], writes[3], reads[2], writes[5], writes[4]])
    sent = [submit(100 + i, 2, False, 4, packets[6]) for i in range(140)]
    send = b"".join([*writes[:2], writes[2], submit(60, 2, False, 4, b"\x09\x9c\0\2"), *sent])
    streams = [read_one, send, b"".join(setups), reads[0] + unlink(90, 30) + unlink(91, 30)]
    questions = [struct.pack(">HHI", 0x111, 0x8005, 0)]
    questions += [struct.pack(">HHI", 0x111, 0x8003, 0) + b"1-1".ljust(32, b"\0")]
    # No faults, then each kind at byte 0.
    attached = [bytes([1, 1, 0, 7]) + stream for stream in streams + setups]
    faulty = [bytes([1, 1, 1, kind, 0, 0, 3]) + read_one for kind in range(7)]
    asking = [bytes([0, 1, 0, 7]) + question + read_one for question in questions]
    return attached + faulty + asking


FAULTS = ["handshake:3", "silent:0", "short:7", "nibble:7", "write:12", "unplug:500", "stall:9",
          "stall:4294967295", "stall:4294967296", "nonsense", "short", "short:-1",
          "faults stall:9 short:7", "faults", "faults nonsense", "unplug", "plug", "plug 3",
          "scene 2", "press pad3 100", "release key25", "turn knob1 64", "slide slider2 0 127 500ms"]  # fmt: skip

LINES = [
    "", "--help", "--version", "read mine.bank", "--virtual=a read b", "--virtual read -",
    "send a --verify --backup b", "send a --dry-run", "show a --scene 2", "get a scene1.pad3.CR",
    "set a scene1.pad3.CR=1 scene2.common.SceneName=X", "copy a scene1 scene2", "diff a b --json",
    "convert a b --to json", "default a", "devices --json", "udev-rules", "--log - --console -",
    "--resources x show", "nonsense", "show", "show a --scene 9", "read --help", "--",
]  # fmt: skip

VIRTUAL_LINES = [
    "", "--help", "--version", "--listen 127.0.0.1:3240", "--listen [::1]:0", "--vhci 0",
    "--bank a", "--fault short:7 --fault stall:9", "--fault nonsense", "--trace -",
    "--identity 1209:0001", "--identity x", "--interfaces 1", "--interfaces 3", "--resources x",
    "--listen nowhere", "extra",
]  # fmt: skip


def arguments(first: bytes, lines: list[str]) -> list[bytes]:
    return [first + line.replace(" ", "\0").encode() for line in lines]


def words_of(texts: list[str], separators: str) -> list[str]:
    table = str.maketrans(separators, " " * len(separators))
    return sorted({word for text in texts for word in text.translate(table).split()})


TAGS = ["plist", "dict", "array", "key", "string", "integer", "real", "true/", "false/", "data"]
JSON_KEYS = ["format", "version", "scenes", "scene", "scenewright-bank", "scenewright-scene",
             "name", "nameBytes", "common", "groups", "knobs", "sliders", "pads", "keys", "//",
             "CR", "AssignType", "\\u0000", "\\ud83d"]  # fmt: skip


def dictionary(words: list[str]) -> str:
    quoted = (word.replace("\\", "\\\\").replace('"', '\\"') for word in words)
    # The engine refuses a file of no line.
    return "# words\n" + "".join(f'"{word}"\n' for word in quoted if word)


def inputs(resources: Path) -> dict[str, tuple[list[bytes], list[str]]]:
    """For each fuzzer its inputs and its words."""
    paths = words_of(PATHS + ASSIGNMENTS + COPIES, ".=\n")
    lines = words_of(LINES + VIRTUAL_LINES, "=")
    tags = [f"<{tag}>" for tag in TAGS] + [f"</{tag}>" for tag in TAGS[:7]]
    quoted = [f'"{key}"' for key in JSON_KEYS]
    return {
        "SceneImage": (scene_images(), []),
        "PropertyList": (property_lists(resources), [*tags, "bplist00", "<![CDATA[", "<!--", "-->"]),
        "BankFile": (bank_files(), quoted),
        "BankJson": (json_edits(), quoted),
        "Path": ([path.encode() for path in PATHS], paths),
        "Edit": (edits(), paths),
        "Difference": (bank_pairs(), []),
        "Transaction": (transactions(), []),
        "Bus": (buses(), []),
        "UsbIp": (clients(), []),
        "Fault": ([fault.encode() for fault in FAULTS], words_of(FAULTS, ":")),
        "Arguments": (arguments(b"\0", LINES) + arguments(b"\1", VIRTUAL_LINES), lines),
    }


def write(folder: Path, name: str, samples: list[bytes], words: list[str]) -> None:
    own = folder / name
    shutil.rmtree(own, ignore_errors=True)
    own.mkdir(parents=True)
    files = [own / f"{number:03}" for number in range(len(samples))]
    for file, sample in zip(files, samples, strict=True):
        file.write_bytes(sample)
    (folder / f"{name}.list").write_text(",".join(map(str, files)))
    (folder / f"{name}.dict").write_text(dictionary(words))


def main() -> None:
    global CLI
    CLI = sys.argv[1]
    folder = Path(sys.argv[3])
    for name, (samples, words) in inputs(Path(sys.argv[2])).items():
        write(folder, name, samples, words)


if __name__ == "__main__":
    main()
