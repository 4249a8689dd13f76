"""The measures are shown a source with places in it, lists with faults, and counts that fall short."""

import tempfile
import unittest
from collections import Counter
from pathlib import Path

import campaign
import lines
import mutants
import reasons
from copy_of_tree import CopyOfTree, own_tests

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
}
"""


def afters(text, kind, path="usb/A.cpp"):
    return [
        "\n".join(line.strip() for line in mutant.after)
        for mutant in mutants.candidates(path, text)
        if mutant.kind == kind
    ]


class Candidates(unittest.TestCase):
    def test_a_comparison_becomes_its_neighbour(self):
        self.assertEqual(afters(SOURCE, "comparison"), ["if (a <= 3 && b)"])

    def test_arithmetic_is_turned_round(self):
        self.assertEqual(afters(SOURCE, "arithmetic"), ["return a - 1;"])

    def test_a_condition_is_turned_round_and_its_parts_joined_otherwise(self):
        self.assertEqual(afters(SOURCE, "boolean"), ["if (a < 3 || b)", "if (!(a < 3 && b))"])

    def test_a_constant_becomes_each_neighbour_in_its_own_notation(self):
        found = afters(SOURCE, "constant")
        self.assertIn('{1, 0x80, "one"}, // a == b', found)
        self.assertIn('{1, 0x7E, "one"}, // a == b', found)
        self.assertIn('{0, 0x7F, "one"}, // a == b', found)
        self.assertIn("return a + 2;", found)

    def test_neighbouring_entries_of_a_row_change_places(self):
        self.assertEqual(afters("int a[] = {1, 2, 2};\n", "table"), ["int a[] = {2, 1, 2};"])

    def test_neighbouring_rows_of_a_table_exchange_one_cell(self):
        text = '    {Pad, "a, b", f(1, x)},\n    {Pad, "c", f(2, x)},\n'
        self.assertEqual(
            afters(text, "table"),
            [
                '{Pad, "c", f(1, x)},\n{Pad, "a, b", f(2, x)},',
                '{Pad, "a, b", f(2, x)},\n{Pad, "c", f(1, x)},',
            ],
        )

    def test_a_statement_goes(self):
        self.assertEqual(afters(SOURCE, "statement"), [";"])
        self.assertEqual(afters("    a.b = c(d);\n", "statement"), [";"])

    def test_a_declaration_stays(self):
        self.assertEqual(afters("    const int a = b(c);\n    Foo bar(c);\n", "statement"), [])

    def test_a_returned_value_becomes_an_empty_one(self):
        self.assertEqual(afters(SOURCE, "return"), ["return {};"])
        self.assertEqual(afters("    return true;\n", "return"), ["return false;"])

    def test_a_text_has_one_letter_changed_and_no_conversion(self):
        self.assertIn('{1, 0x7F, "pne"}, // a == b', afters(SOURCE, "text"))
        self.assertEqual(afters('    f("%d\\n in");\n', "text"), ['f("%d\\n jn");'])

    def test_texts_of_the_window_are_left_alone(self):
        self.assertEqual(afters(SOURCE, "text", "editor/qt/A.cpp"), [])

    def test_includes_checks_at_compile_time_and_template_arguments_have_no_place(self):
        found = mutants.candidates("usb/A.cpp", SOURCE)
        self.assertEqual({mutant.line for mutant in found} & {1, 6, 7}, set())

    def test_margins_and_spacings_are_left_alone(self):
        text = "    grid.setContentsMargins(1, 2, 3, 4);\n    grid.setHorizontalSpacing(7);\n"
        self.assertEqual(mutants.candidates("editor/qt/A.cpp", text), [])

    def test_equal_places_are_told_apart(self):
        found = mutants.candidates("usb/A.cpp", "    f(a);\n    f(a);\n")
        self.assertEqual([mutant.copy for mutant in found], [0, 1])

    def test_a_planted_mutant_changes_its_line_alone(self):
        for mutant in mutants.candidates("usb/A.cpp", SOURCE):
            text = mutants.planted(SOURCE, mutant).splitlines()
            changed = [i for i, line in enumerate(SOURCE.splitlines()) if text[i] != line]
            self.assertEqual(changed[0], mutant.line - 1)
            self.assertLessEqual(len(changed), 2)


class Choice(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.chosen = mutants.order(ROOT, 1)

    def test_the_sources_have_places_for_more_than_is_asked_in_every_group(self):
        for group, share in mutants.shares(210).items():
            self.assertGreater(len(self.chosen[group]), share, group)

    def test_the_kinds_take_turns(self):
        for group, found in self.chosen.items():
            kinds = {mutant.kind for mutant in found[: len(mutants.KINDS)]}
            self.assertGreaterEqual(len(kinds), len(mutants.KINDS) - 1, group)

    def test_one_seed_makes_one_choice_and_another_makes_another(self):
        self.assertEqual(self.chosen, mutants.order(ROOT, 1))
        self.assertNotEqual(self.chosen, mutants.order(ROOT, 2))

    def test_no_line_is_taken_twice(self):
        for found in self.chosen.values():
            places = [(mutant.path, mutant.line) for mutant in found]
            self.assertEqual(len(places), len(set(places)))

    def test_a_file_counts_for_the_nearest_group(self):
        self.assertEqual(mutants.group_of("editor/qt/A.cpp"), "editor/qt")
        self.assertEqual(mutants.group_of("editor/options/A.cpp"), "editor")
        self.assertEqual(mutants.group_of("cli/A.cpp"), "")

    def test_the_parts_make_up_the_whole(self):
        self.assertEqual(sum(mutants.shares(210).values()), 210)
        self.assertGreaterEqual(sum(mutants.shares(200).values()), 200)


class TreeTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def write(self, path, text):
        target = self.root / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(text, encoding="utf-8")


class Suites(TreeTest):
    def test_the_tests_of_a_unit_are_found_by_its_name(self):
        self.write("tests/usb/CMakeLists.txt", "scenewright_test(usb\n  SOURCES\n ATest.cpp\n USES x)")
        self.write("tests/usb/ATest.cpp", "TEST(A, Works) {\n}\nTEST_F(B, Works) {\n}\n")
        self.assertEqual(own_tests(self.root, "usb/A.cpp"), ("usb-tests", "A.*:*/A.*:B.*:*/B.*"))
        self.assertIsNone(own_tests(self.root, "usb/B.cpp"))

    def test_every_group_has_suites_of_this_tree(self):
        text = "".join(p.read_text() for p in (ROOT / "tests").rglob("CMakeLists.txt"))
        self.assertEqual(set(campaign.SUITES), set(mutants.GROUPS))
        for suites in campaign.SUITES.values():
            for suite in suites:
                self.assertIn(f"scenewright_test({suite}\n", text)


class Copies(TreeTest):
    def test_a_copy_follows_its_tree_and_keeps_what_is_the_same(self):
        self.write("a/usb/A.cpp", "one")
        self.write("a/usb/B.cpp", "two")
        self.write("a/build/C.cpp", "no source")
        copy = CopyOfTree(self.root / "a", self.root / "b")
        copy.refresh()
        kept = (copy.tree / "usb/A.cpp").stat().st_mtime_ns
        (self.root / "a/usb/B.cpp").unlink()
        (copy.tree / "usb/A.cpp").touch()
        touched = (copy.tree / "usb/A.cpp").stat().st_mtime_ns
        copy.refresh()
        self.assertGreaterEqual(touched, kept)
        self.assertEqual((copy.tree / "usb/A.cpp").stat().st_mtime_ns, touched)
        self.assertEqual([p.name for p in copy.tree.rglob("*.cpp")], ["A.cpp"])
        copy.remove()
        self.assertEqual(list((self.root / "b").iterdir()), [])


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
    def test_a_list_is_read(self):
        self.assertEqual(
            reasons.parse(LIST),
            [
                reasons.Entry(
                    "usb/A.cpp",
                    ("if (a < 3)",),
                    ("if (a <= 3)",),
                    "It is never 3, as its caller sees to.",
                ),
                reasons.Entry("usb/A.cpp", ("f(a);", "f(b);"), (), "Both."),
                reasons.Entry("usb/B.cpp", ("c();",), (), "No device."),
            ],
        )

    def test_an_entry_without_a_reason_a_line_or_a_path_is_refused(self):
        for text in ("usb/A.cpp\n- a();\n", "usb/A.cpp\n  Why.\n", "- a();\n  Why.\n"):
            with self.assertRaises(reasons.Malformed):
                reasons.parse(text)

    def test_the_lists_of_this_tree_are_read(self):
        for path in (campaign.REASONS, lines.REASONS):
            reasons.load(path)

    def test_no_reason_of_this_tree_speaks_of_a_line_that_is_gone(self):
        for path in (campaign.REASONS, lines.REASONS):
            self.assertEqual(reasons.outdated(reasons.load(path), ROOT), [])

    def test_a_line_that_is_gone_is_told(self):
        self.write("usb/A.cpp", "    if (a < 3)\n        f(a);\n        f(b);\n")
        self.assertEqual(
            [entry.path for entry in reasons.outdated(reasons.parse(LIST), self.root)],
            ["usb/B.cpp"],
        )
        self.write("usb/A.cpp", "    if (a < 3)\n        f(b);\n        f(a);\n")
        self.assertEqual(len(reasons.outdated(reasons.parse(LIST), self.root)), 2)


def result(outcome, path="usb/A.cpp", before="if (a < 3)", after="if (a <= 3)"):
    return campaign.Result(path, 1, "comparison", [f"  {before}"], [f"  {after}"], 0, "", outcome)


class Campaign(TreeTest):
    def setUp(self):
        super().setUp()
        self.write("usb/A.cpp", "  if (a < 3)\n    f(a);\n    f(b);\n")
        self.listed = reasons.parse(LIST)[:1]

    def faults(self, results, listed=()):
        return list(campaign.faults(results, list(listed), self.root))

    def test_enough_mutants_all_caught_are_good(self):
        outcomes = ["test", "time-out", "compiler"] * 70
        self.assertEqual(self.faults([result(one) for one in outcomes]), [])

    def test_too_few_mutants_are_not(self):
        self.assertEqual(
            self.faults([result("test")] * 199), ["only 199 mutants were tried; 200 are the least"]
        )

    def test_a_survivor_needs_a_reason(self):
        results = [result("test")] * 199 + [result("survived")]
        self.assertEqual(len(self.faults(results)), 1)
        self.assertIn("no reason is listed", self.faults(results)[0])
        self.assertEqual(self.faults(results, self.listed), [])

    def test_too_many_survivors_are_told_whatever_their_reasons(self):
        results = [result("test")] * 189 + [result("survived")] * 11
        self.assertEqual(
            self.faults(results, self.listed), ["fewer than 95% of the mutants were caught"]
        )

    def test_a_reason_for_a_line_that_is_gone_is_told(self):
        self.write("usb/A.cpp", "")
        found = self.faults([result("test")] * 200, self.listed)
        self.assertEqual(
            found, ["usb/A.cpp no longer holds a line with a listed reason: if (a < 3)"]
        )

    def test_what_the_compiler_refuses_for_its_grammar_does_not_count(self):
        ended = campaign.Ended(1, "A.cpp:1: error: expected ';' before 'x'\n")
        self.assertFalse(campaign.refused(ended))
        ended = campaign.Ended(1, "A.cpp:1: error: static assertion failed\n")
        self.assertTrue(campaign.refused(ended))

    def test_the_table_counts_by_group(self):
        results = [result("test"), result("survived"), result("test", "model/B.cpp")]
        self.assertEqual(
            [line.split() for line in campaign.table(results)[1:]],
            [
                ["model", "1", "1", "0", "0", "0", "100.0%"],
                ["usb", "2", "1", "0", "0", "1", "50.0%"],
                ["all", "3", "2", "0", "0", "1", "66.7%"],
            ],
        )

    def test_a_run_goes_on_where_it_was_until_the_file_changes(self):
        kept = self.root / "results.jsonl"
        path = "model/Progress.cpp"
        mutant = mutants.candidates(path, (ROOT / path).read_text(encoding="utf-8"))[0]
        one = campaign.Result(
            path,
            mutant.line,
            mutant.kind,
            list(mutant.before),
            list(mutant.after),
            mutant.copy,
            campaign.digest(ROOT / path),
            "survived",
        )
        copy = CopyOfTree(ROOT, self.root)
        copy.tree = ROOT
        campaign.Campaign(copy, kept).keep(one)
        again = campaign.Campaign(copy, kept)
        self.assertEqual(again.known(mutant), one)
        again.forget_survivors()
        self.assertIsNone(campaign.Campaign(copy, kept).known(mutant))
        one.digest = "of another text"
        again.keep(one)
        self.assertIsNone(campaign.Campaign(copy, kept).known(mutant))


class Lines(TreeTest):
    def setUp(self):
        super().setUp()
        self.write("usb/A.cpp", "int f() {\n  if (a < 3)\n    f(a);\n    f(b);\n}\n")

    def counts(self, usb):
        counts = {f"{folder}/X.cpp": Counter({1: 1}) for folder in lines.FOLDERS}
        counts["usb/A.cpp"] = Counter(dict(enumerate(usb, 1)))
        return counts

    def faults(self, usb, listed=()):
        return list(lines.faults(self.counts(usb), list(listed), self.root))

    def test_all_covered_is_good(self):
        self.assertEqual(self.faults([1] * 100), [])

    def test_a_line_without_a_reason_is_told_with_its_text(self):
        self.assertEqual(
            self.faults([1, 1, 0, 1] + [1] * 96),
            ["usb/A.cpp:3: not covered, no reason: f(a);"],
        )

    def test_a_reason_excuses_its_lines(self):
        self.assertEqual(self.faults([1, 1, 0, 0] + [1] * 96, reasons.parse(LIST)[1:2]), [])

    def test_too_little_is_told_whatever_the_reasons(self):
        self.assertEqual(
            self.faults([1, 1, 0, 0] + [1] * 10, reasons.parse(LIST)[1:2]),
            ["usb: less than 97% of its 15 lines are covered"],
        )

    def test_a_folder_that_was_not_looked_at_is_told(self):
        counts = self.counts([1])
        del counts["model/X.cpp"]
        self.assertEqual(
            list(lines.faults(counts, [], self.root)),
            ["model: less than 97% of its 0 lines are covered"],
        )

    def test_a_reason_for_a_line_that_is_covered_is_told(self):
        self.assertEqual(
            self.faults([1] * 100, reasons.parse(LIST)[1:]),
            [
                "usb/A.cpp: a reason is listed, but it is covered or gone: f(a);",
                "usb/B.cpp: a reason is listed, but it is covered or gone: c();",
            ],
        )

    def test_what_all_units_say_of_a_header_is_added_up_and_brackets_are_no_lines(self):
        self.write("usb/A.h", "\n" * 6 + "int f() { return 1; }\n    });\n")
        counts = lines.defaultdict(Counter)
        brackets = {"line_number": 8, "count": 0}
        for count in (0, 2):
            file = {"file": "../usb/A.h", "lines": [{"line_number": 7, "count": count}, brackets]}
            other = {"file": "/usr/include/x.h", "lines": [{"line_number": 1, "count": 0}]}
            unit = {"current_working_directory": f"{self.root}/build", "files": [file, other]}
            lines.add(counts, unit, self.root)
        self.assertEqual(counts, {"usb/A.h": Counter({7: 2})})


if __name__ == "__main__":
    unittest.main()
