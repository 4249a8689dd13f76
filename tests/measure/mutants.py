"""Finds the places of a source file where one small fault can be planted, and chooses among them.

A fault is plausible: it is what a slip of the hand would leave behind, and nearly always compiles.
The choice depends on the seed and on the lines alone, so that a change of one file leaves what is
chosen in the others as it was.
"""

import hashlib
import re
import sys
from collections import Counter, defaultdict
from collections.abc import Iterable, Iterator
from dataclasses import dataclass
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tree"))

import sources  # noqa: E402  pylint: disable=wrong-import-position

# What is measured, and how many of 210 mutants each group gets.
GROUPS = {"model": 40, "protocol": 40, "usb": 60, "editor": 50, "editor/qt": 20}
KINDS = ("comparison", "arithmetic", "boolean", "constant", "table", "statement", "return", "text")

# The headers that hold tables. A mutant in any other would rebuild much to learn little.
TABLE_HEADERS = {
    "model/PopUpValue.h",
    "model/SceneValue.h",
    "model/Setting.h",
    "model/ValueAction.h",
    "protocol/SceneImage.h",
}


@dataclass(frozen=True)
class Mutant:
    path: str
    line: int  # the first that changes, from 1
    kind: str
    before: tuple[str, ...]
    after: tuple[str, ...]
    copy: int = 0  # how many of the same stand above it in its file

    def key(self) -> tuple[str, tuple[str, ...], tuple[str, ...]]:
        bare = [tuple(line.strip() for line in lines) for lines in (self.before, self.after)]
        return self.path, bare[0], bare[1]

    def rank(self, seed: int) -> str:
        return hashlib.sha256(repr((seed, self.key(), self.copy)).encode()).hexdigest()


# (kind, what is found in the code, what it becomes). Operators stand between spaces, which keeps
# template brackets, pointers and references out.
_SWAPS = [
    ("comparison", r"(?<= )==(?= )", "!="),
    ("comparison", r"(?<= )!=(?= )", "=="),
    ("comparison", r"(?<= )<(?= )", "<="),
    ("comparison", r"(?<= )<=(?= )", "<"),
    ("comparison", r"(?<= )>(?= )", ">="),
    ("comparison", r"(?<= )>=(?= )", ">"),
    ("arithmetic", r"(?<= )\+(?= )", "-"),
    ("arithmetic", r"(?<= )-(?= )", "+"),
    ("arithmetic", r"(?<= )\*(?= )", "+"),
    ("arithmetic", r"(?<= )/(?= )", "*"),
    ("arithmetic", r"(?<= )%(?= )", "/"),
    ("arithmetic", r"(?<= )\+=(?= )", "-="),
    ("arithmetic", r"(?<= )>>(?= )", "<<"),
    ("arithmetic", r"(?<= )\|(?= )", "&"),
    ("arithmetic", r"(?<= )&(?= )", "|"),
    ("boolean", r"(?<= )&&(?= )", "||"),
    ("boolean", r"(?<= )\|\|(?= )", "&&"),
    ("boolean", r"(?<=[ (])!(?=[\w(])", ""),
    ("boolean", r"\btrue\b", "false"),
    ("boolean", r"\bfalse\b", "true"),
]
_SWAPS = [(kind, re.compile(pattern), text) for kind, pattern, text in _SWAPS]

# Margins and spacings are left out too: a pixel more of them is a matter of looks. So is room that
# is reserved, which changes nothing but time.
_NO_PLACE = re.compile(
    r"\s*(#|static_assert|using |namespace |template|friend |Q_)"
    r"|.*\b(set\w*(Margins|Spacing)|reserve)\("
)
_NUMBER = re.compile(r"(?<![\w.'<])(0x[0-9A-Fa-f]+|\d+)([uUlL]*)(?![\w.'>])")
_NUMBERS = re.compile(r"(?<![\w.'])(0x[0-9A-Fa-f]+|\d+), (0x[0-9A-Fa-f]+|\d+)(?![\w.'])")
_CONDITION = re.compile(r"^\s*(?:\} else )?if \(([^;]+)\)(?: \{)?$")
# What an empty value is anyway is left alone.
_RETURN = re.compile(
    r"^\s+return (?!true;|false;|nullptr;|std::nullopt;|kResultSuccess;|\{|[-\d]+;)([^;]+);$"
)
_STATEMENT = re.compile(
    r"^\s+(?!static_assert)[\w:.>()\[\]-]*\w\(.*\);$|^\s+[\w.\[\]()>-]+ [-+|&]?= .*;$"
)
_ROW = re.compile(r"^\s+(\w*[({].*[)}]),$")
_TEXT = re.compile(r'^(?:[^%\\]|%.|\\.)*?(?<![%\\])([a-z])')


