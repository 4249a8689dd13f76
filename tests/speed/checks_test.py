"""The judgement of the figures finds what it looks for."""

import unittest
from pathlib import Path
from tempfile import TemporaryDirectory

import growth
import plot
import programs
from growth import Point
from rows import Row, missed, table

_SIZES = (8, 16, 32, 63, 125, 250, 500, 1000)


def curve(power: float) -> growth.Curve:
    return [Point(size, size * 1000, 0.01 * size**power) for size in _SIZES]


class Growth(unittest.TestCase):
    def test_linear_time_is_linear(self) -> None:
        self.assertAlmostEqual(growth.slope(curve(1)), 1)
        self.assertAlmostEqual(growth.stretch(curve(1)), 1)

    def test_quadratic_time_is_told(self) -> None:
        rows = growth.rows_of({"readBank": curve(2)}, most_slope=1.1, most_stretch=1.5)
        self.assertEqual(len(missed(rows)), 2)

    def test_time_that_grows_with_the_logarithm_of_many_sizes_is_told(self) -> None:
        self.assertGreater(growth.slope(curve(1.2)), 1.1)

    def test_small_sizes_do_not_count(self) -> None:
        points = [Point(8, 8000, 900.0), *curve(1)[3:]]
        self.assertAlmostEqual(growth.slope(points), 1)

    def test_lists_hold_the_scenes_asked_for(self) -> None:
        with TemporaryDirectory() as folder:
            growth.write_lists(Path(folder), [2])
            names = sorted(file.name for file in Path(folder).iterdir())
            self.assertEqual(names, ["2.binary.plist", "2.xml.plist"])
            text = (Path(folder) / "2.xml.plist").read_text(encoding="utf-8")
            self.assertEqual(text.count("<key>CommonValue</key>"), 2)


class Rows(unittest.TestCase):
    def test_a_figure_above_its_limit_is_missed(self) -> None:
        rows = [Row("a", 1.061, 1.06), Row("b", 1.06, 1.06), Row("c", 99.0, None, "ms")]
        self.assertEqual([row.what for row in missed(rows)], ["a"])

    def test_the_table_names_what_is_missed(self) -> None:
        text = table([Row("reading", 16.25, 15, "ms"), Row("told", 2.0, None)])
        self.assertEqual(
            text,
            "what     measured   limit      verdict\n"
            "reading  16.250 ms  15.000 ms  MISSED\n"
            "told     2.000\n",
        )


class Programs(unittest.TestCase):
    def test_a_program_that_fails_ends_the_measuring(self) -> None:
        with self.assertRaises(RuntimeError):
            programs.start(["/bin/false"], {})

    def test_time_asleep_is_no_processor_time(self) -> None:
        taken = programs.start(["/bin/sleep", "0.2"], {})
        self.assertGreaterEqual(taken.wall, 0.2)
        self.assertLess(taken.processor, 0.1)


class Plot(unittest.TestCase):
    def test_every_point_stands_in_the_picture(self) -> None:
        text = plot.svg({"a & b": [(1, 2.0), (2, 4.0)], "c": [(1, 1.0)]})
        self.assertEqual(text.count("<circle"), 3)
        self.assertIn("a &amp; b", text)

    def test_the_largest_stands_at_the_top_right(self) -> None:
        self.assertIn('<circle cx="284.0" cy="34.0"', plot.panel("x", [(5, 5.0), (10, 10.0)]))


if __name__ == "__main__":
    unittest.main()
