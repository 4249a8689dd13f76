"""Checks what the documents point at: check_links.py ROOT

Every link leads to a file of the tree, and to a heading of it where one is named. A file of the tree
that the prose names in code exists, and so does a script that a block of commands calls. Every
document under docs/ can be reached from the README.
"""

import os
import re
import sys
from pathlib import Path

from documents import all_files, documents

_ELSEWHERE = re.compile(r"^[a-z]+:")
_SOURCE_NAME = re.compile(r"^[A-Z]\w*\.(h|cpp)$")
_PATH = re.compile(r"^[\w.-]+(/[\w.-]+)+/?$")
_CALL = re.compile(r"^(?:\$ )?([\w.-]+(?:/[\w.-]+)+)")


def link_fault(document, target, documents_by_path):
    """One sentence, or nothing."""
    if _ELSEWHERE.match(target):
        return None
    name, _, anchor = target.partition("#")
    path = (document.folder / name).resolve() if name else (document.root / document.name).resolve()
    if not path.exists():
        return f"{target} leads nowhere"
    if anchor and anchor not in list(documents_by_path[path].anchors()):
        return f"{target}: no such heading"
    return None


def is_missing(text, document, files, folders):
    """Whether a piece of code names a file of the tree that is not there."""
    if _SOURCE_NAME.match(text):
        return text not in {Path(name).name for name in files}
    if not _PATH.match(text) or text.split("/")[0] not in folders:
        return False
    return not any((base / text).exists() for base in (document.root, document.folder))


def calls(document):
    """(line number, path) of each program of the tree that a command line begins with"""
    for block in document.blocks:
        for number, line in enumerate(block.lines, block.number):
            match = _CALL.match(line) if block.language in ("sh", "console") else None
            if match and not match.group(1).startswith("build/"):
                yield number, match.group(1)


def unreachable(found):
    """The documents under docs/ to which no chain of links leads from the README."""
    by_path = {(document.root / document.name).resolve(): document for document in found}
    waiting = [document for document in found if document.name == "README.md"]
    reached = {document.name for document in waiting}
    while waiting:
        document = waiting.pop()
        for _, target in document.links():
            linked = by_path.get((document.folder / target.partition("#")[0]).resolve())
            if linked and linked.name not in reached:
                reached.add(linked.name)
                waiting.append(linked)
    return [d.name for d in found if d.name.startswith("docs/") and d.name not in reached]


def faults(root):
    found = documents(root)
    files = all_files(root)
    folders = {name.split("/")[0] for name in files if "/" in name}
    by_path = {(document.root / document.name).resolve(): document for document in found}
    for document in found:
        for number, target in document.links():
            fault = link_fault(document, target, by_path)
            if fault:
                yield f"{document.name}:{number}: {fault}"
        for number, text in document.names():
            if is_missing(text, document, files, folders):
                yield f"{document.name}:{number}: there is no {text}"
        for number, path in calls(document):
            if not os.access(document.root / path, os.X_OK):
                yield f"{document.name}:{number}: there is no program {path}"
    for name in unreachable(found):
        yield f"{name}: no link leads here from README.md"


if __name__ == "__main__":
    told = list(faults(Path(sys.argv[1])))
    print("\n".join(told))
    sys.exit(1 if told else 0)
