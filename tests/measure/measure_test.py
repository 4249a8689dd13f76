"""What the measures know of the tree is so: the suites of each group, and the lines with a reason."""

import unittest
from pathlib import Path

import campaign
import lines
import mutants
import reasons
from copy_of_tree import own_tests

ROOT = Path(__file__).resolve().parent.parent.parent


class Measures(unittest.TestCase):
    def test_every_group_has_suites_of_this_tree_and_lines_to_change(self):
        text = "".join(path.read_text() for path in (ROOT / "tests").rglob("CMakeLists.txt"))
        self.assertEqual(set(campaign.SUITES), set(mutants.GROUPS))
        for suite in {suite for suites in campaign.SUITES.values() for suite in suites}:
            self.assertIn(f"scenewright_test({suite}\n", text)
        own = own_tests(ROOT, "protocol/Handshake.cpp")
        self.assertEqual(own[0], "protocol-tests")
        self.assertIn("Handshake", own[1])
        chosen = mutants.order(ROOT, 1)
        for group, share in mutants.shares(210).items():
            self.assertGreater(len(chosen[group]), share, group)

    def test_an_entry_without_a_reason_a_line_or_a_path_is_refused(self):
        for text in ("usb/A.cpp\n- a();\n", "usb/A.cpp\n  Why.\n", "- a();\n  Why.\n"):
            with self.assertRaises(reasons.Malformed):
                reasons.parse(text)

    def test_no_reason_of_this_tree_speaks_of_a_line_that_is_gone(self):
        gone = reasons.parse("usb/A.cpp\n- none();\n  Why.\n")
        self.assertEqual(reasons.outdated(gone, ROOT), gone)
        for path in (campaign.REASONS, lines.REASONS):
            self.assertEqual(reasons.outdated(reasons.load(path), ROOT), [])


if __name__ == "__main__":
    unittest.main()
