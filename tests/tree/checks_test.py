"""Each check of the tree is shown a tree without a fault, and then with each fault that it looks for."""

import unittest
from pathlib import Path

import include_directions
import include_spelling
import sizes
import sources
from planted import TreeTest


def header(*included):
    return "#pragma once\n" + "".join(f"#include {name}\n" for name in included)


def function(lines):
    return "void f() {\n" + "    g();\n" * (lines - 2) + "}\n"


# What is right: what the check is for beside it must not be taken for a fault.
SPELLED = {
    "model/A.h": "#pragma once\n#include <vector>\nstd::vector<int> all();\n",
    "model/A.cpp": '#include "model/A.h"\n\nstd::vector<int> all() { return {}; }\n',
    "model/B.h": "#pragma once\n// std::map is spoken of, not used\n",
}
DIRECTED = {
    "platform/A.h": header("<vector>", "<expat.h>"),
    "model/B.h": header('"platform/A.h"'),
    "usb/C.h": header("<libusb-1.0/libusb.h>", "<libudev.h>"),
    "usb/D.h": header("<libusb.h>"),
    "editor/qt/E.h": header("<QWidget>", '"model/B.h"'),
    "tests/usb/F.h": header("<libusb.h>", '"model/B.h"'),
    "tests/editor-qt/G.h": header("<QString>"),
}
SIZED = {
    "model/A.cpp": function(5) * 10 + function(80),
    "model/B.cpp": function(5) * 10 + function(30) + "int a[] = {\n    f(1),\n};\n" + "\n" * 120,
    "model/C.cpp": "class B {\n    void c() {}\n};\nvoid f() {\n    a = \"}\"; // }\n    g([] {\n    });\n}\n",
}
# Of each check what stands in a tree beside the right one, and what is told then.
SPELLED_WRONGLY = [
    ('#include "model/../model/A.h"', "not the plain path from the root"),
    ("#include <model/A.h>", "a file of the tree stands in quotes"),
    ('#  include "model/A.h"', "not spelled as the others are"),
    ('#include "model/B.h"', "stands here twice"),
]
ASTRAY = [
    ("platform/A.h", '"model/B.h"', 'platform/A.h: platform may not include "model/B.h"'),
    ("editor/A.h", '"editor/qt/E.h"', 'editor/A.h: editor may not include "editor/qt/E.h"'),
    ("model/A.h", '"tests/usb/F.h"', 'model/A.h: model may not include "tests/usb/F.h"'),
    ("model/A.h", '"B.h"', 'model/A.h: includes "B.h", which is no path from the root'),
    ("extras/A.h", "<map>", "extras/A.h: its folder has no row in the table of allowed includes"),
    ("editor/A.h", "<QString>", "editor/A.h: only editor/qt may include Qt"),
    ("tests/usb/A.h", "<QtTest/QtTest>", "tests/usb/A.h: only editor/qt may include Qt"),
    ("tests/model/A.h", "<libusb.h>", "tests/model/A.h: only usb may include libusb"),
    ("model/A.h", "<expat.h>", "model/A.h: only platform may include expat"),
    ("usb/E.h", "<libusb.h>", "libusb is included by 3 files, 2 may: usb/C.h, usb/D.h, usb/E.h"),
    ("usb/E.h", "<libudev.h>", "libudev is included by 2 files, 1 may: usb/C.h, usb/E.h"),
]
TOO_LONG = [
    ("model/D.cpp", function(81), "model/D.cpp:1: a function of 81 lines; 80 are the most"),
    ("model/D.cpp", function(31) * 2, "3 of 26 functions are longer than 30 lines"),
    ("model/D.cpp", function(15) * 30, "only 22 of 54 functions are shorter than 15 lines"),
    ("model/D.cpp", "\n" * 501, "model/D.cpp: 501 lines; 500 are the most"),
    ("model/A.cpp", function(5) * 10 + "\n" * 250, "half of the files have 200 lines or more"),
    ("extras/CMakeLists.txt", "", "extras: has no README.md"),
    ("tests/model/CMakeLists.txt", "", "tests: has no README.md"),
]
OWN = '#include "model/B.h"\n'
FAULTS = [
    *(
        (include_spelling, SPELLED, {"model/B.cpp": OWN + line}, f"model/B.cpp: {line}: {told}")
        for line, told in SPELLED_WRONGLY
    ),
    (include_spelling, SPELLED, {"model/B.cpp": OWN + "std::optional<int> none();"},
     "model/B.cpp: uses names of <optional> and does not include it"),
    (include_spelling, SPELLED, {"model/B.cpp": '#include "model/A.h"\n' + OWN},
     'model/B.cpp: its own header "model/B.h" is not included first'),
    *((include_directions, DIRECTED, {path: header(name)}, told) for path, name, told in ASTRAY),
    (include_directions, DIRECTED, {"model/A.h": "int a();\n"}, "model/A.h: has no #pragma once"),
    *((sizes, SIZED, {path: text}, told) for path, text, told in TOO_LONG),
]


class Checks(TreeTest):
    def faults(self, check, *trees):
        for tree in trees:
            for path, text in tree.items():
                self.write(path, text)
        return list(check.violations(self.root))

    def test_each_fault_is_found_and_nothing_else(self):
        for check, right, changed, told in FAULTS:
            with self.subTest(told):
                self.setUp()
                self.assertEqual(self.faults(check, right), [])
                self.assertEqual(self.faults(check, changed), [told])

    def test_the_tests_do_not_lend_the_programs_their_short_functions(self):
        tree = {"model/A.cpp": function(16), "tests/A.cpp": function(5) * 9, "tests/README.md": ""}
        told = ["only 0 of 1 functions are shorter than 15 lines"]
        self.assertEqual(self.faults(sizes, tree), told)

    def test_a_table_that_goes_in_a_circle_is_found(self):
        table = {"a": {"b"}, "b": {"c"}, "c": {"b"}, "d": {"a"}}
        self.assertEqual(include_directions.cycles(table), ["b", "c"])

    def test_builds_and_hidden_folders_are_no_sources(self):
        for path in ("model/A.cpp", "build/dev/B.cpp", ".cache/C.cpp", "model/README.md"):
            self.write(path, "")
        self.assertEqual(sources.files(self.root), [Path("model/A.cpp")])


if __name__ == "__main__":
    unittest.main()
