"""Each code checker is shown a tree with the fault it looks for, and one without."""

import json
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import code_checks

ROOT = Path(__file__).resolve().parents[2]

CLEAN = "int twice(int value) {\n    return 2 * value;\n}\n"
FAULTS = {
    "format": "int   twice(int value)\n{ return 2*value; }\n",
    "cppcheck": "int first() {\n    int list[2] = {1, 2};\n    return list[2];\n}\n",
    "tidy": "int late() {\n    int value;\n    value = 1;\n    return value;\n}\n",
}
SCRIPT_FAULT = "#!/bin/bash\nrm -r $1/*\n"


class CodeChecks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        self.build = self.root / "build"
        self.build.mkdir()
        for name in (".clang-format", ".clang-tidy", ".codespellrc"):
            shutil.copy(ROOT / name, self.root)
        self.write("model/Clean.cpp", CLEAN)

    def write(self, path, text):
        target = self.root / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(text, encoding="utf-8")
        if target.suffix == ".cpp":
            entries = [
                {"directory": str(self.root), "file": str(file), "command": f"c++ -o x -c {file}"}
                for file in self.root.glob("**/*.cpp")
            ]
            (self.build / "compile_commands.json").write_text(json.dumps(entries))

    def outputs(self, kind):
        jobs = code_checks.JOBS[kind](self.root, self.build)
        self.assertTrue(jobs)
        code_checks.closure.cache_clear()
        return list(code_checks.check_all(self.root, self.build, kind, jobs))

    def test_each_checker_passes_clean_code_and_finds_its_fault(self):
        for kind, fault in FAULTS.items():
            with self.subTest(kind):
                self.write("model/Fault.cpp", CLEAN)
                self.assertEqual(self.outputs(kind), [])
                self.write("model/Fault.cpp", fault)
                outputs = self.outputs(kind)
                self.assertEqual(len(outputs), 1)
                self.assertIn("Fault.cpp", outputs[0])

    def test_files_that_pass_together_are_not_checked_one_by_one(self):
        self.write("model/Other.cpp", CLEAN.replace("twice", "twofold"))
        jobs = code_checks.tidy_jobs(self.root, self.build)
        passed = code_checks.Passed(self.build / "checked/tidy")
        code_checks.tidy_together(self.root, self.build, passed, jobs)
        self.assertEqual(len(list(passed.folder.iterdir())), 2)
        self.write("model/Other.cpp", FAULTS["tidy"])
        outputs = self.outputs("tidy")
        self.assertEqual(len(outputs), 1)
        self.assertIn("Other.cpp", outputs[0])

    def test_files_that_cannot_be_one_unit_are_checked_one_by_one(self):
        self.write("model/Other.cpp", CLEAN)
        self.assertEqual(self.outputs("tidy"), [])

    def test_a_fault_is_told_again_until_it_is_mended(self):
        self.write("model/Fault.cpp", FAULTS["format"])
        self.assertEqual(self.outputs("format"), self.outputs("format"))
        self.assertEqual(len(self.outputs("format")), 1)

    def test_a_fault_in_a_header_is_found_after_its_includer_passed(self):
        self.write("model/Part.h", "#pragma once\nint part();\n")
        self.write("model/Whole.cpp", '#include "model/Part.h"\nint whole() {\n    return 1;\n}\n')
        self.assertEqual(self.outputs("format"), [])
        marks = len(list((self.build / "checked/format").iterdir()))
        self.write("model/Part.h", "#pragma once\nint part( );\n")
        self.assertEqual(len(self.outputs("format")), 1)
        # The includer was looked at anew beside the header.
        self.assertEqual(len(list((self.build / "checked/format").iterdir())), marks + 1)

    def test_scripts_are_found_by_their_first_line(self):
        self.write("go", "#!/bin/bash\nexit 0\n")
        self.write("notes", "rm -r $1/*\n")
        self.assertEqual(self.outputs("scripts"), [])
        self.write("go", SCRIPT_FAULT)
        self.assertEqual(len(self.outputs("scripts")), 1)

    def test_a_misspelt_word_is_found(self):
        self.write("notes.md", "Received.\n")
        self.assertEqual(self.spelling(), 0)
        self.write("notes.md", "Rec" + "ieved.\n")
        self.assertNotEqual(self.spelling(), 0)

    def spelling(self):
        command = ["codespell", "."]
        return subprocess.run(command, cwd=self.root, capture_output=True, check=False).returncode

    def test_tests_and_generated_files_are_no_program_units(self):
        self.write("tests/model/ATest.cpp", CLEAN)
        self.write("build/Generated.cpp", CLEAN)
        names = [name for name, _ in code_checks.program_units(self.root, self.build)]
        self.assertEqual(names, ["model/Clean.cpp"])

    def test_precompiled_headers_are_kept_from_the_checkers(self):
        flags = "c++ -Winvalid-pch -include /b/cmake_pch.hxx"
        file = str(self.root / "model/Clean.cpp")
        entry = {"directory": str(self.root), "file": file, "command": f"{flags} -o x -c {file}"}
        (self.build / "compile_commands.json").write_text(json.dumps([entry]))
        jobs = code_checks.tidy_jobs(self.root, self.build)
        self.assertEqual(len(jobs), 1)
        commands = json.loads((self.build / "checked/alone/compile_commands.json").read_text())
        self.assertEqual([each["command"] for each in commands], [f"c++ -o x -c {file}"])
        self.assertIn(f"-p={self.build / 'checked/alone'}", jobs[0][2])


if __name__ == "__main__":
    unittest.main()
