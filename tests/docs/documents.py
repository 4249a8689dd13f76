"""The documents of a tree, taken apart: headings, links, names in code, and blocks of commands."""

import re
import sys
from dataclasses import dataclass
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tree"))

import sources  # noqa: E402  # from tests/tree

_FENCE = re.compile(r"^(```+)\s*(\w*)\s*$")
_HEADING = re.compile(r"^#{1,6}\s+(.*?)\s*#*$")
_LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
_DEFINITION = re.compile(r"^\[[^\]]+\]:\s+(\S+)$")
_REMARK = re.compile(r"^<!--\s*(.*?)\s*-->$")
_CODE = re.compile(r"(`+)(.+?)\1")


@dataclass
class Block:
    """A fenced block: its language, the remark on the line above it, its lines, its first line."""

    language: str
    remark: str
    lines: list
    number: int


class Document:
    def __init__(self, root, name):
        self.root = Path(root)
        self.name = name
        self.folder = (self.root / name).parent
        self.prose = []  # (line number, text), nothing of the blocks
        self.blocks = []
        self._take((self.root / name).read_text(encoding="utf-8").splitlines())

    def _take(self, lines):
        block, fence, remark = None, "", ""
        for number, line in enumerate(lines, 1):
            match = _FENCE.match(line)
            if block is not None and line.rstrip() == fence:
                block = None
            elif block is not None:
                block.lines.append(line)
            elif match:
                fence = match.group(1)
                block = Block(match.group(2), remark, [], number + 1)
                self.blocks.append(block)
            else:
                self.prose.append((number, line))
            if line.strip():
                found = _REMARK.match(line)
                remark = found.group(1) if found else ""

    def links(self):
        """(line number, target)"""
        for number, line in self.prose:
            line = _CODE.sub("", line)
            for target in _LINK.findall(line) + _DEFINITION.findall(line):
                yield number, target

    def anchors(self):
        """What a link into this document may name, the way forges make it of a heading."""
        seen = {}
        for _, line in self.prose:
            match = _HEADING.match(line)
            if match:
                words = re.sub(r"[^\w\- ]", "", match.group(1).replace("`", "").lower())
                slug = words.replace(" ", "-")
                count = seen.get(slug, 0)
                seen[slug] = count + 1
                yield f"{slug}-{count}" if count else slug

    def names(self):
        """(line number, text) of each piece of code in the prose; a code paragraph is one a line."""
        for number, line in self.prose:
            if line.startswith("    "):
                yield number, line.strip()
            else:
                for _, text in _CODE.findall(line):
                    yield number, text.strip()


def all_files(root):
    """The files of the tree, without builds and hidden folders."""
    return [path.as_posix() for path in sources.files(root, [""])]


def documents(root):
    return [Document(root, name) for name in all_files(root) if name.endswith(".md")]
