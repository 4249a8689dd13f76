"""Each check of the tree is shown a tree with the fault it looks for, and one without."""

import tempfile
import unittest
from pathlib import Path

import include_directions
import include_spelling
import sizes
import sources


class TreeTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def write(self, path, text):
        target = self.root / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(text, encoding="utf-8")


class IncludeSpelling(TreeTest):
    def faults(self):
        return list(include_spelling.violations(self.root))

    def test_well_spelled_includes_pass(self):
        self.write("model/A.h", "#pragma once\n#include <vector>\nstd::vector<int> all();\n")
        self.write("model/A.cpp", '#include "model/A.h"\n\nstd::vector<int> all() { return {}; }\n')
        self.write("model/B.h", "// std::map is spoken of, not used\n")
        self.assertEqual(self.faults(), [])

    def test_each_misspelling_is_found(self):
        self.write("model/A.h", "#pragma once\n")
        for line, fault in {
            '#include "model/../model/A.h"': "not the plain path from the root",
            '#include "./model/A.h"': "not the plain path from the root",
            "#include <model/A.h>": "a file of the tree stands in quotes",
            '#  include "model/A.h"': "not spelled as the others are",
            '#include "model/A.h"\n#include "model/A.h"': "stands here twice",
        }.items():
            self.write("model/B.cpp", line + "\n")
            faults = self.faults()
            self.assertEqual(len(faults), 1, line)
            self.assertTrue(faults[0].endswith(fault), faults)

    def test_a_header_that_does_not_come_first_in_its_source_is_found(self):
        self.write("model/A.h", "#pragma once\n")
        self.write("model/B.h", "#pragma once\n")
        self.write("model/B.cpp", '#include "model/A.h"\n#include "model/B.h"\n')
        self.assertEqual(
            self.faults(), ['model/B.cpp: its own header "model/B.h" is not included first']
        )

    def test_a_name_without_its_header_is_found(self):
        self.write("model/B.cpp", "std::optional<int> none();\n")
        self.assertEqual(
            self.faults(), ["model/B.cpp: uses names of <optional> and does not include it"]
        )


class IncludeDirections(TreeTest):
    def header(self, path, *included):
        lines = [f"#include {name}\n" for name in included]
        self.write(path, "#pragma once\n" + "".join(lines))

    def faults(self):
        return include_directions.violations(self.root)

    def test_allowed_includes_pass(self):
        self.header("platform/A.h", "<vector>", "<expat.h>")
        self.header("model/B.h", '"platform/A.h"')
        self.header("usb/C.h", "<libusb-1.0/libusb.h>")
        self.header("editor/qt/D.h", "<QWidget>", '"model/B.h"')
        self.header("tests/usb/E.h", '"model/B.h"')
        self.assertEqual(self.faults(), [])

    def test_an_include_against_the_direction_fails(self):
        self.header("model/B.h")
        self.header("platform/A.h", '"model/B.h"')
        self.assertEqual(
            self.faults(), ['platform/A.h: platform may not include "model/B.h"']
        )

    def test_a_nested_folder_is_not_its_parent(self):
        self.header("editor/qt/D.h")
        self.header("editor/A.h", '"editor/qt/D.h"')
        self.assertEqual(
            self.faults(), ['editor/A.h: editor may not include "editor/qt/D.h"']
        )

    def test_a_program_that_includes_a_test_fails(self):
        self.header("tests/usb/E.h")
        self.header("model/B.h", '"tests/usb/E.h"')
        self.assertEqual(
            self.faults(), ['model/B.h: model may not include "tests/usb/E.h"']
        )

    def test_a_path_that_is_not_from_the_root_fails(self):
        self.header("model/A.h")
        self.header("model/B.h", '"A.h"')
        self.assertEqual(
            self.faults(), ['model/B.h: includes "A.h", which is no path from the root']
        )

    def test_a_folder_without_a_row_fails(self):
        self.header("extras/A.h")
        self.assertEqual(
            self.faults(), ["extras/A.h: its folder has no row in the table of allowed includes"]
        )

    def test_the_toolkit_outside_its_folders_fails(self):
        self.header("editor/A.h", "<QString>")
        self.header("tests/model/T.h", "<QtTest/QtTest>")
        self.assertEqual(
            self.faults(),
            [
                "editor/A.h: only app/qt and editor/qt may include Qt",
                "tests/model/T.h: only app/qt and editor/qt may include Qt",
            ],
        )

    def test_the_tests_of_the_toolkit_folders_may_include_it(self):
        self.header("tests/editor-qt/T.h", "<QString>")
        self.header("tests/app/qt/T.h", "<QString>")
        self.assertEqual(self.faults(), [])

    def test_the_usb_library_in_a_third_file_fails(self):
        self.header("usb/A.h", "<libusb-1.0/libusb.h>")
        self.header("usb/B.h", "<libusb.h>")
        self.assertEqual(self.faults(), [])
        self.header("usb/C.h", "<libusb.h>")
        self.assertEqual(
            self.faults(), ["libusb is included by 3 files, 2 may: usb/A.h, usb/B.h, usb/C.h"]
        )

    def test_the_device_library_in_a_second_file_or_elsewhere_fails(self):
        self.header("usb/A.h", "<libudev.h>")
        self.assertEqual(self.faults(), [])
        self.header("model/B.h", "<libudev.h>")
        self.assertEqual(
            self.faults(),
            [
                "model/B.h: only usb may include libudev",
                "libudev is included by 2 files, 1 may: model/B.h, usb/A.h",
            ],
        )

    def test_the_tests_of_its_folder_may_stand_in_for_the_usb_library(self):
        self.header("usb/A.h", "<libusb.h>")
        self.header("tests/usb/B.h", "<libusb.h>")
        self.assertEqual(self.faults(), [])
        self.header("tests/model/C.h", "<libusb.h>")
        self.assertEqual(self.faults(), ["tests/model/C.h: only usb may include libusb"])

    def test_the_property_list_library_outside_its_folder_fails(self):
        self.header("model/A.h", "<expat.h>")
        self.assertEqual(self.faults(), ["model/A.h: only platform may include expat"])

    def test_a_header_that_may_be_read_twice_fails(self):
        self.write("model/A.h", "int a();\n")
        self.assertEqual(self.faults(), ["model/A.h: has no #pragma once"])

    def test_a_table_that_goes_in_a_circle_is_found(self):
        table = {"a": {"b"}, "b": {"c"}, "c": {"b"}, "d": {"a"}}
        self.assertEqual(include_directions.cycles(table), ["b", "c"])


