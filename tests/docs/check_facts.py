"""Compares what the documents say of the tree with the tree: check_facts.py ROOT

README.md names the version that CMakeLists.txt has; docs/packaging.md lists the packages that
packages.txt needs for a build, and the CMake that CMakeLists.txt asks for. A message that
docs/troubleshooting.md explains is one of a program or a script. Every picture beside the documents
is in one of them, and none is there twice.
"""

import re
import sys
from pathlib import Path

from documents import Document, documents

import sources  # from tests/tree, where documents looks too

_PICTURES = (".png", ".svg")


def first(pattern, text):
    match = re.search(pattern, text, re.MULTILINE)
    return match.group(1) if match else None


def build_packages(text):
    return set(re.findall(r"^build (\S+)", text, re.MULTILINE))


def listed_packages(text):
    """The packages in the third column of the table under "What it needs"."""
    section = text.partition("## What it needs")[2].partition("\n## ")[0]
    rows = [line.split("|") for line in section.splitlines() if line.startswith("|")]
    return set(re.findall(r"`([^`]+)`", " ".join(row[3] for row in rows if len(row) > 4)))


def facts(root):
    """(what it is, what a document says, what is so)"""
    cmake = (root / "CMakeLists.txt").read_text(encoding="utf-8")
    packaging = (root / "docs/packaging.md").read_text(encoding="utf-8")
    packages = (root / "packaging/packages.txt").read_text(encoding="utf-8")
    readme = (root / "README.md").read_text(encoding="utf-8")
    yield ("README.md: the version", first(r"\bVersion (\d+\.\d+\.\d+)", readme),
           first(r"^project\(\w+ VERSION ([\d.]+)", cmake))
    yield ("docs/packaging.md: the least CMake", first(r"CMake, at least ([\d.]+)", packaging),
           first(r"^cmake_minimum_required\(VERSION ([\d.]+)\)", cmake))
    yield ("docs/packaging.md: the packages", sorted(listed_packages(packaging)),
           sorted(build_packages(packages)))


def message_faults(root):
    """Of a line of code alone, the pieces between three dots stand somewhere in the sources."""
    texts = [path.read_text(encoding="utf-8") for path in sorted((root / "packaging").glob("*-*"))]
    programs = [name for name in sources.files(root) if name.parts[0] != "tests"]
    texts += [(root / name).read_text(encoding="utf-8") for name in programs]
    # A long literal is written as several, a line each.
    written = re.sub(r'"\s*\n\s*"', "", "\n".join(texts))
    for number, line in Document(root, "docs/troubleshooting.md").prose:
        if re.fullmatch(r"`[^`]+`(, `[^`]+`)*", line):
            for piece in re.split(r"`, `|\.\.\.", line.strip("`")):
                if piece.strip(" :") not in written:
                    yield f"docs/troubleshooting.md:{number}: nothing says {piece.strip(' :')}"


def picture_faults(root):
    linked = {(document.folder / target).resolve()
              for document in documents(root) for _, target in document.links()}
    seen = {}
    for path in sources.files(root / "docs", _PICTURES):
        content = (root / "docs" / path).read_bytes()
        if (root / "docs" / path).resolve() not in linked:
            yield f"docs/{path}: no document shows it"
        if content in seen:
            yield f"docs/{path}: the same as docs/{seen[content]}"
        seen[content] = path


def faults(root):
    for what, said, so in facts(root):
        if said != so:
            yield f"{what}: {said} instead of {so}"
    yield from message_faults(root)
    yield from picture_faults(root)


if __name__ == "__main__":
    told = list(faults(Path(sys.argv[1])))
    print("\n".join(told))
    sys.exit(1 if told else 0)
