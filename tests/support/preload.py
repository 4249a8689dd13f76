"""Objects that are loaded into a program in front of its libraries (LD_PRELOAD)."""

import tempfile
from pathlib import Path

_links = tempfile.TemporaryDirectory(prefix="preload")  # removed when this process ends
Path(_links.name).chmod(0o755)  # some programs run as another user


def loadable(path: Path) -> str:
    """A name of the object that the loader takes: its list has blanks and colons between its entries."""
    path = path.resolve()
    if not any(sign in str(path) for sign in " :"):
        return str(path)
    link = Path(_links.name) / path.name
    if not link.exists():
        link.symlink_to(path)
    return str(link)