class Functions(unittest.TestCase):
    def test_counts_the_lines_of_a_body(self):
        self.assertEqual(sizes.functions("int f() {\n    return 1;\n}\n"), [(1, 3)])

    def test_finds_members_and_tests_but_no_types(self):
        text = "namespace a {\nclass B {\n    void c() { d(); }\n};\n}\nTEST(A, B) {\n}\n"
        self.assertEqual(sizes.functions(text), [(3, 1), (6, 2)])

    def test_blocks_and_lambdas_belong_to_their_function(self):
        text = "void f() {\n    if (a) {\n    }\n    g([](int b) {\n    });\n}\n"
        self.assertEqual(sizes.functions(text), [(1, 6)])

    def test_braces_in_texts_and_comments_do_not_count(self):
        text = "void f() {\n    a = \"}\"; // }\n    b = '}'; /* }\n} */\n}\n"
        self.assertEqual(sizes.functions(text), [(1, 5)])

    def test_a_table_is_no_function(self):
        self.assertEqual(sizes.functions("int a[] = {\n    f(1),\n};\n"), [])


class Sizes(TreeTest):
    def function(self, lines):
        return "void f() {\n" + "    g();\n" * (lines - 2) + "}\n"

    def test_short_functions_pass(self):
        self.write("model/A.cpp", self.function(5) * 3)
        self.assertEqual(sizes.violations(self.root), [])

    def test_a_function_of_81_lines_fails(self):
        self.write("model/A.cpp", self.function(5) * 10 + self.function(80))
        self.assertEqual(sizes.violations(self.root), [])
        self.write("model/A.cpp", self.function(5) * 10 + self.function(81))
        self.assertEqual(
            sizes.violations(self.root),
            ["model/A.cpp:51: a function of 81 lines; 80 are the most"],
        )

    def test_more_than_one_long_function_in_ten_fails(self):
        self.write("model/A.cpp", self.function(31) * 1 + self.function(5) * 9)
        self.assertEqual(sizes.violations(self.root), [])
        self.write("model/A.cpp", self.function(31) * 1 + self.function(5) * 8)
        self.assertEqual(
            sizes.violations(self.root), ["1 of 9 functions are longer than 30 lines"]
        )

    def test_too_few_short_functions_fail(self):
        self.write("model/A.cpp", self.function(15) + self.function(5))
        self.assertEqual(
            sizes.violations(self.root), ["only 1 of 2 functions are shorter than 15 lines"]
        )

    def test_the_tests_do_not_lend_the_programs_their_short_functions(self):
        self.write("model/A.cpp", self.function(16))
        self.write("tests/ATest.cpp", self.function(5) * 9)
        self.write("tests/README.md", "")
        self.assertEqual(
            sizes.violations(self.root), ["only 0 of 1 functions are shorter than 15 lines"]
        )

    def test_a_file_of_501_lines_fails(self):
        self.write("model/A.cpp", "\n" * 501)
        for name in ("B", "C"):
            self.write(f"model/{name}.cpp", "")
        self.assertEqual(
            sizes.violations(self.root), ["model/A.cpp: 501 lines; 500 are the most"]
        )

    def test_files_of_200_lines_in_the_middle_fail(self):
        self.write("model/A.cpp", "\n" * 200)
        self.assertEqual(sizes.violations(self.root), ["half of the files have 200 lines or more"])

    def test_a_folder_without_a_readme_fails(self):
        self.write("model/CMakeLists.txt", "")
        self.write("tests/model/CMakeLists.txt", "")
        self.assertEqual(
            sizes.violations(self.root), ["model: has no README.md", "tests: has no README.md"]
        )


class Sources(TreeTest):
    def test_builds_and_hidden_folders_are_no_sources(self):
        for path in ("model/A.cpp", "build/dev/B.cpp", ".cache/C.cpp", "model/README.md"):
            self.write(path, "")
        self.assertEqual(sources.files(self.root), [Path("model/A.cpp")])


if __name__ == "__main__":
    unittest.main()
