"""Runs a code checker over the tree: code_checks.py format|scripts|spelling|cppcheck|tidy ROOT BUILD

What passed is kept under BUILD/checked by the digest of all that the answer depends on, so that a
second run takes up only what has changed since.
"""

import collections
import concurrent.futures
import functools
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys
from pathlib import Path

import sources

# Together with the compiler's own warnings. Suppressed: what cppcheck cannot know of the system's
# headers, and functions that it sees no caller of because tests call them.
CPPCHECK = [
    "cppcheck",
    "--quiet",
    "--std=c++20",
    "--language=c++",
    "--enable=warning,performance,portability",
    "--inline-suppr",
    "-DQ_DISABLE_COPY_MOVE(type)=",  # of the toolkit, whose headers it does not read
    "--error-exitcode=1",
    "--suppress=missingInclude",
    "--suppress=missingIncludeSystem",
    "--suppress=internalAstError",
]

_TAKES_NAMES_IN = re.compile(r"^using (enum|namespace)\b", re.MULTILINE)

# The checkers take in nothing before the file itself: they see what it includes.
_NOT_FOR_CHECKERS = re.compile(
    r" -Winvalid-pch|( -Xclang)? -include(-pch)?( -Xclang)? \S*cmake_pch\.hxx(\.pch)?"
    r"| -Wno-maybe-uninitialized| -O1(?= )"
)

_INCLUDE_LINE = re.compile(r"^#include .*$", re.MULTILINE)

_OWN_NAMESPACE = re.compile(r"^namespace \{$.*?^\} // namespace$", re.MULTILINE | re.DOTALL)

# In the first line of a definition that stands in no other, without what is in < >.
_DEFINITION = re.compile(
    r"^(?:(?:using|struct|class|enum(?: class)?) (\w+)(?= =| [:{])"
    r"|(?:\[\[nodiscard\]\] )?(?!namespace|using)\w[\w:&* ]*[ *&](\w+)(?: =|[({;]))",
    re.MULTILINE,
)

_INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"]+)"', re.MULTILINE)


def run(command, folder=None):
    """(whether it went well, what it said)"""
    done = subprocess.run(command, cwd=folder, capture_output=True, text=True, check=False)
    return done.returncode == 0, done.stdout + done.stderr


@functools.lru_cache(maxsize=None)
def closure(root, name):
    """A file and every file of the tree that it includes, directly or not."""
    found = {name}
    waiting = [name]
    while waiting:
        for include in _INCLUDE.findall((root / waiting.pop()).read_text(errors="replace")):
            if include not in found and (root / include).is_file():
                found.add(include)
                waiting.append(include)
    return tuple(sorted(found))


class Passed:
    """Remembers what passed; forgets it with any change of the parts."""

    def __init__(self, folder):
        self.folder = folder
        folder.mkdir(parents=True, exist_ok=True)

    def mark(self, root, names, *parts):
        digest = hashlib.sha256("\0".join(parts).encode())
        for name in names:
            digest.update(b"\0" + name.encode() + b"\0" + (root / name).read_bytes())
        return self.folder / digest.hexdigest()


def format_command(root, path):
    return ["clang-format", "--dry-run", "-Werror", str(root / path)]


def tidy_command(root, commands, path):
    """`commands` is the folder of the compile commands, unless they follow."""
    config = f"--config-file={root / '.clang-tidy'}"
    return ["clang-tidy", "--quiet", config, f"-p={commands}", str(root / path)]


def program_entries(root, build):
    """The compile commands of the programs' own translation units, one a file; generated ones are left
    out, and so are the tests, whose macros take the checker most of its time."""
    found = set()
    for entry in json.loads((build / "compile_commands.json").read_text()):
        path = Path(entry["file"])
        inside = path.is_relative_to(root) and not path.is_relative_to(build)
        if inside and path not in found and path.relative_to(root).parts[0] != "tests":
            found.add(path)
            entry["command"] = _NOT_FOR_CHECKERS.sub("", entry["command"])
            yield path.relative_to(root).as_posix(), entry


