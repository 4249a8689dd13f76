"""Follows the links of the guide as it was made: check_guide.py GUIDE

Every link leads to a page, a heading or a picture of the guide, and nothing is fetched from elsewhere.
"""

import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import urlsplit


class Page(HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.anchors = set()
        self.links = []
        self.loaded = []
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        if "id" in values:
            self.anchors.add(values["id"])
        if tag == "a":
            self.links.append(values["href"])
        self.loaded += [values[name] for name in ("src", "href") if name in values and tag != "a"]


def faults(folder):
    pages = {path.name: Page(path.read_text(encoding="utf-8")) for path in folder.glob("*.html")}
    for name, page in sorted(pages.items()):
        for target in page.loaded:
            if urlsplit(target).scheme or not (folder / target).is_file():
                yield f"{name}: {target} is not in the guide"
        for target in page.links:
            file, _, anchor = target.partition("#")
            if urlsplit(target).scheme:
                continue  # another site, which only a click opens
            if not (folder / (file or name)).is_file():
                yield f"{name}: {target} leads nowhere"
            elif anchor and anchor not in pages[file or name].anchors:
                yield f"{name}: {target}: no such heading"
    if "guide.html" not in pages:
        yield "guide.html: the first page is not there"


if __name__ == "__main__":
    told = list(faults(Path(sys.argv[1])))
    print("\n".join(told))
    sys.exit(1 if told else 0)
