"""Checks which folder includes which: include_directions.py ROOT

Includes point one way, from the editor down to the system; the toolkit, the USB library and the
property-list library each stay behind their own folder.
"""

import re
import sys
from pathlib import Path

import sources

_CORE = {"platform", "model"}
_DEVICE = _CORE | {"usb", "protocol"}

# What each folder may include beside itself.
ALLOWED = {
    "platform": set(),
    "model": {"platform"},
    "usb": {"platform"},
    "sequencer": _CORE,
    "protocol": _CORE | {"usb"},
    "virtual": _DEVICE,
    "bank": _CORE | {"protocol"},
    "app": _DEVICE | {"sequencer", "virtual", "bank"},
    "editor": _CORE | {"app"},
    "editor/qt": _DEVICE | {"app", "editor"},
    "cli": _DEVICE | {"bank", "app"},
}

# Libraries that stay behind a folder: the include, the folders that may name it, and how many files
# may, stand-ins in tests aside (None: as many as like).
CONFINED = [
    ("Qt", re.compile(r"<(Q[A-Z]\w*|Qt\w*/.*)>"), {"editor/qt"}, None),
    ("libusb", re.compile(r"<libusb.*>"), {"usb"}, 2),
    ("libasound", re.compile(r"<alsa/.*>"), {"sequencer"}, 1),
    ("libudev", re.compile(r"<libudev\.h>"), {"usb"}, 1),
    ("CLI11", re.compile(r"<CLI/.*>"), {"platform"}, 1),
    ("expat", re.compile(r"<expat\.h>"), {"platform"}, None),
]

_INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(<[^>]+>|"[^"]+")', re.MULTILINE)


def folder_of(path):
    """The row of the table that a path belongs to; None for a test, or for a folder not in it."""
    for folder in Path(path).parents:
        if folder.as_posix() in ALLOWED:
            return folder.as_posix()
    return None


def tested_folder(path):
    """tests/X-Y is free to include any folder, but stands for X/Y where a library is confined."""
    if path.parts[0] != "tests":
        return path
    return Path(*path.parts[1].split("-"), *path.parts[2:])


def includes(root, path):
    return _INCLUDE.findall((root / path).read_text(encoding="utf-8"))


def direction_faults(root, path):
    source = folder_of(path)
    if source is None and path.parts[0] != "tests":
        yield f"{path}: its folder has no row in the table of allowed includes"
        return
    for include in includes(root, path):
        if not include.startswith('"'):
            continue
        name = include.strip('"')
        if not (root / name).is_file():
            yield f'{path}: includes "{name}", which is no path from the root'
            continue
        target = folder_of(name)
        if path.parts[0] != "tests" and target != source and target not in ALLOWED[source]:
            yield f'{path}: {source} may not include "{name}"'


def confinement_faults(root, paths):
    for library, pattern, folders, limit in CONFINED:
        users = [p for p in paths if any(pattern.match(i) for i in includes(root, p))]
        for path in users:
            if folder_of(tested_folder(path)) not in folders:
                yield f"{path}: only {' and '.join(sorted(folders))} may include {library}"
        users = [path for path in users if path.parts[0] != "tests"]
        if limit is not None and len(users) > limit:
            names = ", ".join(map(str, users))
            yield f"{library} is included by {len(users)} files, {limit} may: {names}"


def cycles(table):
    """Folders that reach themselves by the table's own edges."""

    def reaches(folder, goal, seen):
        for target in table[folder] - seen:
            seen.add(target)
            if target == goal or reaches(target, goal, seen):
                return True
        return False

    return [folder for folder in table if reaches(folder, folder, set())]


def violations(root):
    paths = sources.files(root)
    found = [f"{folder}: may include itself by way of others" for folder in cycles(ALLOWED)]
    for path in paths:
        found += direction_faults(root, path)
        if path.suffix == ".h" and "#pragma once" not in (root / path).read_text(encoding="utf-8"):
            found.append(f"{path}: has no #pragma once")
    return found + list(confinement_faults(root, paths))


if __name__ == "__main__":
    sys.exit(sources.report(violations(Path(sys.argv[1]).resolve())))
