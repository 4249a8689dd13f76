"""The measures are shown a source with places in it, lists with faults, and counts that fall short."""

import subprocess
import unittest
from pathlib import Path

import campaign
import lines
import mutants
import reasons
from copy_of_tree import own_tests

from planted import TreeTest  # from tests/tree, where mutants looks too

ROOT = Path(__file__).resolve().parent.parent.parent

SOURCE = """\
#include "usb/A.h"
constexpr int kRows[] = {
    {1, 0x7F, "one"}, // a == b
    {2, 0x10, "two"},
};
static_assert(sizeof(kRows) == 2);
std::array<int, 4> kept;
int f(int a, bool b) {
    if (a < 3 && b)
        g(a);
    return a + 1;
    return std::nullopt;
}
"""
# Of each kind a mutant of the source, and the line that it changes.
MUTANTS = {
    "comparison": (9, "if (a <= 3 && b)"),
    "arithmetic": (11, "return a - 1;"),
    "boolean": (9, "if (!(a < 3 && b))"),
    "constant": (3, '{1, 0x80, "one"}, // a == b'),
    "table": (3, '{0x7F, 1, "one"}, // a == b'),
    "statement": (10, ";"),
    "return": (11, "return {};"),
    "text": (3, '{1, 0x7F, "pne"}, // a == b'),
}


class Mutants(TreeTest):
    def test_every_kind_is_planted_where_it_belongs_and_nowhere_else(self):
        found = mutants.candidates("usb/A.cpp", SOURCE)
        for kind, (line, after) in MUTANTS.items():
            told = {
                (one.line, "\n".join(text.strip() for text in one.after))
                for one in found
                if one.kind == kind
            }
            self.assertIn((line, after), told)
        self.assertEqual({one.line for one in found}, {3, 4, 9, 10, 11})
        for one in found:
            text = mutants.planted(SOURCE, one).splitlines()
            changed = [i for i, line in enumerate(SOURCE.splitlines()) if text[i] != line]
            self.assertEqual((changed[0], len(text)), (one.line - 1, SOURCE.count("\n")))

    def test_the_choice_is_as_large_as_asked_for_and_follows_the_seed(self):
        chosen = mutants.order(ROOT, 1)
        for group, share in mutants.shares(210).items():
            self.assertGreater(len(chosen[group]), share, group)
            places = [(mutant.path, mutant.line) for mutant in chosen[group]]
            self.assertEqual(len(places), len(set(places)))
        self.assertEqual(chosen, mutants.order(ROOT, 1))
        self.assertNotEqual(chosen, mutants.order(ROOT, 2))

    def test_every_group_has_suites_of_this_tree(self):
        text = "".join(path.read_text() for path in (ROOT / "tests").rglob("CMakeLists.txt"))
        self.assertEqual(set(campaign.SUITES), set(mutants.GROUPS))
        for suite in {suite for suites in campaign.SUITES.values() for suite in suites}:
            self.assertIn(f"scenewright_test({suite}\n", text)
        own = own_tests(ROOT, "protocol/SceneImage.cpp")
        self.assertEqual(own[0], "protocol-tests")
        self.assertIn("SceneImage", own[1])


LIST = """\
# a comment
usb/A.cpp
- if (a < 3)
+ if (a <= 3)
  It is never 3,
  as its caller sees to.
- f(a);
- f(b);
  Both.

usb/B.cpp
- c();
  No device.
"""


class Reasons(TreeTest):
    def test_an_entry_without_a_reason_a_line_or_a_path_is_refused(self):
        for text in ("usb/A.cpp\n- a();\n", "usb/A.cpp\n  Why.\n", "- a();\n  Why.\n"):
            with self.assertRaises(reasons.Malformed):
                reasons.parse(text)

    def test_a_line_that_is_gone_is_told(self):
        self.write("usb/A.cpp", "    if (a < 3)\n        f(a);\n        f(b);\n")
        gone = reasons.outdated(reasons.parse(LIST), self.root)
        self.assertEqual([entry.path for entry in gone], ["usb/B.cpp"])

    def test_no_reason_of_this_tree_speaks_of_a_line_that_is_gone(self):
        for path in (campaign.REASONS, lines.REASONS):
            self.assertEqual(reasons.outdated(reasons.load(path), ROOT), [])


class Campaign(TreeTest):
    def faults(self, caught, survived, listed=()):
        def result(outcome):
            lines_of = (["  if (a < 3)"], ["  if (a <= 3)"])
            return campaign.Result("usb/A.cpp", 1, "comparison", *lines_of, 0, "", outcome)

        self.write("usb/A.cpp", "  if (a < 3)\n")
        results = [result("test")] * caught + [result("survived")] * survived
        return list(campaign.faults(results, list(listed), self.root))

    def test_what_is_not_good_is_told(self):
        listed = reasons.parse(LIST)[:1]
        self.assertEqual(self.faults(200, 0), [])
        self.assertEqual(self.faults(199, 1, listed), [])
        self.assertIn("no reason is listed", self.faults(199, 1)[0])
        self.assertIn("only 199 mutants were tried", self.faults(199, 0)[0])
        self.assertIn("fewer than 95% of the mutants", self.faults(189, 11, listed)[0])

    def test_what_the_compiler_refuses_for_its_grammar_does_not_count(self):
        for error, counts in (("expected ';' before 'x'", False), ("static assertion failed", True)):
            ended = campaign.Ended(1, f"A.cpp:1: error: {error}\n")
            self.assertEqual(campaign.refused(ended), counts)


class Lines(TreeTest):
    """Counts of a program with a line that nothing comes to, as the compiler writes them down."""

    def setUp(self):
        super().setUp()
        self.write("usb/A.h", "inline int f(int a) {\n  if (a < 3)\n    return 1;\n  return 2;\n}\n")
        files = [f"{folder}/{folder}.cpp" for folder in lines.FOLDERS]
        for folder, file in zip(lines.FOLDERS, files):
            self.write(file, f'#include "usb/A.h"\nint {folder}() {{\n  return f(1);\n}}\n')
        self.write("main.cpp", "int model();\nint main() {\n  return model() - 1;\n}\n")
        build = ["g++", "-O0", "--coverage", "-I.", "main.cpp", *files, "-o", "program"]
        for command in (build, ["./program"]):
            subprocess.run(command, cwd=self.root, check=True)

    def test_what_is_not_covered_needs_a_reason_and_a_reason_what_is_not_covered(self):
        listed = reasons.parse("usb/A.h\n- return 2;\n  Why.\n- return 1;\n  No more.\n")
        told = list(lines.faults(lines.gather(self.root, self.root), listed, self.root))
        self.assertIn("usb: less than 97% of its 6 lines are covered", told)
        self.assertIn("usb/usb.cpp:3: not covered, no reason: return f(1);", told)
        self.assertIn("usb/A.h: a reason is listed, but it is covered or gone: return 1;", told)
        self.assertNotIn("A.h:4", "".join(told))
        self.assertNotIn("model", "".join(told))


if __name__ == "__main__":
    unittest.main()
