"""The scripts at the root and in packaging/: what they install, what they say when they cannot.

The programs that would change the machine (apt-get, sudo, cmake) are stood in for by scripts in a
folder that comes first on the path; what they were asked is read from a file.
"""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
import unittest.mock
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


class ScriptTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="tree with blanks ")
        self.addCleanup(folder.cleanup)
        self.tree = Path(folder.name, "tree")
        self.fakes = Path(folder.name, "fakes")
        self.fakes.mkdir()
        self.calls = Path(folder.name, "calls")
        self.calls.touch()
        shutil.copytree(ROOT / "packaging", self.tree / "packaging")
        for name in ("run", "test", ".ci/run"):
            (self.tree / name).parent.mkdir(exist_ok=True)
            shutil.copy(ROOT / name, self.tree / name)
        self.packages("build one", "build two", "test three")
        self.user(1000)
        self.installed("one", "two", "three")
        for name in ("apt-get", "sudo", "cmake", "ctest"):
            self.fake(name, f'echo "{name} $*" >> "{self.calls}"')
        # sudo lets everything through, the fakes included.
        self.fake("sudo", f'[ "$1" = -n ] && shift; echo "sudo $*" >> "{self.calls}"; "$@"')

    def packages(self, *lines):
        text = "# a comment\n\n" + "\n".join(lines) + "\n"
        (self.tree / "packaging/packages.txt").write_text(text)

    def fake(self, name, body):
        path = self.fakes / name
        path.write_text(f"#!/bin/bash\n{body}\n")
        path.chmod(0o755)

    def user(self, number):
        self.fake("id", f"echo {number}")

    def installed(self, *names):
        lines = "".join(f"echo {name} installed; " for name in names)
        # As the real one: it fails when it is asked for a package that it does not know.
        self.fake("dpkg-query", f"{lines} echo gone not-installed; exit 1")

    def run_script(self, name, *arguments, path=None):
        environment = dict(os.environ, PATH=path or f"{self.fakes}:{os.environ['PATH']}")
        for variable in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
            environment.pop(variable, None)
        return subprocess.run(
            [self.tree / name, *arguments],
            env=environment,
            cwd="/",
            stdin=subprocess.DEVNULL,
            capture_output=True,
            text=True,
            check=False,
        )

    def asked(self):
        return self.calls.read_text().splitlines()


APT = "env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300"


class InstallPackages(ScriptTest):
    def install(self, *purposes, path=None):
        return self.run_script("packaging/install-packages", *purposes, path=path)

    def test_nothing_is_asked_of_the_machine_when_all_is_there(self):
        done = self.install("build", "test")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        self.assertEqual(self.asked(), [])

    def test_only_what_is_missing_and_asked_for_is_installed(self):
        self.user(0)
        self.installed("one")
        self.assertEqual(self.install("build").returncode, 0)
        self.assertEqual(
            [call.rpartition("300 ")[2] for call in self.asked()],
            ["update", "install --no-install-recommends two"],
        )

    def test_a_user_installs_through_sudo(self):
        self.installed("one")
        self.assertEqual(self.install("build").returncode, 0)
        self.assertEqual(
            [call for call in self.asked() if call.startswith("sudo")],
            ["sudo true", f"sudo {APT} update", f"sudo {APT} install --no-install-recommends two"],
        )

    def test_a_removed_package_counts_as_missing(self):
        self.packages("build gone")
        self.user(0)
        self.install("build")
        self.assertIn("install --no-install-recommends gone", self.asked()[-1])

    def bare_path(self):
        """The fakes and what the script itself stands on, so that nothing else is found."""
        for name in ("bash", "awk", "sort", "comm", "dirname", "readlink", "env", "true"):
            (self.fakes / name).symlink_to(shutil.which(name))
        return str(self.fakes)

    def test_without_root_and_sudo_it_says_so(self):
        self.installed("one")
        path = self.bare_path()
        (self.fakes / "sudo").unlink()
        done = self.install("build", path=path)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(
            done.stderr, "Cannot install two: that needs root, and there is no sudo.\n"
        )

    def test_when_sudo_refuses_it_says_so(self):
        self.installed("one")
        self.fake("sudo", "exit 1")
        done = self.install("build")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(
            done.stderr,
            "Asking sudo to install two\n"
            "Cannot install two: that needs root, and sudo does not allow it.\n",
        )

    def test_without_a_network_it_says_so_last(self):
        self.installed("one")
        self.user(0)
        self.fake("apt-get", "echo 'E: Unable to fetch' >&2; exit 100")
        done = self.install("build")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(
            done.stderr.splitlines()[-1],
            "Cannot install two: apt could not get them; is this machine on the network?",
        )

    def test_a_failed_update_does_not_keep_a_package_from_being_installed(self):
        self.installed("one")
        self.user(0)
        self.fake("apt-get", '[ "${*: -1}" != update ]')
        self.assertEqual(self.install("build").returncode, 0)

    def test_without_dpkg_it_names_what_is_needed(self):
        path = self.bare_path()
        (self.fakes / "dpkg-query").unlink()
        done = self.install("build", path=path)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(
            done.stderr,
            "Cannot tell what is installed: this system has no dpkg; "
            "install the counterparts of one two.\n",
        )


