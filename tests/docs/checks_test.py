"""Each check of the documents is shown what is right, and then each fault that it looks for."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tree"))

import check_architecture
import check_commands
import check_facts
import check_guide
import check_links
from documents import Document
from planted import TreeTest

LINKS_RIGHT = (
    "[a](docs/other.md#two-words) [b](#top-1) `usb/Pipe.h` `Pipe.h` `[c](gone)`\n# Top\n# Top\n"
    "[c]: https://example.org/\n```\n[d](gone)\n```\n```sh\n./go  # on\nbuild/x\n```\n"
)
LINKS_WRONG = [
    ("[a](docs/gone.md)", "README.md:12: docs/gone.md leads nowhere"),
    ("[a](docs/other.md#three)", "README.md:12: docs/other.md#three: no such heading"),
    ("`usb/Gone.h`", "README.md:12: there is no usb/Gone.h"),
    ("`Lost.cpp`", "README.md:12: there is no Lost.cpp"),
    ("```sh\n./gone\n```", "README.md:13: there is no program ./gone"),
    ("```console\n$ usb/Pipe.h\n```", "README.md:13: there is no program usb/Pipe.h"),
]

HELP = """#!/bin/bash
case "$*" in
--help) printf 'Options:\\n  --virtual  x\\nSubcommands:\\n  read  x\\n' ;;
"read --help") printf 'Options:\\n  --fast  x\\n' ;;
*) echo "ran $*" ;;
esac
"""
SESSION = "```console\n{}\n```\n"
SCRIPT = "```sh\n{}\n```\n"
COMMANDS_RIGHT = [
    SESSION.format("$ scenewright-cli read x\nran read x"),
    SESSION.format("$ seq 9\n1\n...\n9"),
    SESSION.format("$ cat > a <<'E'\n> one\n> E") + SESSION.format("$ cat ~/a\none"),
    "<!-- not run: no root -->\n" + SESSION.format("$ false\nyes"),
    SCRIPT.format("false"),
    "`scenewright-cli --virtual read --fast x`\n",
]
COMMANDS_WRONG = [
    (SESSION.format("$ scenewright-cli read x\nran read y"), ":2: `scenewright-cli read x` prints"),
    (SESSION.format("$ seq 9\n1\n...\n8"), ":2: `seq 9` prints"),
    ("<!-- not run -->\n" + SESSION.format("$ false\nyes"), ":3: `false` prints"),
    ("<!-- run -->\n" + SCRIPT.format("false"), ":3: the commands end with 1:"),
    (SCRIPT.format("if true; then"), ":2: the commands end with "),
    ("\n    scenewright-cli read --slow x\n", ":2: scenewright-cli has no --slow"),
    (SCRIPT.format("scenewright-cli read --slow | a --fast"), ":2: scenewright-cli has no --slow"),
]

NEEDS = "## What it needs\n| CMake, at least 3.9 | | `one`, `two` | 1 |\n## More\n| | | `x` | |\n"
FACTS_RIGHT = {
    "CMakeLists.txt": "cmake_minimum_required(VERSION 3.9)\nproject(x VERSION 1.2.3 LANGUAGES CXX)\n",
    "packaging/packages.txt": "# build nothing\nbuild one\nbuild two\ntest three\n",
    "packaging/get-it": "echo 'Cannot get x'\n",
    "app/A.cpp": 'tell("No keyboard is "\n     "there: {}");\n',
    "docs/troubleshooting.md": "`No keyboard is there`, `Cannot get ...`\n\n`b` is no message\n",
    "docs/packaging.md": NEEDS,
    "docs/a.png": "a",
    "docs/b.svg": "b",
    "README.md": "Version 1.2.3. ![a](docs/a.png) [b](docs/b.svg)\n",
}
FACTS_WRONG = [
    ("README.md", "Version 1.2.4 ![](docs/a.png) [](docs/b.svg)", "README.md: the version: 1.2.4 "),
    ("docs/packaging.md", NEEDS.replace("3.9", "3.8"), "docs/packaging.md: the least CMake: 3.8"),
    ("docs/packaging.md", NEEDS.replace(", `two`", ""), "docs/packaging.md: the packages: ['one']"),
    ("README.md", "Version 1.2.3. ![a](docs/a.png)", "docs/b.svg: no document shows it"),
    ("docs/troubleshooting.md", "\n`No cat ...`", "docs/troubleshooting.md:2: nothing says No cat"),
    ("docs/b.svg", "a", "docs/b.svg: the same as docs/a.png"),
]

GUIDE_RIGHT = '<a href="b.html#b">x</a> <a href="#a">x</a> <a href="a.png">x</a> <img src="a.png">'
GUIDE_WRONG = [
    ('<a href="gone.html">x</a>', "guide.html: gone.html leads nowhere"),
    ('<a href="b.html#c">x</a>', "guide.html: b.html#c: no such heading"),
    ('<img src="https://example.org/a.png">', "https://example.org/a.png is not in the guide"),
    ('<link rel="stylesheet" href="gone.css">', "guide.html: gone.css is not in the guide"),
]

PICTURE = "| high |\n| low |\n"
LOW, HIGH = "| [`low`](low) | | x |", "| [`high`](high) | what `low` may, `low` | x |"
ARCHITECTURE_WRONG = [
    (PICTURE, LOW, "| [`high`](high) | | x |", "the row of high differs from"),
    (PICTURE, LOW, "", "high is not in both the table and"),
    ("| low high |\n", LOW, HIGH, "in the picture high does not stand above low"),
]


class Checks(TreeTest):
    def check_finds(self, faults, right, wrong, told):
        with self.subTest(told):
            self.assertEqual(faults(*right), [])
            found = faults(*wrong)
            self.assertEqual(len(found), 1, found)
            self.assertIn(told, found[0])

    def links(self, readme):
        self.write("README.md", readme)
        self.write("usb/Pipe.h", "")
        self.write("go", "", 0o755)
        self.write("docs/other.md", "## Two `words`\n")
        return list(check_links.faults(self.root))

    def test_links(self):
        for line, told in LINKS_WRONG:
            self.check_finds(self.links, [LINKS_RIGHT], [LINKS_RIGHT + line + "\n"], told)
        told = "docs/other.md: no link leads here from README.md"
        self.check_finds(self.links, [LINKS_RIGHT], ["nothing\n"], told)

    def commands(self, text):
        self.write("bin/scenewright-cli", HELP, 0o755)
        self.write("README.md", text)
        return list(check_commands.faults(self.root, str(self.root / "bin")))

    def test_commands(self):
        for text, told in COMMANDS_WRONG:
            self.check_finds(self.commands, ["".join(COMMANDS_RIGHT)], [text], "README.md" + told)

    def facts(self, files):
        for path, text in files.items():
            self.write(path, text)
        return list(check_facts.faults(self.root))

    def test_facts(self):
        for path, text, told in FACTS_WRONG:
            self.check_finds(self.facts, [FACTS_RIGHT], [{**FACTS_RIGHT, path: text}], told)

    def guide(self, text):
        self.write("guide.html", f'<h1 id="a">a</h1>{text}')
        self.write("b.html", '<h1 id="b">b</h1>')
        self.write("a.png", "")
        return list(check_guide.faults(self.root))

    def test_guide(self):
        for text, told in GUIDE_WRONG:
            self.check_finds(self.guide, [GUIDE_RIGHT], [GUIDE_RIGHT + text], told)
        self.assertEqual(len(list(check_guide.faults(self.root / "empty"))), 1)

    def architecture(self, picture, *rows):
        self.write("a.md", "```\n" + picture + "```\n" + "".join(row + "\n" for row in rows))
        return list(check_architecture.faults(Document(self.root, "a.md")))

    def test_architecture(self):
        kept = check_architecture.ALLOWED
        self.addCleanup(setattr, check_architecture, "ALLOWED", kept)
        check_architecture.ALLOWED = {"low": set(), "high": {"low"}}
        for *wrong, told in ARCHITECTURE_WRONG:
            self.check_finds(self.architecture, [PICTURE, LOW, HIGH], wrong, told)


if __name__ == "__main__":
    unittest.main()
