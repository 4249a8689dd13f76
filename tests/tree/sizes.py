"""Checks how long functions and files are, and that each folder says what it is: sizes.py ROOT"""

import re
import statistics
import sys
from pathlib import Path

import sources

USUAL_FUNCTION = 15  # most functions are shorter
LONG_FUNCTION = 30  # one in ten is longer at most
LONGEST_FUNCTION = 80
MEDIAN_FILE = 200
LONGEST_FILE = 500

_BRACE = re.compile(r"[{};]")
# What stands before the brace of something that is no function.
_NO_FUNCTION = re.compile(r"\b(class|struct|enum|union|namespace|extern)\b(?![^(]*\()|=\s*$|^\s*$")
_MACRO_LINE = re.compile(r"^[ \t]*#.*(\\\n.*)*$", re.MULTILINE)


def functions(text):
    """(first line, count of lines) of each outermost body with parameters before it."""
    code = _MACRO_LINE.sub(lambda m: re.sub(r"[^\n]", " ", m.group()), sources.blanked(text))
    found = []
    open_braces = []  # True for a function's own brace
    head_start = 0
    for match in _BRACE.finditer(code):
        if match.group() == "{":
            head = code[head_start : match.start()]
            is_function = True not in open_braces and "(" in head and not _NO_FUNCTION.search(head)
            open_braces.append(is_function)
            if is_function:
                start = match.start()
        elif match.group() == "}" and open_braces:
            if open_braces.pop():
                lines = code.count("\n", start, match.start()) + 1
                found.append((code.count("\n", 0, start) + 1, lines))
        head_start = match.end()
    return found


def function_faults(lengths_by_place):
    for place, lines in lengths_by_place:
        if lines > LONGEST_FUNCTION:
            yield f"{place}: a function of {lines} lines; {LONGEST_FUNCTION} are the most"
    lengths = [lines for _, lines in lengths_by_place]
    longer = sum(lines > LONG_FUNCTION for lines in lengths)
    usual = sum(lines < USUAL_FUNCTION for lines in lengths)
    if longer * 10 > len(lengths):
        yield f"{longer} of {len(lengths)} functions are longer than {LONG_FUNCTION} lines"
    if lengths and usual * 2 <= len(lengths):
        yield f"only {usual} of {len(lengths)} functions are shorter than {USUAL_FUNCTION} lines"


def file_faults(lines_by_path):
    for path, lines in lines_by_path.items():
        if lines > LONGEST_FILE:
            yield f"{path}: {lines} lines; {LONGEST_FILE} are the most"
    if lines_by_path and statistics.median(lines_by_path.values()) >= MEDIAN_FILE:
        yield f"half of the files have {MEDIAN_FILE} lines or more"


def readme_faults(root):
    """Every folder that is a target of its own says what lives in it; tests/ says it once."""
    folders = {path.parent for path in sources.files(root, ["CMakeLists.txt"])}
    for folder in sorted(folders):
        if folder.parts[:1] != ("tests",) and not (root / folder / "README.md").is_file():
            yield f"{folder}: has no README.md"
    if (root / "tests").is_dir() and not (root / "tests/README.md").is_file():
        yield "tests: has no README.md"


def violations(root):
    texts = {p: (root / p).read_text(encoding="utf-8") for p in sources.files(root)}
    found = []
    # The tests must not lend the programs their short functions, nor the other way round.
    for is_test in (False, True):
        group = {p: t for p, t in texts.items() if (p.parts[0] == "tests") == is_test}
        found += function_faults(
            [(f"{p}:{line}", n) for p, t in group.items() for line, n in functions(t)]
        )
        found += file_faults({p: t.count("\n") for p, t in group.items()})
    scripts = {p: (root / p).read_text().count("\n") for p in sources.files(root, [".py"])}
    return found + list(file_faults(scripts)) + list(readme_faults(root))


if __name__ == "__main__":
    sys.exit(sources.report(violations(Path(sys.argv[1]).resolve())))