class RunAndTest(ScriptTest):
    def setUp(self):
        super().setUp()
        programs = self.tree / "build/release/bin"
        programs.mkdir(parents=True)
        for name in ("scenewright", "scenewright-cli"):
            (programs / name).write_text(f'#!/bin/bash\necho "{name} $*"\n')
            (programs / name).chmod(0o755)

    def output(self, name, *arguments):
        done = self.run_script(name, *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def test_run_builds_the_release_of_its_own_tree(self):
        self.assertEqual(self.output("run", "--build"), "")
        self.assertEqual(
            self.asked(),
            [f"cmake -S {self.tree} --preset release", f"cmake --build {self.tree}/build/release"],
        )

    def test_a_build_folder_of_another_place_is_made_anew(self):
        cache = self.tree / "build/release/CMakeCache.txt"
        cache.write_text("CMAKE_HOME_DIRECTORY:INTERNAL=/elsewhere\n")
        self.output("run", "--build")
        self.assertEqual(self.asked()[0], f"cmake -S {self.tree} --preset release --fresh")
        self.calls.write_text("")
        cache.write_text(f"CMAKE_HOME_DIRECTORY:INTERNAL={self.tree}\n")
        self.output("run", "--build")
        self.assertEqual(self.asked()[0], f"cmake -S {self.tree} --preset release")

    STREAMS = ("--console", "-", "--log=-")  # given, so that the script adds none of its own

    def test_run_opens_the_editor_on_the_virtual_controller(self):
        self.assertEqual(
            self.output("run", *self.STREAMS), "scenewright --virtual --console - --log=-\n"
        )

    def test_run_leaves_the_virtual_controller_to_its_argument(self):
        self.assertEqual(
            self.output("run", "--virtual=a b", *self.STREAMS),
            "scenewright --virtual=a b --console - --log=-\n",
        )

    def test_run_usb_opens_the_editor_on_the_keyboard(self):
        self.assertEqual(
            self.output("run", "--usb", *self.STREAMS), "scenewright --console - --log=-\n"
        )

    def test_run_keeps_the_streams_of_the_editor_off_the_terminal(self):
        folder = self.tree / "build/run"
        for _ in range(2):
            done = self.run_script("run", "--usb", "--log=-")
            self.assertEqual(
                done.stdout, f"scenewright --console={folder}/console.txt --log=-\n"
            )
            self.assertEqual((folder / "console.txt").read_text(), "")
            (folder / "console.txt").write_text("of the run before")
        self.assertEqual(
            done.stderr.splitlines()[-1], f"The window writes its log into {folder}."
        )
        self.assertEqual(folder.stat().st_mode & 0o777, 0o700)

    def test_run_gives_the_editor_a_runtime_folder_where_there_is_none(self):
        editor = self.tree / "build/release/bin/scenewright"
        editor.write_text('#!/bin/bash\necho "$XDG_RUNTIME_DIR"\n')
        with unittest.mock.patch.dict(os.environ):
            os.environ.pop("XDG_RUNTIME_DIR", None)
            self.assertEqual(self.output("run", "--usb"), f"{self.tree}/build/run\n")
        with unittest.mock.patch.dict(os.environ, XDG_RUNTIME_DIR="/of/the/session"):
            self.assertEqual(self.output("run", "--usb"), "/of/the/session\n")

    def test_a_first_configuration_is_announced(self):
        self.assertEqual(
            self.run_script("run", "--build").stderr,
            f"Configuring the build in {self.tree}/build/release\n",
        )
        (self.tree / "build/release/CMakeCache.txt").write_text(
            f"CMAKE_HOME_DIRECTORY:INTERNAL={self.tree}\n"
        )
        self.assertEqual(self.run_script("run", "--build").stderr, "")

    def test_a_build_that_fails_is_told_in_a_sentence(self):
        self.fake("cmake", '[ "$1" != --build ]')
        done = self.run_script("run", "--build")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(
            done.stderr,
            f"Configuring the build in {self.tree}/build/release\n"
            f"Cannot build the programs in {self.tree}/build/release; "
            "the compiler says above where it stopped.\n",
        )

    def test_a_configuration_that_fails_is_told_in_a_sentence(self):
        self.fake("cmake", "exit 1")
        done = self.run_script("test")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(
            done.stderr,
            f"Configuring the build in {self.tree}/build/release\n"
            f"Cannot configure the build in {self.tree}/build/release; "
            "cmake says above what it misses.\n",
        )

    def test_test_ends_with_ctest_and_its_exit_code(self):
        self.fake("ctest", 'echo "ctest $*"; exit 8')
        for name in ("test", ".ci/run"):
            done = self.run_script(name, "-R", "platform")
            self.assertEqual(done.returncode, 8)
            self.assertEqual(
                done.stdout,
                f"ctest --test-dir {self.tree}/build/tests --output-on-failure "
                f"--parallel {len(os.sched_getaffinity(0))} -R platform\n",
            )

    def test_test_takes_the_whole_tables_along_on_request(self):
        self.fake("ctest", 'echo "ctest $*"')
        self.assertTrue(
            self.output("test", "--all", "-R", "sweep").endswith("--build-config all -R sweep\n")
        )

    def test_test_builds_every_preset_and_gives_ctest_their_tests_as_one(self):
        self.run_script("test")
        presets = ["release", "dev", "tsan"]
        self.assert_built(presets)
        self.assert_tested(presets[1:])

    def test_test_runs_the_fuzzing_engine_with_all(self):
        self.run_script("test", "--all")
        presets = ["release", "dev", "tsan", "fuzz"]
        self.assert_built(presets)
        self.assert_tested(presets[1:])

    def assert_built(self, presets):
        asked = self.asked()
        self.assertEqual(
            [call for call in asked if "--preset" in call],
            [f"cmake -S {self.tree} --preset {preset}" for preset in presets],
        )
        programs = " --target=scenewright_test_programs"
        targets = {"release": f" --target=all{programs}", "dev": ""}
        self.assertEqual(
            [call for call in asked if call.startswith("cmake --build")],
            [
                f"cmake --build {self.tree}/build/{preset}{targets.get(preset, programs)}"
                for preset in presets
            ],
        )

    def assert_tested(self, presets):
        self.assertEqual(
            (self.tree / "build/tests/CTestTestfile.cmake").read_text().splitlines(),
            [f'subdirs("{self.tree}/build/{preset}")' for preset in presets],
        )

    def test_test_runs_longer_checks_on_request(self):
        scripts = {"fuzz": "tests/fuzz/run", "soak": "tests/system/soak", "quick": "tests/quick"}
        for option, script in scripts.items():
            target = self.tree / script
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_text('#!/bin/bash\necho "${0##*/} $*"; exit 3\n')
            target.chmod(0o755)
            done = self.run_script("test", f"--{option}", "7")
            self.assertEqual((done.returncode, done.stdout), (3, f"{target.name} 7\n"))


class Quick(ScriptTest):
    def setUp(self):
        super().setUp()
        shutil.copytree(ROOT / "packaging", self.tree / "packaging", dirs_exist_ok=True)
        (self.tree / "tests").mkdir()
        shutil.copy(ROOT / "tests/quick", self.tree / "tests/quick")
        for name in ("protocol/A.cpp", "editor/qt/B.cpp", "docs/a.md"):
            (self.tree / name).parent.mkdir(parents=True, exist_ok=True)
            (self.tree / name).write_text("")
        for command in (["init", "-q"], ["add", "."], ["commit", "-q", "-m", "all"]):
            subprocess.run(
                ["git", "-c", "user.name=a", "-c", "user.email=a@b", *command],
                cwd=self.tree,
                check=True,
            )

    def built(self, *arguments):
        """The test programs that are built, and the names of the cases that are run."""
        done = self.run_script("tests/quick", *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        *_, build, test = self.asked()
        names = [word.removeprefix("--target=") for word in build.split() if "--target" in word]
        return names, test.split()[-1]

    def test_a_changed_file_concerns_its_folder_and_those_that_see_it_first(self):
        (self.tree / "protocol/A.cpp").write_text("// changed")
        programs, cases = self.built()
        self.assertEqual(programs, ["protocol-tests", "virtual-tests", "app-tests"])
        for case in (r"protocol(\.[0-9]+)?", "tree.format"):
            self.assertIn(case, cases)

    def test_a_new_file_counts_and_the_longest_folder_does(self):
        (self.tree / "editor/qt/C.cpp").write_text("")
        self.assertEqual(self.built()[0], ["editor-qt-tests", "editor-qt-files-tests"])

    def test_folders_may_be_named(self):
        self.assertEqual(self.built("tests/protocol/")[0], ["protocol-tests"])
        done = self.run_script("tests/quick", "protocol-x")
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"^No tests belong to protocol-x; these have some: .*\.\n$")

    def test_every_program_of_the_table_is_there_and_every_program_is_in_it(self):
        text = "".join(path.read_text() for path in (ROOT / "tests").rglob("CMakeLists.txt"))
        there = set(re.findall(r"^scenewright_test\(([\w-]+)$", text, re.MULTILINE))
        table = (ROOT / "tests/quick").read_text()
        listed = re.findall(r"^    \"[\w/-]+\": \[(.*)\],$", table, re.MULTILINE)
        self.assertEqual(there, set(re.findall(r'"([\w-]+)"', " ".join(listed))))


if __name__ == "__main__":
    unittest.main()
