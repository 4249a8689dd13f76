"""Checks how includes are spelled: include_spelling.py ROOT

A file of the tree is named in quotes by its path from the root, anything else in angle brackets, and
nothing twice; the header that a file belongs to comes first, so that it is shown to stand alone. A
file that uses one of the standard library's common names includes the header of that name, or
includes a file of the tree that does.
"""

import re
import sys
from pathlib import Path

import sources

HEADERS = {
    "algorithm": "all_of any_of copy count count_if equal find find_if none_of sort transform",
    "array": "array to_array",
    "atomic": "atomic atomic_flag",
    "charconv": "from_chars to_chars",
    "chrono": "chrono",
    "condition_variable": "condition_variable",
    "cstdint": "int32_t int64_t uint16_t uint32_t uint64_t uint8_t",
    "deque": "deque",
    "filesystem": "filesystem",
    "fstream": "ifstream ofstream",
    "functional": "function",
    "future": "async future packaged_task promise",
    "map": "map",
    "memory": "make_shared make_unique shared_ptr unique_ptr weak_ptr",
    "mutex": "lock_guard mutex scoped_lock unique_lock",
    "optional": "nullopt optional",
    "random": "mt19937 uniform_int_distribution",
    "set": "set",
    "span": "span",
    "sstream": "istringstream ostringstream stringstream",
    "string": "string to_string",
    "string_view": "string_view",
    "thread": "thread",
    "tuple": "tie tuple",
    "variant": "get_if holds_alternative variant visit",
    "vector": "vector",
}
_HOME = {name: header for header, names in HEADERS.items() for name in names.split()}

_INCLUDE = re.compile(r'^#include (?:"([^"]+)"|<([^>]+)>)(?: //.*)?$')
_STARTS = re.compile(r"^[ \t]*#[ \t]*include\b")
_USES = re.compile(r"\bstd::(\w+)")


def included(root, path):
    """(line, name in quotes or None, name in brackets or None); both None: no known spelling."""
    for line in (root / path).read_text(encoding="utf-8").splitlines():
        if _STARTS.match(line):
            match = _INCLUDE.match(line)
            yield line, *(match.groups() if match else (None, None))


def own_header(root, path):
    """The header that a source belongs to; a test belongs to none."""
    header = path.with_suffix(".h")
    return header.as_posix() if path.suffix == ".cpp" and (root / header).is_file() else None


def line_faults(root, path):
    seen = set()
    for line, quoted, angled in included(root, path):
        if quoted is None and angled is None:
            yield f"{path}: {line}: not spelled as the others are"
        elif line in seen:
            yield f"{path}: {line}: stands here twice"
        elif quoted and set(quoted.split("/")) & {"", ".", ".."}:
            yield f"{path}: {line}: not the plain path from the root"
        elif angled and (root / angled).is_file():
            yield f"{path}: {line}: a file of the tree stands in quotes"
        seen.add(line)


def order_faults(root, path):
    header = own_header(root, path)
    first = next((quoted for _, quoted, _ in included(root, path)), None)
    if header and first != header:
        yield f'{path}: its own header "{header}" is not included first'


def missing(root, path):
    """The headers of names that the file uses and takes from nowhere."""
    at_hand = set()
    for _, quoted, angled in included(root, path):
        at_hand.add(angled)
        if quoted and (root / quoted).is_file():
            at_hand |= {angled for _, _, angled in included(root, quoted)}
    names = _USES.findall(sources.blanked((root / path).read_text(encoding="utf-8")))
    return sorted({_HOME[name] for name in names if name in _HOME} - at_hand)


def violations(root):
    for path in sources.files(root):
        yield from line_faults(root, path)
        yield from order_faults(root, path)
        for header in missing(root, path):
            yield f"{path}: uses names of <{header}> and does not include it"


if __name__ == "__main__":
    sys.exit(sources.report(violations(Path(sys.argv[1]).resolve())))
