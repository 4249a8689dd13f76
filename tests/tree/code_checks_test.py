"""Each code checker is shown a tree with the fault it looks for, and one without."""

import json
import os
import shutil
import subprocess
import sys
import unittest
import unittest.mock
from pathlib import Path

import code_checks
from planted import TreeTest

ROOT = Path(__file__).resolve().parents[2]

CLEAN = "int twice(int value) {\n    return 2 * value;\n}\n"
FAULTS = {
    "format": ("Fault.cpp", CLEAN, "int   twice(int value)\n{ return 2*value; }\n"),
    "cppcheck": ("Fault.cpp", CLEAN, "int f() {\n    int list[2] = {1, 2};\n    return list[2];\n}\n"),
    "tidy": ("Fault.cpp", CLEAN, "int f() {\n    int value;\n    value = 1;\n    return value;\n}\n"),
    "scripts": ("go", "#!/bin/bash\nexit 0\n", "#!/bin/bash\nrm -r $1/*\n"),
}
# Of a build with precompiled headers.
FLAGS = (
    "c++ -I. -Winvalid-pch -Xclang -include-pch -Xclang /b/cmake_pch.hxx.pch "
    "-Xclang -include -Xclang /b/cmake_pch.hxx -o x -c"
)


class CodeChecks(TreeTest):
    def setUp(self):
        super().setUp()
        self.build = self.root / "build"
        self.build.mkdir()
        for name in (".clang-format", ".clang-tidy", ".codespellrc"):
            shutil.copy(ROOT / name, self.root)
        self.write("model/Clean.cpp", CLEAN)
        self.write("tests/model/Test.cpp", FAULTS["tidy"][2].replace("f()", "g()"))
        self.write("notes", "rm -r $1/*\n")

    def outputs(self, kind):
        entries = [
            {"directory": str(self.root), "file": str(file), "command": f"{FLAGS} {file}"}
            for file in self.root.glob("**/*.cpp")
        ]
        (self.build / "compile_commands.json").write_text(json.dumps(entries))
        code_checks.closure.cache_clear()
        jobs = code_checks.JOBS[kind](self.root, self.build)
        return list(code_checks.check_all(self.root, self.build, kind, jobs))

    def test_each_checker_passes_clean_code_and_finds_its_fault_until_it_is_mended(self):
        for kind, (name, clean, fault) in FAULTS.items():
            with self.subTest(kind):
                self.write(f"model/{name}", clean)
                self.assertEqual(self.outputs(kind), [])
                self.write(f"model/{name}", fault)
                for _ in range(2):
                    outputs = self.outputs(kind)
                    self.assertEqual(len(outputs), 1)
                    self.assertIn(name, outputs[0])

    def test_a_fault_in_a_header_is_found_after_its_includer_passed(self):
        self.write("model/Part.h", "#pragma once\nint part();\n")
        self.write("model/Whole.cpp", '#include "model/Part.h"\nint whole() {\n    return 1;\n}\n')
        self.assertEqual(self.outputs("tidy"), [])
        self.write("model/Part.h", "#pragma once\ninline " + FAULTS["tidy"][2])
        self.assertEqual(len(self.outputs("tidy")), 1)

    def test_files_are_checked_as_one_unit_even_if_each_has_a_function_of_one_name(self):
        own = "int one() {{\n    return {};\n}}\n"
        for shape, units in (("namespace {{\n{}}} // namespace\n", 1), ("static {}", 2)):
            for name in ("model/First", "usb/Second"):
                function = f"int of{Path(name).name}() {{\n    return one();\n}}\n"
                self.write(f"{name}.cpp", shape.format(own.format(1)) + function)
            with self.subTest(shape):
                self.assertEqual(self.checks([]), units)
        for body in ("namespace {\n" + FAULTS["tidy"][2] + "} // namespace\n", FAULTS["tidy"][2]):
            self.write("usb/Second.cpp", body + "int g() {\n    return f();\n}\n")
            self.write("model/First.cpp", "namespace {\nint f() {\n    return 1;\n}\n} // namespace\n")
            self.assertEqual(len(self.outputs("tidy")), 1)

    def test_a_file_with_a_fault_leaves_the_others_one_unit(self):
        self.write("model/Fault.h", "#pragma once\ninline " + FAULTS["tidy"][2])
        self.write("model/First.cpp", '#include "model/Fault.h"\n')
        for name in ("Second", "Third"):
            self.write(f"usb/{name}.cpp", f"int of{name}() {{\n    return 1;\n}}\n")
        # All of them, those without the fault, and the one with it.
        self.assertEqual(self.checks(["model/Fault.h"]), 3)

    def checks(self, faulty):
        """How often the checker was called, which found faults in these."""
        with unittest.mock.patch.object(code_checks, "run", wraps=code_checks.run) as run:
            outputs = self.outputs("tidy")
        self.assertEqual(len(outputs), len(faulty), outputs)
        for name, output in zip(faulty, outputs):
            self.assertIn(name, output)
        return sum("--quiet" in call.args[0] for call in run.mock_calls)

    def run_check(self, kind, version=None):
        """The whole check, with the tool of this machine or one of some version."""
        environment = dict(os.environ)
        if version:
            tool = self.root / "build" / code_checks.KNOWN[kind][0]
            tool.write_text(f"#!/bin/sh\necho 'Tool version {version} (build 9.9)'\n")
            tool.chmod(0o755)
            environment["PATH"] = f"{tool.parent}:{environment['PATH']}"
        command = [sys.executable, "-B", code_checks.__file__, kind, self.root, self.build]
        return subprocess.run(
            command, env=environment, capture_output=True, text=True, check=False
        )

    def test_a_misspelt_word_is_found(self):
        if code_checks.why_skipped("spelling"):
            self.skipTest(code_checks.why_skipped("spelling"))
        for word, is_wrong in (("Received", False), ("Rec" + "ieved", True)):
            self.write("notes.md", word)
            self.assertEqual(self.run_check("spelling").returncode != 0, is_wrong)

    def test_a_tool_of_another_version_is_asked_nothing(self):
        for kind, version in (("format", "19.1.7"), ("cppcheck", "2.1"), ("tidy", "140.0"),
                              ("spelling", "2.4.1"), ("scripts", "1.9.0")):
            done = self.run_check(kind, version)
            self.assertEqual(done.returncode, code_checks.SKIPPED)
            self.assertRegex(done.stdout, rf"^Skipped: .* and this is {version}\.\n$")
        self.write("model/go", FAULTS["scripts"][1])
        for kind, version in (("format", "14.0.6"), ("spelling", "2.2.2"), ("scripts", "0.10.0")):
            self.assertEqual(self.run_check(kind, version).returncode, 0)


if __name__ == "__main__":
    unittest.main()
