"""A list of exceptions, each with its reason, in a file that people keep by hand:

    usb/InterfaceAction.cpp
    - the line as it stands
    + the line as a mutant has it
      The reason, on as many lines as it takes.

Lines are told by their text, since numbers move. `#` starts a comment; an empty line ends an entry,
and the entries below a path are of that path until the next one.
"""

from dataclasses import dataclass
from pathlib import Path


@dataclass(frozen=True)
class Entry:
    path: str
    before: tuple[str, ...]
    after: tuple[str, ...]
    reason: str


class Malformed(Exception):
    """Says which line of the list cannot be read."""


def _entry(path: str, lines: list[str]) -> Entry:
    before = tuple(line[2:].strip() for line in lines if line.startswith("- "))
    after = tuple(line[2:].strip() for line in lines if line.startswith("+ "))
    reason = " ".join(line.strip() for line in lines if line.startswith("  "))
    if not path or not before or not reason:
        raise Malformed(f"an entry lacks its path, its line or its reason: {lines[0]}")
    return Entry(path, before, after, reason)


def parse(text: str) -> list[Entry]:
    entries: list[Entry] = []
    path = ""
    waiting: list[str] = []
    for line in [*text.splitlines(), ""]:
        if line.startswith(("- ", "+ ", "  ")):
            if line.startswith("- ") and any(kept.startswith("  ") for kept in waiting):
                entries.append(_entry(path, waiting))
                waiting = []
            waiting.append(line)
            continue
        if waiting:
            entries.append(_entry(path, waiting))
            waiting = []
        if line and not line.startswith("#"):
            path = line.strip()
    return entries


def load(path: Path) -> list[Entry]:
    return parse(path.read_text(encoding="utf-8"))


def spans(lines: list[str], wanted: tuple[str, ...]) -> list[range]:
    """Where the wanted lines stand in `lines`, one below the other, indentation aside; from 0."""
    bare = [line.strip() for line in lines]
    size = len(wanted)
    starts = range(len(bare) - size + 1)
    return [range(i, i + size) for i in starts if tuple(bare[i : i + size]) == wanted]


def outdated(entries: list[Entry], root: Path) -> list[Entry]:
    """The entries whose lines no longer stand in their file."""
    found = []
    for entry in entries:
        file = root / entry.path
        lines = file.read_text(encoding="utf-8").splitlines() if file.is_file() else []
        if not spans(lines, entry.before):
            found.append(entry)
    return found