def program_units(root, build):
    for name, entry in program_entries(root, build):
        yield name, entry["command"]


def check_one(root, passed, name, parts, command):
    mark = passed.mark(root, closure(root, name), *parts)
    if mark.exists():
        return ""
    good, output = run(command)
    if good:
        mark.touch()
        return ""
    return output or f"{name}: {command[0]} failed and said nothing"


def blamed(root, names, folder, output):
    """Those of the files that errors stand in, or in what they include."""
    found = re.findall(r"^(.+?):\d+:\d+: (?:fatal )?error: ", output, re.MULTILINE)
    faulty = {os.path.realpath(os.path.join(folder, file)) for file in found}
    return [n for n in names if faulty & {str(root / part) for part in closure(root, n)}]


def joined_flags(commands):
    """What the compiler is called with for one unit of all: each flag that any names, once."""
    flags = [tuple(re.findall(r"(?:-isystem |-Xclang )?\S+", command)) for command in commands]
    return shlex.split(" ".join(dict.fromkeys(flag for each in flags for flag in each)))


def names_of(code):
    """What a text defines outside of any other definition."""
    while code != (code := re.sub(r"<[^<>\n]*>", "", code)):
        pass
    return {name for each in _DEFINITION.finditer(code) for name in each.groups() if name}


def own_names(text):
    """What a file defines for itself, and names nowhere as a member: that of its namespace without a
    name, and a program's main."""
    own = names_of(sources.blanked("".join(_OWN_NAMESPACE.findall(text))))
    own |= set(re.findall(r"^int (main)\(", text, re.MULTILINE))
    return own - set(re.findall(r"(?:\.|->|::)(\w+)", text))


def one_unit(root, names):
    """The text that includes all the files. What a file defines for itself has a name of its own there
    if another file defines the same, but for the headers that the file includes."""
    headers = {part for name in names for part in closure(root, name) if part not in names}
    texts = {part: (root / part).read_text() for part in [*names, *headers]}
    users = collections.Counter(
        word for text in texts.values() for word in names_of(sources.blanked(text))
    )
    unit = ""
    for number, name in enumerate(names):
        own = sorted(word for word in own_names(texts[name]) if users[word] > 1)
        if own:
            unit += "".join(f"{line}\n" for line in _INCLUDE_LINE.findall(texts[name]))
        unit += "".join(f"#define {word} {word}{number}\n" for word in own)
        # Another file's including is what makes it one unit.
        unit += f'#include "{root / name}" // NOLINT(bugprone-suspicious-include)\n'
        unit += "".join(f"#undef {word}\n" for word in own)
    return unit


def tidy_together(root, build, passed, jobs):
    """Marks what passes when it is checked as one unit with other files: most of the checker's time
    goes into headers that they share. What does not pass so is checked by itself."""
    marks = {name: passed.mark(root, closure(root, name), *parts) for name, parts, _ in jobs}
    entries = {n: entry for n, entry in program_entries(root, build) if not marks[n].exists()}
    if len(entries) < 2:
        return
    folder = next(iter(entries.values()))["directory"]
    unit = build / "checked" / "unit.cpp"
    # That a name hides another file's is no fault; the build says where it hides one of its own.
    flags = [entry["command"].split(" -o ")[0].split(" ", 1)[1] for entry in entries.values()]
    flags = [*joined_flags(flags), "-Wno-shadow"]
    compiler = ["clang++", *flags, "-w", "-ferror-limit=0", "-fsyntax-only", str(unit)]
    tidy = [*tidy_command(root, build, unit), "--", *flags]

    def passing(names, command):
        """Those of the files that the command passes as one unit, as far as they are given."""
        while len(names) > 1:
            unit.write_text(one_unit(root, names))
            good, output = run(command, folder)
            if good:
                return names
            out = blamed(root, names, folder, output) or names
            names = [name for name in names if name not in out]
        return []

    # Names that a file takes in reach those that follow it.
    names = sorted(entries, key=lambda name: bool(_TAKES_NAMES_IN.search((root / name).read_text())))
    while unit_names := passing(names, compiler):
        for name in passing(unit_names, tidy):
            marks[name].touch()
        names = [name for name in names if name not in unit_names]