def _in_line(code: str, line: str) -> Iterator[tuple[str, str]]:
    """(kind, the line as a mutant has it) for each place of one line."""
    for kind, pattern, text in _SWAPS:
        for match in pattern.finditer(code):
            told = "return" if line.lstrip().startswith("return ") and kind == "boolean" else kind
            yield told, line[: match.start()] + text + line[match.end() :]
    for match in _NUMBER.finditer(code):
        for text in _neighbours(match.group(1)):
            yield "constant", line[: match.start(1)] + text + line[match.end(1) :]
    for match in _NUMBERS.finditer(code):
        if match.group(1) != match.group(2):
            text = f"{match.group(2)}, {match.group(1)}"
            yield "table", line[: match.start()] + text + line[match.end() :]


def _neighbours(number: str) -> Iterator[str]:
    value = int(number, 0)
    for other in (value + 1, value - 1):
        if other >= 0:
            yield f"0x{other:0{len(number) - 2}X}" if number.startswith("0x") else str(other)


def _whole_line(code: str, line: str) -> Iterator[tuple[str, str]]:
    indent = line[: len(line) - len(line.lstrip())]
    condition = _CONDITION.match(code)
    if condition and " = " not in condition.group(1):
        start, end = condition.span(1)
        yield "boolean", f"{line[:start]}!({line[start:end]}){line[end:]}"
    if _RETURN.match(code):
        yield "return", indent + "return {};"
    if _STATEMENT.match(code) and code.count("(") == code.count(")"):
        yield "statement", indent + ";"


def _cells(row: str) -> list[str]:
    """The parts of a table's row: what opens it, each of its cells, what closes it."""
    start = re.search(r"[({]", row).end()
    end = max(row.rfind(")"), row.rfind("}"))
    cells = [""]
    depth = 0
    quoted = False
    for letter in row[start:end]:
        quoted ^= letter == '"'
        depth += (letter in "([{") - (letter in ")]}") if not quoted else 0
        if letter == "," and depth == 0 and not quoted:
            cells.append("")
        else:
            cells[-1] += letter
    return [row[:start], *cells, row[end:]]


def _rows(line: str, below: str) -> Iterator[tuple[str, str]]:
    """Two rows of a table, one cell exchanged between them."""
    if not _ROW.match(line) or not _ROW.match(below):
        return
    cells = [_cells(line), _cells(below)]
    if len(cells[0]) == len(cells[1]):
        for i in range(1, len(cells[0]) - 1):
            if cells[0][i] != cells[1][i]:
                first = [*cells[0][:i], cells[1][i], *cells[0][i + 1 :]]
                second = [*cells[1][:i], cells[0][i], *cells[1][i + 1 :]]
                yield _joined(first), _joined(second)


def _joined(cells: list[str]) -> str:
    return cells[0] + ",".join(cells[1:-1]) + cells[-1]


def _texts(path: str, text: str) -> Iterator[tuple[int, str, str]]:
    """Texts with one letter changed: (line from 0, before, after). The window's own texts are left
    out: its translations are compared with them, not they with anything."""
    if path.startswith("editor/qt/"):
        return
    lines = text.splitlines()
    # pylint: disable=protected-access
    for match in sources._NOT_CODE.finditer(text):
        letter = _TEXT.match(match.group()[1:]) if match.group().startswith('"') else None
        if not letter:
            continue
        row = text.count("\n", 0, match.start())
        column = match.start() - text.rfind("\n", 0, match.start()) - 1
        at = column + 1 + letter.start(1)
        other = "a" if letter.group(1) == "z" else chr(ord(letter.group(1)) + 1)
        yield row, lines[row], lines[row][:at] + other + lines[row][at + 1 :]


