"""Checks the commands in the documents: check_commands.py ROOT PROGRAMS

A ```console block is a session: each line after "$ " is typed (lines after "> " go on with it), and
what it prints must be what stands below it, where a line of three dots is any number of lines. A
```sh block is run when the line above it says <!-- run -->, and only parsed otherwise. The blocks of
one document share a folder, which is also the home folder. The line <!-- not run: REASON --> above a
session leaves it out.

Wherever a document calls a program of the tree, the options it gives it are ones of its --help.
"""

import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

from documents import documents

_PROGRAM = re.compile(r"(?<![\w/.-])(scenewright(?:-cli|-virtual)?)((?:[ ]+[^|;&()`#\n]+)?)")
_OPTION = re.compile(r"(?<![\w-])--[a-z][a-z-]*")
_ANYTHING = "..."


def environment(programs, home):
    kept = {key: os.environ[key] for key in ("LANG", "TERM") if key in os.environ}
    return {**kept, "PATH": f"{programs}:/usr/bin:/bin", "HOME": home, "LC_ALL": "C.UTF-8"}


def shell(text, programs, home):
    done = subprocess.run(
        ["bash", "-c", text], cwd=home, env=environment(programs, home), stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=60, check=False)
    return done.returncode, done.stdout


def steps(lines):
    """(command, lines that it prints) of a session"""
    found = []
    for line in lines:
        if line.startswith("$ "):
            found.append((line[2:], []))
        elif line.startswith("> ") and found and not found[-1][1]:
            found[-1] = (found[-1][0] + "\n" + line[2:], [])
        elif found:
            found[-1][1].append(line)
    return found


def matches(printed, wanted):
    if _ANYTHING not in wanted:
        return printed == wanted
    pattern = "".join(
        "(.*\n)*" if line == _ANYTHING else re.escape(line) + "\n" for line in wanted)
    return re.fullmatch(pattern, "".join(line + "\n" for line in printed)) is not None


def session_faults(block, programs, home):
    for command, wanted in steps(block.lines):
        _, output = shell(command, programs, home)
        if not matches(output.splitlines(), wanted):
            yield f"`{command}` prints\n{output}"


def script_faults(block, programs, home):
    text = "\n".join(block.lines)
    code, output = shell(text if block.remark == "run" else f"bash -n <<'EOF'\n{text}\nEOF",
                         programs, home)
    if code != 0:
        yield f"the commands end with {code}:\n{output}"


def block_faults(document, programs):
    with tempfile.TemporaryDirectory() as home:
        for block in document.blocks:
            found = []
            if block.language == "console" and not block.remark.startswith("not run: "):
                found = session_faults(block, programs, home)
            elif block.language == "sh":
                found = script_faults(block, programs, home)
            for fault in found:
                yield f"{document.name}:{block.number}: {fault}"


def all_options(programs, name):
    """The options of a program and of each of its commands."""
    path = Path(programs) / name

    def told(*command):
        return subprocess.run([path, *command, "--help"], capture_output=True, text=True,
                              check=True).stdout

    text = told()
    for command in re.findall(r"^  ([a-z][a-z-]*)  ", text.partition("Subcommands:")[2], re.M):
        text += told(command)
    return set(re.findall(r"--[a-z][a-z-]*", text))


def calls(document):
    """(line number, program, option) of every option that a document gives to a program"""
    lines = list(document.names())
    for block in document.blocks:
        lines += [(block.number + index, line) for index, line in enumerate(block.lines)
                  if block.language in ("console", "sh")]
    for number, line in lines:
        for program, arguments in _PROGRAM.findall(line):
            for option in _OPTION.findall(arguments):
                yield number, program, option


def option_faults(document, programs, known):
    for number, program, option in calls(document):
        if program not in known:
            known[program] = all_options(programs, program)
        if option not in known[program]:
            yield f"{document.name}:{number}: {program} has no {option}"


def faults(root, programs):
    known = {}
    for document in documents(root):
        yield from block_faults(document, programs)
        yield from option_faults(document, programs, known)


if __name__ == "__main__":
    told = list(faults(Path(sys.argv[1]), str(Path(sys.argv[2]).resolve())))
    print("\n".join(told))
    sys.exit(1 if told else 0)
