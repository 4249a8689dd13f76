#!/usr/bin/env python3
"""The options and commands that a program tells of in its --help.

help_words.py PROGRAM prints them in order, one a line: a dot for the program itself, or the command
they belong to, and the word.
"""

import re
import subprocess
import sys

OPTION_LINE = re.compile(r"^  (-[^ ]*)")
COMMAND_LINE = re.compile(r"^  ([a-z][a-z-]*)(  |$)")


def help_of(program, *command):
    run = subprocess.run([program, *command, "--help"], capture_output=True, text=True, check=True)
    return run.stdout.splitlines()


def section(lines, title):
    """The lines under a title, up to the next empty line."""
    if title not in lines:
        return []
    rest = lines[lines.index(title) + 1 :]
    return rest[: rest.index("")] if "" in rest else rest


def options(program, *command):
    """The long options, with their dashes."""
    lines = section(help_of(program, *command), "Options:")
    found = [OPTION_LINE.match(line) for line in lines]
    names = [name for match in found if match for name in match.group(1).split(",")]
    return [re.match(r"--[a-z-]+", name).group(0) for name in names if name.startswith("--")]


def commands(program):
    lines = section(help_of(program), "Subcommands:")
    found = [COMMAND_LINE.match(line) for line in lines]
    return [match.group(1) for match in found if match]


if __name__ == "__main__":
    path = sys.argv[1]
    rows = [(".", word) for word in options(path) + commands(path)]
    rows += [(command, word) for command in commands(path) for word in options(path, command)]
    print("\n".join(f"{of} {word}" for of, word in sorted(rows)))
