"""The soak's own judgement: what it deals, and what it must not let pass. Needs no guest."""

import unittest

import soak_plan
from cases_soak import GROWTH_KIB, Meter, Soak
from soak_plan import ENDED, KINDS, RIGHT, TOLD

OLD, NEW = bytes(1012), bytes([1]) * 1012


class File:
    """A file that is there, with these bytes, or is not."""

    def __init__(self, content=None):
        self.content = content

    def exists(self):
        return self.content is not None

    def read_bytes(self):
        return self.content


def soak(*may_hold, bank_file=None):
    made = Soak.__new__(Soak)
    made.may_hold = set(may_hold)
    made.keyboard = type("Keyboard", (), {"bank_file": File(bank_file)})
    return made


class PlanTest(unittest.TestCase):
    def test_a_seed_gives_the_same_rounds_again(self):
        self.assertEqual(list(soak_plan.rounds(50, 7)), list(soak_plan.rounds(50, 7)))
        self.assertNotEqual(list(soak_plan.rounds(50, 7)), list(soak_plan.rounds(50, 8)))

    def test_every_kind_comes_once_before_any_comes_again(self):
        kinds = [step.kind for step in soak_plan.rounds(2 * len(KINDS), 1)]
        self.assertEqual(len(set(kinds[:len(KINDS)])), len(KINDS))
        self.assertEqual(len(set(kinds[len(KINDS):])), len(KINDS))

    def test_numbers_are_put_into_the_faults(self):
        kind = next(kind for kind in KINDS if kind.faults == "handshake:2 short:{}")
        step = soak_plan.Round(kind, 45, 0, "SIGINT", b"")
        self.assertEqual(step.faults, "handshake:2 short:45")


class ReadTest(unittest.TestCase):
    def test_what_the_controller_may_hold_is_right_and_known_from_then_on(self):
        made = soak(OLD, NEW)
        self.assertIsNone(made._check_read(File(NEW), RIGHT))
        self.assertEqual(made.may_hold, {NEW})

    def test_a_wrong_byte_is_told_by_its_place(self):
        wrong = OLD[:700] + b"\x10" + OLD[701:]
        self.assertEqual(soak(OLD, NEW)._check_read(File(wrong), RIGHT), 700)

    def test_two_wrong_bytes_do_not_pass(self):
        with self.assertRaises(AssertionError):
            soak(OLD)._check_read(File(b"\x10\x10" + OLD[2:]), RIGHT)

    def test_a_read_that_is_right_has_a_file(self):
        with self.assertRaises(AssertionError):
            soak(OLD)._check_read(File(), RIGHT)

    def test_a_read_whose_error_was_told_has_none(self):
        self.assertIsNone(soak(OLD)._check_read(File(), TOLD))
        with self.assertRaises(AssertionError):
            soak(OLD)._check_read(File(OLD), TOLD)

    def test_a_read_that_was_ended_may_have_none_or_a_right_one(self):
        self.assertIsNone(soak(OLD)._check_read(File(), ENDED))
        self.assertIsNone(soak(OLD)._check_read(File(OLD), ENDED))
        with self.assertRaises(AssertionError):
            soak(OLD)._check_read(File(NEW), ENDED)


class SendTest(unittest.TestCase):
    def test_what_was_sent_well_is_in_the_controllers_file(self):
        made = soak(OLD, bank_file=NEW)
        made._check_sent(NEW, RIGHT)
        self.assertEqual(made.may_hold, {NEW})
        with self.assertRaises(AssertionError):
            soak(OLD, bank_file=OLD)._check_sent(NEW, RIGHT)

    def test_of_what_was_not_each_block_may_be_there(self):
        made = soak(OLD)
        made._check_sent(NEW, TOLD)
        self.assertEqual(made.may_hold, {OLD, NEW, NEW[:512] + OLD[512:]})


class MeterTest(unittest.TestCase):
    @staticmethod
    def meter(memory, files):
        made = Meter("program", type("Program", (), {"pid": 1}))
        made.memory, made.files = memory, files
        return made

    def test_level_is_level(self):
        self.meter([100, *[5000] * 40], [7] * 41).check_level()

    def test_growth_beyond_the_allowance_does_not_pass(self):
        with self.assertRaises(AssertionError):
            self.meter([5000] * 30 + [5001 + GROWTH_KIB] * 11, [7] * 41).check_level()

    def test_one_more_open_file_does_not_pass(self):
        with self.assertRaises(AssertionError):
            self.meter([5000] * 41, [7] * 40 + [8]).check_level()

    def test_files_opened_before_every_kind_has_been_there_pass(self):
        self.meter([5000] * 20, [3] * 9 + [7] * 11).check_level()
        with self.assertRaises(AssertionError):
            self.meter([5000] * 20, [3] * 11 + [7] * 9).check_level()


if __name__ == "__main__":
    unittest.main()
