"""One measured figure against its limit, and the table of all."""

from dataclasses import dataclass
from typing import Optional


@dataclass(frozen=True)
class Row:
    what: str
    measured: float
    limit: Optional[float]  # None: told, not judged
    unit: str = ""  # "" is a ratio

    def verdict(self) -> str:
        if self.limit is None:
            return ""
        return "ok" if self.measured <= self.limit else "MISSED"

    def cells(self) -> tuple[str, str, str, str]:
        limit = "" if self.limit is None else self.number(self.limit)
        return self.what, self.number(self.measured), limit, self.verdict()

    def number(self, value: float) -> str:
        digits = 1 if self.unit and value >= 20 else 3
        return f"{value:.{digits}f} {self.unit}".rstrip()


_HEAD = ("what", "measured", "limit", "verdict")


def table(rows: list[Row]) -> str:
    lines = [_HEAD, *(row.cells() for row in rows)]
    widths = [max(len(line[column]) for line in lines) for column in range(len(_HEAD))]
    text = ""
    for line in lines:
        what, *numbers = (cell.ljust(width) for cell, width in zip(line, widths))
        text += "  ".join([what, *numbers]).rstrip() + "\n"
    return text


def missed(rows: list[Row]) -> list[Row]:
    return [row for row in rows if row.verdict() == "MISSED"]
