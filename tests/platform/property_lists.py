#!/usr/bin/env python3
"""Writes property lists of many kinds into FOLDER, and beside each what plistlib reads in it.

NAME.plist is the list, NAME.txt its value in the notation of PropertyListKinds: "-" for what has no
use here, "i" and a number of 64 bits, "r" and the bytes of a double, "s" and the bytes of a text.
"""

import datetime
import math
import plistlib
import random
import struct
import sys
from pathlib import Path
from typing import Any

LEAST, MOST = -(2**63), 2**63 - 1


def notation(value: Any) -> str:
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, int):
        return f"i{min(max(value, LEAST), MOST)}"
    if isinstance(value, float):
        return "rnan" if math.isnan(value) else "r" + struct.pack(">d", value).hex()
    if isinstance(value, str):
        return "s" + value.encode().hex()
    if isinstance(value, list):
        return "[" + ",".join(map(notation, value)) + "]"
    if isinstance(value, dict):
        keys = sorted(value, key=str.encode)
        return "{" + ",".join(f"{key.encode().hex()}:{notation(value[key])}" for key in keys) + "}"
    return "-"


LETTERS = "aZ09 \t\n<>&'\"]/\u00e9\u20ac\ufffd\U0001d11e"
INTEGERS = [0, 1, -1, 127, 128, 255, 256, 65535, 65536, 2**31 - 1, 2**31, 2**32, -(2**31),
            -(2**31) - 1, 2**63 - 1, 2**63, 2**63 + 1, 2**64 - 1, -(2**63)]  # fmt: skip
REALS = [0.0, -0.0, 0.5, -12.9, 1e30, -1e30, 1e-300, 5e-324, 1.7976931348623157e308, math.pi]
LEAVES = [True, False, b"", b"data", datetime.datetime(2001, 1, 2, 3, 4, 5)]


def text(chance: random.Random) -> str:
    return "".join(chance.choices(LETTERS, k=chance.choice([0, 1, 3, 14, 15, 16, 300])))


def value(chance: random.Random, levels: int) -> Any:
    kind = chance.randrange(6 if levels > 0 else 4)
    size = chance.choice([0, 1, 2, 5, 16])
    if kind == 0:
        return text(chance)
    if kind == 1:
        return chance.choice(INTEGERS)
    if kind == 2:
        return chance.choice(REALS)
    if kind == 3:
        return chance.choice(LEAVES)
    if kind == 4:
        return [value(chance, levels - 1) for _ in range(size)]
    return {text(chance): value(chance, levels - 1) for _ in range(size)}


def nested(levels: int) -> Any:
    return [nested(levels - 1)] if levels > 1 else []


LARGE = [
    [{"shared": "one text"}] * 300,
    [f"text {number}" for number in range(70_000)],
    {f"key {number}": number for number in range(300)},
    "long" * 20_000,
    "\u00e9" * 70_000,
    nested(64),
    {"UID": "no identifier", "": "no key"},
]

DECLARATION = b"<?xml version='1.0' encoding='UTF-8'?>"
PUBLIC = b'<!DOCTYPE plist PUBLIC "-//A//DTD PLIST 1.0//EN" "http://a.example/a.dtd">'
SUBSET = b"""<!DOCTYPE plist PUBLIC "-//A//DTD PLIST 1.0//EN" 'a.dtd' [
  <!-- ]> --> <!ELEMENT plist ANY> <!ATTLIST plist version CDATA "1.0 ]>">
  <?pi ]> ?> <!NOTATION n SYSTEM "]>">
]>"""
BODY = b"<dict><key>VID</key><integer>4617</integer><key>a</key><string>b</string></dict>"
BOM = b"\xef\xbb\xbf"

# Whole documents, each of which plistlib reads.
DOCUMENTS = [
    b"<plist>" + BODY + b"</plist>",
    BOM + b"<plist version='1.0'>" + BODY + b"</plist>",
    BOM + DECLARATION + PUBLIC + b'<plist version="1.0">' + BODY + b"</plist>\n\n",
    DECLARATION + SUBSET + b"<plist>" + BODY + b"</plist>",
    DECLARATION + b"<!DOCTYPE plist><plist>" + BODY + b"</plist><!-- after --><?and this?>",
    DECLARATION + b"<!DOCTYPE plist []>\r\n<plist\n version = '1.0' >" + BODY + b"</plist >",
    b'<?xml version="1.0" standalone="yes"?>' + BODY,
    b'<?xml version="1.0"?>' + BODY,
    b"<?xml version='1.0' encoding='utf8'?><plist>" + BODY + b"</plist>",
    f"<?xml version='1.0' encoding='UTF-16'?><plist>{BODY.decode()}</plist>".encode("utf-16"),
    b"<?xml version='1.0' encoding='ISO-8859-1'?><plist><string>\xe9</string></plist>",
] + [
    DECLARATION + b"<plist version='a>b' other=\"/plist>'\">" + body + b"</plist>"
    for body in [
        b"<string>it's \"quoted\"</string>",
        b"<string attribute='&lt;/>'></string>",
        b"<string><![CDATA[<array>]]]]><![CDATA[>]]> and <!-- <not> -->this<?or this?></string>",
        b"<string>&lt;&gt;&amp;&quot;&apos;&#233;&#xe9;&#x1D11E;&#9;</string>",
        b"<string>a\r\nb\rc\n</string>",
        b"<string/>",
        b"<string />",
        b"<array/>",
        b"<dict ></dict >",
        b"<array><!-- a --><true/><?b?><false></false> <true>yes</true></array>",
        b"<array>words between<true/>values</array>",
        b"<array><unknown/><true/><unknown><false/></unknown></array>",
        b"<true/><false/>",
        b"<dict><key>a</key><integer>1</integer><key>a</key><integer>2</integer></dict>",
        b"<dict><key><![CDATA[<a>]]>b</key><!-- --><string> b </string></dict>",
        b"<dict><key/><true/></dict>",
        b"<array>" + b"".join(b"<integer>%s</integer>" % number for number in [
            b"007", b" 12 ", b"\n-12\n", b"+12", b"0x1209", b"0XfF", b"-0", b"9" * 40,
            b"-" + b"9" * 40,
            b"9223372036854775807", b"9223372036854775808", b"-9223372036854775808",
        ]) + b"</array>",
        b"<array>" + b"".join(b"<real>%s</real>" % number for number in [
            b"1", b" 1.5 ", b"-1e3", b"+.5", b"5.", b"1e400", b"-1e400", b"1e-400", b"nan", b"inf",
            b"-infinity", b"0" * 400 + b"1",
        ]) + b"</array>",
        b"<array><data>AAEC\n</data><data/><date>2001-01-02T03:04:05Z</date></array>",
    ]
]  # fmt: skip


def lists() -> dict[str, bytes]:
    chance = random.Random(1)
    values = LARGE + [value(chance, 4) for _ in range(300)]
    found = {f"document-{i:03}": document for i, document in enumerate(DOCUMENTS)}
    for number, made in enumerate(values):
        for name, form in (("binary", plistlib.FMT_BINARY), ("xml", plistlib.FMT_XML)):
            found[f"{name}-{number:03}"] = plistlib.dumps(made, fmt=form, sort_keys=False)
    found["binary-uid"] = plistlib.dumps([plistlib.UID(3), 1], fmt=plistlib.FMT_BINARY)
    return found


def main() -> None:
    folder = Path(sys.argv[1])
    for name, content in lists().items():
        (folder / f"{name}.plist").write_bytes(content)
        (folder / f"{name}.txt").write_text(notation(plistlib.loads(content)))


if __name__ == "__main__":
    main()
