"""What would keep this tree from building on another release of the system, or for another processor,
and can be seen here without one."""

import re
import subprocess
import unittest
from pathlib import Path

import sources

ROOT = Path(__file__).resolve().parents[2]

VERSIONED = re.compile(r"^lib((?!-dev$).)*\d[a-z]?(t64)?$|^(g\+\+|gcc|clang[a-z-]*|python3\.)-?\d+$")
ARGUMENT_NAME = re.compile(r"^(--)?[A-Za-z][A-Za-z-]*$")
BUILD_COMMAND = re.compile(r"\badd_custom_(?:command|target)\((?:[^()]|\([^()]*\))*?\)", re.DOTALL)

# What the build runs is the machine's own: cmake, gzip, Qt's translator and a script, and nothing that
# it built.
RUN_BY_THE_BUILD = {
    "${CMAKE_COMMAND}", "gzip", "Qt6::lrelease", "${CMAKE_CURRENT_SOURCE_DIR}/page"
}


# What a version of a library has in other headers too, and another version in this one alone.
DECLARED_IN = {
    "fmt::join(": "<fmt/ranges.h>",
    "std::back_inserter(": "<iterator>",
    "std::istream_iterator<": "<iterator>",
}


def undeclared(text):
    return [
        word for word, header in DECLARED_IN.items()
        if word in text and f"#include {header}\n" not in text
    ]


def versioned(names):
    """Packages whose names hold on one release; what is built with brings the libraries along."""
    return [name for name in names if VERSIONED.search(name)]


def argument_names(text):
    """In the table of a program's command line, of the program and of its commands."""
    return re.findall(r'\{"name": "([^"]*)", "kind"', text)


def refused_names(names):
    """Names of arguments that a version of the parser refuses, when the program starts."""
    return [name for name in names if not ARGUMENT_NAME.search(name)]


def built_commands(text):
    """What the build would run beside the programs that are known to be the machine's."""
    commands = BUILD_COMMAND.findall(text)
    run = {name for command in commands for name in re.findall(r"\bCOMMAND\s+(\S+)", command)}
    return sorted(run - RUN_BY_THE_BUILD)


def preset_variables(preset):
    """What the preset sets, as cmake itself resolves it."""
    command = ["cmake", "-S", ROOT, "--preset", preset, "-N"]
    shown = subprocess.run(command, capture_output=True, text=True, check=True).stdout
    return dict(re.findall(r'^  (\w+)="(.*)"$', shown, re.MULTILINE))


class OtherSystems(unittest.TestCase):
    def texts(self, *suffixes):
        names = [name for name in sources.files(ROOT, suffixes) if name.parts[0] != "tests"]
        return "\n".join((ROOT / name).read_text() for name in names)

    def test_no_package_is_named_by_the_version_of_one_release(self):
        wrong = ["libfmt9", "libplist3", "libqt6widgets6t64", "g++-12", "clang-tidy-14"]
        self.assertEqual(versioned(wrong), wrong)
        lines = (ROOT / "packaging/packages.txt").read_text().splitlines()
        names = [line.split()[1] for line in lines if line and not line.startswith("#")]
        self.assertIn("libfmt-dev", names)
        self.assertEqual(versioned(names), [])

    def test_every_version_of_the_parser_takes_the_names_of_arguments(self):
        self.assertEqual(refused_names(["PATH=VALUE", "A B", "--to", "IN"]), ["PATH=VALUE", "A B"])
        names = argument_names(self.texts("command-line.json", "launch-options.json"))
        self.assertGreater(len(names), 20)
        for name in ("--virtual", "--listen", "ASSIGNMENT"):
            self.assertIn(name, names)
        self.assertEqual(refused_names(names), [])

    def test_what_moves_between_headers_is_included_from_where_it_stays(self):
        self.assertEqual(undeclared("#include <fmt/format.h>\nfmt::join(a)"), ["fmt::join("])
        self.assertEqual(undeclared("#include <fmt/ranges.h>\nfmt::join(a)"), [])
        names = sources.files(ROOT, (".cpp", ".h"))
        texts = {name: (ROOT / name).read_text() for name in names}
        self.assertTrue(any("fmt::join(" in text for text in texts.values()))
        self.assertEqual({name: found for name, text in texts.items() if (found := undeclared(text))}, {})

    def test_the_build_runs_nothing_that_it_built(self):
        planted = "add_custom_command(OUTPUT a\n COMMAND gzip a\n COMMAND $<TARGET_FILE:b> (c)\n)"
        self.assertEqual(built_commands(planted), ["$<TARGET_FILE:b>"])
        self.assertEqual(built_commands("add_custom_target(a COMMAND scenewright-cli)"),
                         ["scenewright-cli)"])
        text = self.texts("CMakeLists.txt", ".cmake")
        self.assertGreater(len(BUILD_COMMAND.findall(text)), 4)
        self.assertEqual(built_commands(text), [])

    def test_a_warning_stops_developers_and_nobody_who_builds_to_use(self):
        for preset in ("dev", "tsan", "fuzz", "coverage"):
            self.assertEqual(preset_variables(preset)["SCENEWRIGHT_WERROR"], "ON", preset)
        for preset in ("release", "bench", "arm64"):
            self.assertEqual(preset_variables(preset)["CMAKE_BUILD_TYPE"], "MinSizeRel")
            self.assertNotIn("SCENEWRIGHT_WERROR", preset_variables(preset), preset)
        options = (ROOT / "CMakeLists.txt").read_text()
        self.assertRegex(options, r"option\(SCENEWRIGHT_WERROR .* OFF\)")


if __name__ == "__main__":
    unittest.main()