def format_together(root, passed, jobs):
    """Marks all if all pass in one call: half of the time goes into starting the checker."""
    marks = {name: passed.mark(root, closure(root, name), *parts) for name, parts, _ in jobs}
    names = [name for name, mark in marks.items() if not mark.exists()]
    if names and run([*format_command(root, names[0]), *(str(root / n) for n in names[1:])])[0]:
        for name in names:
            marks[name].touch()


def check_all(root, build, kind, jobs):
    """What was found, as it is found. jobs: (name, what its answer depends on beside the files,
    command)"""
    passed = Passed(build / "checked" / kind)
    if kind == "tidy":
        tidy_together(root, build, passed, jobs)
    elif kind == "format":
        format_together(root, passed, jobs)
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        for output in pool.map(lambda job: check_one(root, passed, *job), jobs):
            if output:
                yield output


def version(program):
    return run([program, "--version"])[1]


# The versions whose opinions this tree follows. Another one lays code out anew or knows other words,
# which says nothing about the tree: there the check is skipped, and says so.
KNOWN = {
    "format": ("clang-format", ("14",)),
    "scripts": ("shellcheck", ("0.9", "0.10")),
    "spelling": ("codespell", ("2.2",)),
    "cppcheck": ("cppcheck", ("2.10",)),
    "tidy": ("clang-tidy", ("14",)),
}
SKIPPED = 77  # as tests/tree/CMakeLists.txt tells ctest


def why_skipped(kind):
    """A sentence when the tool of this kind has a version that is not known."""
    program, known = KNOWN[kind]
    number = re.search(r"\d+(\.\d+)+", version(program)).group()
    if any(f"{number}.".startswith(f"{each}.") for each in known):
        return ""
    return f"Skipped: the tree follows {program} {' and '.join(known)}, and this is {number}."


def format_jobs(root, _):
    parts = [version("clang-format"), (root / ".clang-format").read_text()]
    return [(p.as_posix(), parts, format_command(root, p)) for p in sources.files(root)]


def tidy_jobs(root, build):
    parts = [version("clang-tidy"), (root / ".clang-tidy").read_text()]
    alone = build / "checked" / "alone"
    alone.mkdir(parents=True, exist_ok=True)
    entries = [entry for _, entry in program_entries(root, build)]
    (alone / "compile_commands.json").write_text(json.dumps(entries))
    return [
        (name, [*parts, command], tidy_command(root, alone, name))
        for name, command in program_units(root, build)
    ]


def cppcheck_jobs(root, build):
    parts = [version("cppcheck"), " ".join(CPPCHECK)]
    return [
        (name, parts, [*CPPCHECK, f"-I{root}", str(root / name)])
        for name, _ in program_units(root, build)
    ]


def scripts(root):
    """The shell scripts, known by their first line wherever they stand."""
    for path in [*sources.files(root, [""]), Path(".ci/run")]:
        if not path.suffix and (root / path).is_file():
            with open(root / path, "rb") as file:
                if file.read(32).startswith((b"#!/bin/bash\n", b"#!/bin/sh\n")):
                    yield path.as_posix()


def script_jobs(root, _):
    parts = [version("shellcheck")]
    return [(name, parts, ["shellcheck", str(root / name)]) for name in scripts(root)]


JOBS = {
    "format": format_jobs,
    "scripts": script_jobs,
    "cppcheck": cppcheck_jobs,
    "tidy": tidy_jobs,
}

if __name__ == "__main__":
    kind, root, build = sys.argv[1], Path(sys.argv[2]).resolve(), Path(sys.argv[3]).resolve()
    if reason := why_skipped(kind):
        print(reason)
        sys.exit(SKIPPED)
    if kind == "spelling":
        sys.exit(subprocess.run(["codespell", "."], cwd=root, check=False).returncode)
    jobs = JOBS[kind](root, build)
    if not jobs:
        sys.exit(f"nothing to check in {root}")
    sys.exit(sources.report(check_all(root, build, kind, jobs)))
