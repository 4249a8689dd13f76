"""The soak's own judgement: what it deals, and what it must not let pass. Needs no guest."""

import unittest
from types import SimpleNamespace

import soak_plan
from cases_soak import GROWTH_KIB, Meter, Soak
from soak_plan import ENDED, KINDS, RIGHT, TOLD

OLD, NEW = bytes(1012), bytes([1]) * 1012
WRONG = OLD[:700] + b"\x10" + OLD[701:]


def file(content):
    """A file that holds this, or is not there."""
    return SimpleNamespace(exists=lambda: content is not None, read_bytes=lambda: content)


def soak(*may_hold, bank_file=None):
    made = Soak.__new__(Soak)
    made.may_hold = set(may_hold)
    made.keyboard = SimpleNamespace(bank_file=file(bank_file))
    return made


def meter(memory, files):
    made = Meter("program", SimpleNamespace(pid=1))
    made.memory, made.files = memory, files
    return made


class SoakTest(unittest.TestCase):
    def test_a_seed_deals_every_kind_before_any_again_and_the_same_the_next_time(self):
        rounds = list(soak_plan.rounds(2 * len(KINDS), 7))
        for half in (rounds[:len(KINDS)], rounds[len(KINDS):]):
            self.assertEqual({step.kind for step in half}, set(KINDS))
        self.assertEqual(rounds, list(soak_plan.rounds(2 * len(KINDS), 7)))
        self.assertNotEqual(rounds, list(soak_plan.rounds(2 * len(KINDS), 8)))
        step = next(step for step in rounds if step.kind.faults == "handshake:2 short:{}")
        self.assertEqual(step.faults, f"handshake:2 short:{step.number}")

    def test_what_passes(self):
        made = soak(OLD, NEW)
        self.assertIsNone(made._check_read(file(NEW), RIGHT))
        self.assertEqual(made.may_hold, {NEW})
        self.assertEqual(soak(OLD, NEW)._check_read(file(WRONG), RIGHT), 700)
        for end, content in ((TOLD, None), (ENDED, None), (ENDED, OLD)):
            self.assertIsNone(soak(OLD)._check_read(file(content), end))
        made = soak(OLD, bank_file=NEW)
        made._check_sent(NEW, RIGHT)
        self.assertEqual(made.may_hold, {NEW})
        made = soak(OLD)
        made._check_sent(NEW, TOLD)
        self.assertEqual(made.may_hold, {OLD, NEW, NEW[:512] + OLD[512:]})
        meter([100, *[5000] * 40], [7] * 41).check_level()
        meter([5000] * 20, [3] * 9 + [7] * 11).check_level()  # before every kind has been there

    def test_what_does_not_pass(self):
        for what, end, content in (("two wrong bytes", RIGHT, b"\x10\x10" + OLD[2:]),
                                   ("a read without its file", RIGHT, None),
                                   ("a file beside an error", TOLD, OLD),
                                   ("another bank after the end", ENDED, NEW)):
            with self.subTest(what), self.assertRaises(AssertionError):
                soak(OLD)._check_read(file(content), end)
        with self.assertRaises(AssertionError):
            soak(OLD, bank_file=OLD)._check_sent(NEW, RIGHT)
        for what, level in (("growth", ([5000] * 30 + [5001 + GROWTH_KIB] * 11, [7] * 41)),
                            ("an open file", ([5000] * 41, [7] * 40 + [8])),
                            ("an open file early", ([5000] * 20, [3] * 11 + [7] * 9))):
            with self.subTest(what), self.assertRaises(AssertionError):
                meter(*level).check_level()


if __name__ == "__main__":
    unittest.main()
