"""The source files of the tree, and their text without what the compiler does not read."""

import os
import re
from pathlib import Path

CODE = (".cpp", ".h")

# A string, a character, or a comment: whichever starts first wins, as in the language.
_NOT_CODE = re.compile(
    r'R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"|'
    r"(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'|//[^\n]*|/\*.*?\*/",
    re.DOTALL,
)


def files(root, suffixes=CODE):
    """Paths relative to the root, sorted. Builds and hidden folders are no sources."""
    found = []
    for folder, inner, names in os.walk(root):
        inner[:] = [name for name in inner if name != "build" and not name.startswith(".")]
        found += [Path(folder, name) for name in names if name.endswith(tuple(suffixes))]
    return sorted(path.relative_to(root) for path in found)


def blanked(text):
    """The text with every comment, string and character blanked; its lines stay in their place."""
    return _NOT_CODE.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)


def report(violations):
    """Prints each violation and gives the exit code that tells whether there was one."""
    found = 0
    for violation in violations:
        print(violation, flush=True)
        found = 1
    return found
