"""Where one run of the sweep takes place: a folder of its own, as it is before each run."""

import os
import shutil
import stat
import threading
from contextlib import ExitStack, contextmanager
from pathlib import Path

import sweep_state


def contents(folder):
    """What lies below the folder: kind, permission bits and content, by path. Times do not count."""
    found = {}
    for path in sorted(folder.rglob("*")):
        status = path.lstat()
        mode = stat.S_IMODE(status.st_mode)
        if path.is_symlink():
            what = ("link", os.readlink(path))
        elif path.is_dir():
            what = ("folder", mode)
        elif path.is_file():
            what = ("file", mode, path.read_bytes() if status.st_mode & 0o400 else b"")
        else:
            what = ("other", mode)
        found[str(path.relative_to(folder))] = what
    return found


def empty(folder):
    """The folder itself stays: a process may work in it."""
    folder.mkdir(mode=0o755, exist_ok=True)
    for path in folder.iterdir():
        if path.is_dir() and not path.is_symlink():
            shutil.rmtree(path)
        else:
            path.unlink()


class Place:
    """`files` is the working folder of a run; `home` its user's; out and err lie beside them."""

    def __init__(self, folder, template, home=None):
        self.folder = Path(folder)
        self.folder.mkdir(parents=True)
        self.template = template
        self.templates = {"files": template} | ({"home": home} if home else {})
        self.in_order = {"files": ("folder", 0o755), "home": ("folder", 0o755)}
        for name, source in self.templates.items():
            self.in_order |= {f"{name}/{path}": what for path, what in contents(source).items()}
        self.files = self.folder / "files"
        self.home = self.folder / "home"
        self.made = self.folder / "made"
        self.made.mkdir()
        self.stream("in").write_bytes(b"")

    def stream(self, name):
        return self.folder / name

    @contextmanager
    def streams(self):
        """The standard streams of a run, as arguments of Popen."""
        with ExitStack() as stack:
            yield {
                f"std{name}": stack.enter_context(open(self.stream(name), mode))
                for name, mode in (("in", "rb"), ("out", "wb"), ("err", "wb"))
            }

    def contents(self):
        return sweep_state.without_times(
            {
                name: what
                for name, what in contents(self.folder).items()
                if name.split("/")[0] in ("files", "home")
            }
        )

    def prepare(self):
        """As it is before a run."""
        for stream in ("out", "err"):
            self.stream(stream).write_bytes(b"")
        if self.contents() == self.in_order:
            return
        for name in ("files", "home"):
            empty(self.folder / name)
        for name, source in self.templates.items():
            shutil.copytree(source, self.folder / name, symlinks=True, dirs_exist_ok=True)
        self.files.chmod(0o755)

    def environment(self, **more):
        kept = {
            name: value
            for name, value in os.environ.items()
            if not name.startswith(("XDG_", "QT_", "SWEEP_"))
        }
        return kept | {"HOME": str(self.home), "LC_ALL": "C.UTF-8"} | more


class Places:
    """A place for each worker below the folder, made when it first works."""

    home = None

    def __init__(self, folder):
        self.folder = folder
        self.template = folder / "template"
        self.local = threading.local()
        self._lock = threading.Lock()
        self._count = 0

    def place(self):
        if not hasattr(self.local, "place"):
            with self._lock:
                self._count += 1
                number = self._count
            self.local.place = Place(self.folder / f"place{number}", self.template, self.home)
            self.begin_worker(number)
        return self.local.place

    def begin_worker(self, number):
        """What else a worker needs."""
