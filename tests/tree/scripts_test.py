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

    def test_only_what_is_missing_or_was_removed_and_is_asked_for_is_installed(self):
        self.packages("build one", "build two", "build gone", "test three")
        self.user(0)
        self.installed("one")
        self.assertEqual(self.install("build").returncode, 0)
        self.assertEqual(
            [call.rpartition("300 ")[2] for call in self.asked()],
            [
                # Without the option apt-get takes a source that it did not reach for no failure.
                "-o APT::Update::Error-Mode=any update",
                "install --no-install-recommends gone two",
            ],
        )

    def test_a_user_installs_through_sudo(self):
        self.installed("one")
        done = self.install("build")
        self.assertEqual((done.returncode, done.stderr), (0, "Asking sudo to install two\nInstalling two\n"))
        self.assertEqual(
            [call for call in self.asked() if call.startswith("sudo")],
            [
                "sudo true",
                f"sudo {APT} -o APT::Update::Error-Mode=any update",
                f"sudo {APT} install --no-install-recommends two",
            ],
        )

    def test_a_failed_update_does_not_keep_a_package_from_being_installed(self):
        self.installed("one")
        self.user(0)
        self.fake("apt-get", '[ "${*: -1}" != update ]')
        self.assertEqual(self.install("build").returncode, 0)

    def without(self, name):
        """The fakes but one, and what the script itself stands on, so that nothing else is found."""
        for other in ("bash", "awk", "sort", "comm", "dirname", "readlink", "env", "true"):
            (self.fakes / other).symlink_to(shutil.which(other))
        (self.fakes / name).unlink()
        return str(self.fakes)

    def test_what_keeps_it_from_installing_is_said_last_in_one_sentence(self):
        def no_network():
            self.user(0)
            self.fake("apt-get", "echo 'E: Unable to fetch' >&2; exit 100")

        def network(policy):
            """With the lists that were fetched, apt-get installs nothing all the same."""
            self.user(0)
            self.fake("apt-get", '[ "${*: -1}" = update ]')
            self.fake("apt-cache", f"[ $1 = policy ] && printf '{policy}'")

        for prepare, told in (
            (lambda: self.without("sudo"),
             "Cannot install four two: that needs root, and there is no sudo."),
            (lambda: self.fake("sudo", "exit 1"),
             "Cannot install four two: that needs root, and sudo does not allow it."),
            (no_network,
             "Cannot install four two: apt did not reach its package sources; "
             "is this machine on the network?"),
            # Not known at all, and known for nothing but that others name it.
            (lambda: network("four:\\n  Installed: (none)\\n  Candidate: (none)\\n"),
             "Cannot install four two: the network is there, "
             "but no package source of this system has it."),
            (lambda: network("four:\\n  Installed: (none)\\n  Candidate: 1.2-3\\n"),
             "Cannot install two: the network is there, but no package source of this system has it."),
            (lambda: network("four:\\n  Candidate: 4:4.1\\ntwo:\\n  Candidate: 1.2-3\\n"),
             "Cannot install four two: the network is there; "
             "apt says above what stands in the way."),
            (lambda: self.without("dpkg-query"),
             "Cannot tell what is installed: this system has no dpkg; "
             "install the counterparts of four one two."),
        ):
            with self.subTest(told):
                self.setUp()
                self.packages("build one", "build two", "build four")
                self.installed("one")
                done = self.install("build", path=prepare())
                self.assertEqual(done.returncode, 1)
                self.assertEqual(done.stderr.splitlines()[-1], told)


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

    def test_a_build_folder_of_another_place_or_of_older_presets_is_made_anew(self):
        presets = self.tree / "CMakePresets.json"
        presets.touch()
        for place, age, fresh in (
            ("/elsewhere", 1, " --fresh"), (self.tree, 1, ""), (self.tree, -1, " --fresh")
        ):
            cache = self.tree / "build/release/CMakeCache.txt"
            cache.write_text(f"CMAKE_HOME_DIRECTORY:INTERNAL={place}\n")
            os.utime(presets, (cache.stat().st_mtime - age,) * 2)
            self.calls.write_text("")
            self.output("run", "--build")
            self.assertEqual(self.asked()[0], f"cmake -S {self.tree} --preset release{fresh}")

    def test_run_opens_the_editor_on_the_virtual_controller_unless_it_is_told_otherwise(self):
        streams = ["--console", "-", "--log=-"]  # given, so that the script adds none of its own
        for arguments, opened in (
            ([], "--virtual "),
            (["--virtual=a b"], "--virtual=a b "),
            (["--usb"], ""),
        ):
            told = f"scenewright {opened}--console - --log=-\n"
            self.assertEqual(self.output("run", *arguments, *streams), told)

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

    def test_a_configuration_or_build_that_fails_is_told_in_a_sentence(self):
        for script, cmake, told in (
            ("run", '[ "$1" != --build ]',
             "build the programs in {}; the compiler says above where it stopped."),
            ("test", "exit 1", "configure the build in {}; cmake says above what it misses."),
        ):
            self.fake("cmake", cmake)
            done = self.run_script(script, *(["--build"] if script == "run" else []))
            told = told.format(f"{self.tree}/build/release")
            first = f"Configuring the build in {self.tree}/build/release\n"
            self.assertEqual((done.returncode, done.stderr), (1, f"{first}Cannot {told}\n"))

    def test_test_ends_with_ctest_and_its_exit_code(self):
        self.fake("ctest", 'echo "ctest $*"; exit 8')
        common = f"ctest --test-dir {self.tree}/build/tests --output-on-failure "
        common += f"--parallel {2 * len(os.sched_getaffinity(0))} "
        for name in ("test", ".ci/run"):
            done = self.run_script(name, "-R", "platform")
            self.assertEqual((done.returncode, done.stdout), (8, common + "-R platform\n"))
        done = self.run_script("test", "--all", "-R", "sweep")
        self.assertEqual(done.stdout, common + "--build-config all -R sweep\n")

    def test_test_builds_every_preset_and_gives_ctest_their_tests_as_one(self):
        names = ("all", "speed", "scenewright-screenshots", "drag-source")
        rarer = "".join(f" --target={name}" for name in names)
        for arguments, presets, development in (
            ([], ["release", "dev", "tsan"], ""),
            (["--all"], ["release", "dev", "tsan", "fuzz"], rarer),
        ):
            self.calls.write_text("")
            self.run_script("test", *arguments)
            programs = " --target=scenewright_test_programs"
            targets = {"release": f" --target=all{programs}", "dev": development}
            self.assertEqual(
                [call for call in self.asked() if call.startswith("cmake")],
                [
                    call
                    for preset in presets
                    for call in (
                        f"cmake -S {self.tree} --preset {preset}",
                        f"cmake --build {self.tree}/build/{preset}{targets.get(preset, programs)}",
                    )
                ],
            )
            self.assertEqual(
                (self.tree / "build/tests/CTestTestfile.cmake").read_text().splitlines(),
                [f'subdirs("{self.tree}/build/{preset}")' for preset in presets[1:]],
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


class Systems(ScriptTest):
    def setUp(self):
        super().setUp()
        shutil.copytree(ROOT / "tests/systems", self.tree / "tests/systems")

    def test_what_keeps_it_from_trying_a_system_is_said_in_one_sentence(self):
        self.fake("sudo", "exit 1")
        systems = "debian12, debian13, testing and arm64."
        for arguments, told in (
            ([], f"Which system? They are {systems}"),
            (["--test"], f"Which system? They are {systems}"),
            (["debian13", "debian11"],
             f"There is no tree of debian11: the systems are {systems}"),
            (["debian13"],
             "Cannot make a bare tree: that needs root, or a sudo that asks for no password."),
        ):
            with self.subTest(told):
                done = self.run_script("tests/systems/run", *arguments)
                self.assertEqual((done.returncode, done.stdout, done.stderr), (1, "", told + "\n"))
        self.assertFalse((self.tree / "build").exists())

    def test_a_tree_that_cannot_be_made_may_be_for_want_of_a_network(self):
        self.fake("sudo", '[ "$1" = -n ] && shift; "$@"')
        self.fake("apt-config", "true")
        maker = self.tree / "tests/packaging/bare-tree"
        maker.parent.mkdir()
        maker.write_text("#!/bin/bash\necho unreachable; exit 1\n")
        maker.chmod(0o755)
        done = self.run_script("tests/systems/run", "debian13")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(
            done.stderr,
            f"Cannot make a bare tree of trixie, as {self.tree}/build/systems/debian13.log tells; "
            "is this machine on the network?\n",
        )


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
        there |= set(re.findall(r"^add_custom_target\(([\w-]+)-tests ", text, re.MULTILINE))
        table = (ROOT / "tests/quick").read_text()
        listed = re.findall(r"^    \"[\w/-]+\": \[(.*)\],$", table, re.MULTILINE)
        self.assertEqual(there, set(re.findall(r'"([\w-]+)"', " ".join(listed))))


if __name__ == "__main__":
    unittest.main()
