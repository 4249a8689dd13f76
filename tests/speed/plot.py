"""A plot of time against size as an SVG: one panel a reader, both axes from 0."""

from xml.sax.saxutils import escape

_WIDTH, _HEIGHT = 300, 220  # of a panel
_LEFT, _TOP, _RIGHT, _BOTTOM = 52, 34, 16, 40  # room around its axes
_COLUMNS = 2

Panel = list[tuple[float, float]]


def _text(x: float, y: float, words: str, anchor: str = "middle", extra: str = "") -> str:
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}"{extra}>{escape(words)}</text>'


def _line(x1: float, y1: float, x2: float, y2: float, style: str) -> str:
    return f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" {style}/>'


class _Axes:
    """Where values stand in a panel."""

    def __init__(self, points: Panel) -> None:
        self.most_x = max(x for x, _ in points)
        self.most_y = max(y for _, y in points)
        self.right = _WIDTH - _RIGHT
        self.bottom = _HEIGHT - _BOTTOM

    def x(self, value: float) -> float:
        return _LEFT + value / self.most_x * (self.right - _LEFT)

    def y(self, value: float) -> float:
        return self.bottom - value / self.most_y * (self.bottom - _TOP)

    def drawing(self) -> list[str]:
        parts = [_line(_LEFT, self.bottom, self.right, self.bottom, 'stroke="#556"')]
        parts.append(_line(_LEFT, _TOP, _LEFT, self.bottom, 'stroke="#556"'))
        for share in (0, 0.5, 1):
            x, y = share * self.most_x, share * self.most_y
            parts.append(_text(self.x(x), self.bottom + 15, f"{x:.0f}"))
            parts.append(_text(_LEFT - 5, self.y(y) + 4, f"{y:.3g}", "end"))
        return parts


def panel(title: str, points: Panel) -> str:
    """The measured points, and the straight line from 0 to the last of them."""
    axes = _Axes(points)
    last_x, last_y = points[-1]
    parts = axes.drawing()
    dashed = 'stroke="#99a" stroke-dasharray="4 3"'
    parts.append(_line(axes.x(0), axes.y(0), axes.x(last_x), axes.y(last_y), dashed))
    for x, y in points:
        place = f'cx="{axes.x(x):.1f}" cy="{axes.y(y):.1f}"'
        parts.append(f'<circle {place} r="3.5" fill="#167a3a"/>')
    parts.append(_text(_WIDTH / 2, 18, title, extra=' font-weight="bold"'))
    parts.append(_text((_LEFT + axes.right) / 2, _HEIGHT - 8, "scenes"))
    parts.append(_text(_LEFT + 4, _TOP + 4, "ms", "start"))
    return "\n".join(parts)


def svg(curves: dict[str, Panel]) -> str:
    rows = -(-len(curves) // _COLUMNS)
    width, height = _COLUMNS * _WIDTH, rows * _HEIGHT
    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        'font-family="sans-serif" font-size="11" fill="#223">',
        f'<rect width="{width}" height="{height}" fill="#fff"/>',
    ]
    for place, (title, points) in enumerate(curves.items()):
        x, y = place % _COLUMNS * _WIDTH, place // _COLUMNS * _HEIGHT
        parts.append(f'<g transform="translate({x} {y})">\n{panel(title, points)}\n</g>')
    return "\n".join([*parts, "</svg>\n"])