def _places(path: str, text: str) -> Iterator[Mutant]:
    lines = text.splitlines()
    code = sources.blanked(text).splitlines()
    for i, line in enumerate(lines):
        if _NO_PLACE.match(line):
            continue
        for kind, after in [*_in_line(code[i], line), *_whole_line(code[i], line)]:
            yield Mutant(path, i + 1, kind, (line,), (after,))
        for changed in _rows(line, lines[i + 1] if i + 1 < len(lines) else ""):
            yield Mutant(path, i + 1, "table", (line, lines[i + 1]), changed)
    for i, line, after in _texts(path, text):
        if not _NO_PLACE.match(line):
            yield Mutant(path, i + 1, "text", (line,), (after,))


def candidates(path: str, text: str) -> list[Mutant]:
    """Every mutant of a file, those of equal text told apart by their number."""
    seen: Counter[object] = Counter()
    found = []
    for mutant in _places(path, text):
        copy = seen[mutant.key()]
        seen[mutant.key()] += 1
        found.append(Mutant(*list(vars(mutant).values())[:-1], copy))
    return found


def group_of(path: str) -> str:
    """The group that a file counts for: the longest that its folder lies in."""
    folder = path.rsplit("/", 1)[0] + "/"
    return max((group for group in GROUPS if folder.startswith(group + "/")), key=len, default="")


def measured_files(root: Path) -> list[str]:
    # A program's main file is in none of the suites that are run, but in the program's own.
    names = [path.as_posix() for path in sources.files(root) if path.name != "main.cpp"]
    return [n for n in names if group_of(n) and (n.endswith(".cpp") or n in TABLE_HEADERS)]


def in_turn(found: Iterable[Mutant], seed: int) -> Iterator[Mutant]:
    """All of them, the kinds taking turns, and the files that had the fewest first. A line has one
    turn at most."""
    # By kind and file, the next one last.
    waiting: dict[str, dict[str, list[Mutant]]] = {kind: defaultdict(list) for kind in KINDS}
    for mutant in sorted(found, key=lambda one: one.rank(seed), reverse=True):
        waiting[mutant.kind][mutant.path].append(mutant)
    # A header is slow to try, since so much includes it.
    used = Counter({path: 4 for path in TABLE_HEADERS})
    lines: set[tuple[str, int]] = set()
    while any(waiting.values()):
        for files in waiting.values():
            for path in sorted(files, key=lambda path: (used[path], files[path][-1].rank(seed))):
                chosen = _next(files, path, lines)
                if chosen:
                    used[path] += 1
                    lines.add((path, chosen.line))
                    yield chosen
                    break


def _next(
    files: dict[str, list[Mutant]], path: str, lines: set[tuple[str, int]]
) -> Mutant | None:
    """Takes the next of a file whose line is not among `lines`; the file goes with its last."""
    while path in files:
        chosen = files[path].pop()
        if not files[path]:
            del files[path]
        if (chosen.path, chosen.line) not in lines:
            return chosen
    return None


def order(root: Path, seed: int) -> dict[str, list[Mutant]]:
    """For each group its mutants in the order in which they are taken."""
    found: dict[str, list[Mutant]] = {group: [] for group in GROUPS}
    for path in measured_files(root):
        text = (root / path).read_text(encoding="utf-8")
        found[group_of(path)] += candidates(path, text)
    return {group: list(in_turn(each, seed)) for group, each in found.items()}


def shares(count: int) -> dict[str, int]:
    """How many of `count` mutants each group gets."""
    whole = sum(GROUPS.values())
    return {group: -(-count * part // whole) for group, part in GROUPS.items()}


def planted(text: str, mutant: Mutant) -> str:
    """The file's text with the mutant in it."""
    lines = text.splitlines(keepends=True)
    lines[mutant.line - 1 : mutant.line - 1 + len(mutant.before)] = [
        line + "\n" for line in mutant.after
    ]
    return "".join(lines)
