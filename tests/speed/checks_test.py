"""The judgement of the figures finds what it looks for."""

import unittest
from pathlib import Path
from tempfile import TemporaryDirectory

import growth
import programs
from growth import Point
from rows import Row, missed, table

_SIZES = (8, 16, 32, 63, 125, 250, 500, 1000)


def curve(power: float) -> growth.Curve:
    """A time that grows so, but for a small size, which does not count."""
    points = [Point(size, size * 1000, 0.01 * size**power) for size in _SIZES]
    return [Point(8, 8000, 900.0), *points[1:]]


class Checks(unittest.TestCase):
    def test_more_than_linear_time_is_told(self) -> None:
        for power, count in ((1, 0), (1.2, 1), (2, 2)):
            rows = growth.rows_of({"readBank": curve(power)}, most_slope=1.1, most_stretch=2)
            self.assertEqual(len(missed(rows)), count, power)

    def test_lists_hold_the_scenes_asked_for(self) -> None:
        with TemporaryDirectory() as folder:
            growth.write_lists(Path(folder), [2])
            text = (Path(folder) / "2.xml.plist").read_text(encoding="utf-8")
            self.assertEqual(text.count("<key>CommonValue</key>"), 2)
            self.assertTrue((Path(folder) / "2.binary.plist").exists())

    def test_the_table_names_what_is_missed(self) -> None:
        rows = [Row("reading", 16.25, 15, "ms"), Row("even", 1.06, 1.06), Row("told", 2.0, None)]
        text = "what     measured   limit      verdict\nreading  16.250 ms  15.000 ms  MISSED\n"
        self.assertEqual(table(rows), text + "even     1.060      1.060      ok\ntold     2.000\n")

    def test_a_program_that_fails_ends_the_measuring_and_time_asleep_is_no_processor_time(self):
        with self.assertRaises(RuntimeError):
            programs.start(["/bin/false"], {})
        taken = programs.start(["/bin/sleep", "0.2"], {})
        self.assertGreaterEqual(taken.wall, 0.2)
        self.assertLess(taken.processor, 0.1)


if __name__ == "__main__":
    unittest.main()
