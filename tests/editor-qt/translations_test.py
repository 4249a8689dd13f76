#!/usr/bin/env python3
"""Every text of the window is translated into every language, and nothing else is.

translations_test.py LUPDATE SOURCE_DIR
"""
import itertools
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as tree

LANGUAGES = ["de", "es", "fr", "ja", "zh_CN"]
PLACES = re.compile(r"%(?:\d+|n|[0-9]*[sdx])|\{[^}]*\}")
MARK = re.compile(r"&(?!&)(.)")
# Texts that only list the letters marked elsewhere, with the sources of those.
LETTERS = {
    "fesdvhw": ["&File", "&Edit", "&Scene", "&Device", "&View", "&Help", "Sho&w"],
    "gamt": ["&Gain Panel", "&Appearance", "&Monitor", "Choose by &Touching"],
}
MENUS = [
    LETTERS["fesdvhw"],
    ["&Open Bank...", "&Save Bank", "Save Bank &As...", "&Recent", "Open S&cene Into This One...",
     "Save &This Scene...", "&Play This Scene Here", "&Earlier Scenes", "&Quit"],
    ["&Undo", "Re&do", "&Copy Control", "&Paste Control", "Select &All of This Kind", "&Fill...",
     "&Transpose...", "&Reset Control"],
    ["&Paste Into Controls", "&Reset Controls", "&Fill...", "&Transpose..."],
    ["&Rename...", "&Copy To", "S&wap With", "&Duplicate From File...", "R&eset Scene"],
    *([*page, "Fill &with", "F&ill", "Cance&l"]
      for page in (["First &note", "&Scale or steps"], ["First &controller", "&Steps"],
                   ["&Channel"], ["&Colours", "&From", "&To"], ["&Semitones"])),
    ["&Name", "&Rename", "&Cancel"],
    ["&Read Scenes", "&Send Scenes", "&Compare With Device", "Send And &Verify",
     "Read the Keyboard &Before a Send", "Try &It"],
    ["As the &System", "&Light", "&Dark"],
    ["De&fault", "&Apply", "&OK"],
    ["&Guide", "&What's This?", "&About Scenewright"],
    ["&Back", "&Forward", "&Contents", "&Open in Browser"],
]
lupdate, root = sys.argv[1], pathlib.Path(sys.argv[2])


def marked(text):
    return [letter.lower() for letter in MARK.findall(text)]


def places(text):
    """Places that are filled in turn ("{} {:x}") are numbered, so that a text may turn them round."""
    found = PLACES.findall(text)
    turn = itertools.count()
    return sorted(re.sub(r"^\{(?=[:}])", lambda _: "{%d" % next(turn), place) for place in found)


def messages(file):
    for context in tree.parse(file).getroot().iter("context"):
        for message in context.iter("message"):
            yield context.findtext("name"), message


class Translations(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.files = {}
        for language in LANGUAGES:
            name = f"scenewright_{language}.ts"
            kept = root / "resources" / "translations" / name
            self.files[language] = pathlib.Path(self.folder.name) / name
            self.files[language].write_bytes(kept.read_bytes())
        subprocess.run(
            [root / "resources/translations/update", *self.files.values()],
            check=True, stdout=subprocess.DEVNULL, env={**os.environ, "LUPDATE": lupdate})

    def assert_all(self, is_good):
        """Of each source and the element of its translation."""
        faults = [
            (language, context, message.findtext("source"))
            for language, file in self.files.items()
            for context, message in messages(file)
            if not is_good(message.findtext("source"), message.find("translation"))]
        self.assertEqual(faults, [])

    def test_every_text_is_found(self):
        for file in self.files.values():
            self.assertGreater(len(list(messages(file))), 200)

    def test_no_text_is_untranslated_or_stale(self):
        self.assert_all(lambda _, translation: translation.get("type") is None
                        and translation.text)

    def test_no_text_is_left_over(self):
        for language, file in self.files.items():
            kept = root / "resources" / "translations" / file.name
            with self.subTest(language=language):
                self.assertEqual(
                    [(context, message.findtext("source")) for context, message in messages(kept)],
                    [(context, message.findtext("source")) for context, message in messages(file)])

    def test_places_are_kept(self):
        self.assert_all(lambda source, translation: places(source)
                        == places(translation.text or ""))

    def test_a_letter_is_marked_where_one_is(self):
        self.assert_all(lambda source, translation: len(marked(source))
                        == len(marked(translation.text or "")))

    def test_marked_letters_are_unique_and_listed(self):
        for language, file in self.files.items():
            texts = {message.findtext("source"): message.findtext("translation") or ""
                     for _, message in messages(file)}
            for menu in MENUS + list(LETTERS.values()):
                with self.subTest(language=language, menu=menu):
                    letters = sum((marked(texts[source]) for source in menu), [])
                    self.assertEqual(len(letters), len(set(letters)), letters)
            for letters, menu in LETTERS.items():
                with self.subTest(language=language, letters=letters):
                    self.assertEqual(sorted(texts[letters]),
                                     sorted(sum((marked(texts[source]) for source in menu), [])))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
