"""Compares docs/architecture.md with the include directions that the tree is held to:
check_architecture.py ROOT

Its table has the row of each folder, and in its picture a folder stands above all that it may
include.
"""

import re
import sys
from pathlib import Path

from documents import Document

import include_directions  # from tests/tree, where documents looks too

ALLOWED = include_directions.ALLOWED


def rows(document):
    """folder -> what its row says that it may include"""
    found = {}
    for _, line in document.prose:
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        match = re.match(r"\[`([^`]+)`\]", cells[0])
        if match and len(cells) == 3:
            found[match.group(1)] = cells[1]
    return found


def included(cell, table):
    """The folders that a cell names; "what `x` may" stands for those of x."""
    names = set()
    for other in re.findall(r"what `([^`]+)` may", cell):
        names |= included(table[other], table)
    return names | set(re.findall(r"`([^`]+)`", re.sub(r"what `[^`]+` may", "", cell)))


def heights(document):
    """folder -> how far up it stands in the first picture"""
    lines = document.blocks[0].lines
    found = {}
    for index, line in enumerate(lines):
        if line.startswith("|"):
            for name in line.split("|")[1].split():
                found[name] = len(lines) - index
    return found


def faults(document):
    table = rows(document)
    picture = heights(document)
    for folder in sorted(ALLOWED.keys() | table.keys()):
        if folder not in table or folder not in ALLOWED:
            yield f"{folder} is not in both the table and tests/tree/include_directions.py"
        elif included(table[folder], table) != ALLOWED[folder]:
            yield f"the row of {folder} differs from tests/tree/include_directions.py"
    for folder in sorted(ALLOWED.keys() ^ picture.keys()):
        yield f"{folder} is not in both the picture and tests/tree/include_directions.py"
    for folder, others in ALLOWED.items():
        for other in others:
            if picture.get(folder, 0) <= picture.get(other, 0):
                yield f"in the picture {folder} does not stand above {other}"


if __name__ == "__main__":
    told = list(faults(Document(Path(sys.argv[1]), "docs/architecture.md")))
    print("\n".join(told))
    sys.exit(1 if told else 0)
