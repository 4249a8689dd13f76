"""A copy of the sources with a build of its own, where mutants are planted and tried."""

import os
import re
import resource
import shutil
import signal
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tree"))

import sources  # noqa: E402  pylint: disable=wrong-import-position

# Without debug information, which nobody reads here, and with the library's own checks, so that an
# index beyond its end is no matter of luck.
_CONFIGURE = [
    "-GNinja",
    "-DCMAKE_BUILD_TYPE=None",
    "-DCMAKE_CXX_FLAGS=-O0 -D_GLIBCXX_ASSERTIONS",
    "-DSCENEWRIGHT_WERROR=OFF",
    "-DBUILD_TESTING=ON",
]
if shutil.which("ld.gold"):  # quicker than the usual linker, but not on every system
    _CONFIGURE.append("-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=gold")
_BUILD_SECONDS = 1200
_MEMORY = 4 << 30  # bytes that a test program may ask for; a mutant may ask for ever more


@dataclass
class Ended:
    """How a command ended: its exit code, or None when it was not done in time."""

    code: int | None
    output: str


def treat_signals_as_usual() -> None:
    """A shell that starts a program in the background has it ignore some, and so would the tests."""
    signal.signal(signal.SIGINT, signal.default_int_handler)
    signal.signal(signal.SIGHUP, signal.SIG_DFL)


def _limit_memory() -> None:
    resource.setrlimit(resource.RLIMIT_AS, (_MEMORY, _MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(command: list[str], seconds: float, limited: bool = False, **settings: object) -> Ended:
    """Runs a command as a session of its own, so that all it started ends with it."""
    with subprocess.Popen(
        command,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        start_new_session=True,
        preexec_fn=_limit_memory if limited else None,
        **settings,
    ) as process:
        try:
            output, _ = process.communicate(timeout=seconds)
            return Ended(process.returncode, output.decode(errors="replace"))
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            output, _ = process.communicate()
            return Ended(None, output.decode(errors="replace"))
        except BaseException:
            os.killpg(process.pid, signal.SIGKILL)
            raise


class CopyOfTree:
    """The copy under `place`: its sources, its build, and a home folder for the tests."""

    def __init__(self, root: Path, place: Path):
        self.root = root
        self.tree = place / "tree"
        self.build = place / "build"
        self.home = place / "home"

    def refresh(self) -> None:
        """Makes the copy what the sources are now. What is the same keeps its time stamp, so that
        it is not built again."""
        wanted = sources.files(self.root, ("",))
        for path in set(sources.files(self.tree, ("",))) - set(wanted):
            (self.tree / path).unlink()
        for path in wanted:
            copy = self.tree / path
            copy.parent.mkdir(parents=True, exist_ok=True)
            if not copy.is_file() or copy.read_bytes() != (self.root / path).read_bytes():
                shutil.copy(self.root / path, copy)

    def configure(self) -> None:
        self.home.mkdir(parents=True, exist_ok=True)
        launcher = "ccache" if shutil.which("ccache") else ""
        command = ["cmake", "-S", str(self.tree), "-B", str(self.build), *_CONFIGURE]
        done = run([*command, f"-DCMAKE_CXX_COMPILER_LAUNCHER={launcher}"], _BUILD_SECONDS)
        if done.code != 0:
            raise SystemExit(f"Cannot configure the copy of the tree:\n{done.output}")

    def make(self, target: str) -> Ended:
        jobs = str(len(os.sched_getaffinity(0)))
        return run(["ninja", "-C", str(self.build), "-j", jobs, target], _BUILD_SECONDS)

    def program(self, name: str) -> Path:
        places = [self.build / "bin" / name, self.build / "tests" / "model" / "bin" / name]
        return next((place for place in places if place.is_file()), places[0])

    def test(self, name: str, cases: str, seconds: float) -> Ended:
        """Runs the cases of a built test program that `cases` names, until the first failure."""
        environment = {
            **os.environ,
            "HOME": str(self.home),
            "XDG_CONFIG_HOME": "/nonexistent",
            "GTEST_FAIL_FAST": "1",
            "GTEST_BRIEF": "1",
        }
        command = [str(self.program(name)), f"--gtest_filter={cases}"]
        return run(command, seconds, limited=True, cwd=self.home, env=environment)

    def remove(self) -> None:
        for folder in (self.tree, self.build, self.home):
            shutil.rmtree(folder, ignore_errors=True)


_PROGRAM = re.compile(r"scenewright_test\((\S+)\s+SOURCES\s+(.*?)\s+USES", re.DOTALL)
_SUITE = re.compile(r"^(?:TYPED_)?TEST(?:_[FP])?\((\w+),", re.MULTILINE)


def own_tests(root: Path, path: str) -> tuple[str, str] | None:
    """The test program that holds the tests of a source file, and the filter that runs just them."""
    name = Path(path).stem + "Test.cpp"
    for lists in sorted((root / "tests").rglob("CMakeLists.txt")):
        for program, files in _PROGRAM.findall(lists.read_text(encoding="utf-8")):
            for file in files.split():
                if Path(file).name == name:
                    text = (lists.parent / file).read_text(encoding="utf-8")
                    suites = sorted(set(_SUITE.findall(text)))
                    cases = ":".join(f"{suite}.*:*/{suite}.*" for suite in suites)
                    return f"{program}-tests", cases
    return None
