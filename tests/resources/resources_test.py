"""The property lists that the programs come with: resources_test.py RESOURCES"""

import plistlib
import sys
import unittest
import xml.etree.ElementTree as tree
from pathlib import Path

RESOURCES = Path(sys.argv.pop(1))
PROJECT, BASIC, DEFAULT = (
    plistlib.loads((RESOURCES / f"{name}.plist").read_bytes())
    for name in ("project", "basic", "default")
)
LANGUAGES = ["de", "es", "fr", "ja", "zh_CN"]


def numbers(first, last):
    return [str(number) for number in range(first, last + 1)]


CHANNELS = numbers(1, 16)
VALUES = numbers(0, 127)
OCTAVE = ["C", "C#", "D", "Eb", "E", "F", "F#", "G", "Ab", "A", "Bb", "B"]
NOTES = [f"{OCTAVE[note % 12]}{note // 12 - 1}" for note in range(128)]  # 60, middle C, is C4
COUNTS = {"Group": 4, "Knob": 4, "Slider": 4, "Pad": 8, "Key": 25}
LISTS = {
    "control": ["Common", *(f"{kind} {n}" for kind in COUNTS for n in range(1, COUNTS[kind] + 1))],
    "displaySelect": [
        *("MIDI Channel", "Type", "CC/Note Number", "Lower/Left Value", "Upper/Right Value"),
        *("Behaviour", "Off Value", "On Value"),
    ],
    "select127": VALUES,
    "button-MIDICh": [*CHANNELS, "Global"],
    "button-assginType": ["Off", "CC", "Note"],
    "button-behavior": ["Momentary", "Toggle", "Trigger", "Release"],
    "button-enable": ["Off", "On"],
    "button-note": NOTES,
    "common-PitchBendSpeed": VALUES,
    "common-globalMIDICh": CHANNELS,
    "common-keyTranspose": ["0", "+1", "+2", "+3", "+4", "-1", "-2", "-3", "-4"],
    "common-pianoKeyCh": [*CHANNELS, "Global"],
    "common-velocityCurve": ["Soft", "Normal", "Hard", "Constant"],
}

# The option list of each setting, by the kind that carries it.
COMMON = {
    "globalMIDICh": "common-globalMIDICh",
    "keyConstVelocity": "select127",
    "keyTranspose": "common-keyTranspose",
    "keyVelocityCurve": "common-velocityCurve",
    "padConstVelocity": "select127",
    "padVelocityCurve": "common-velocityCurve",
    "pianoKeyCh": "common-pianoKeyCh",
    "pitchBendSpeed": "common-PitchBendSpeed",
}
TURNED = {
    **dict.fromkeys(("CCOrNoteNumber", "UpperOrRightValue", "LowerOrLeftValue"), "select127"),
    "Enable": "button-enable",
}
STRUCK = {
    **dict.fromkeys(("OnValue", "OffValue"), "select127"),
    "AssignType": "button-assginType",
    "CCOrNoteNumber": "button-note",
}
FIELDS = {
    "Group": {"MIDIChannel": "button-MIDICh"},
    "Knob": TURNED,
    "Slider": TURNED,
    "Pad": {
        **STRUCK,
        **dict.fromkeys(("CR", "CG", "CB"), "select127"),
        "MIDIChannel": "button-MIDICh",
        "PadBehavior": "button-behavior",
    },
    "Key": {**STRUCK, "KeyBehavior": "button-behavior"},
}
# The lists of numbers and notes stand in basic.plist alone, and the names of a new bank's scenes are
# the user's.
WORDS = LISTS.keys() - {
    "select127", "button-note", "common-PitchBendSpeed", "common-globalMIDICh", "common-keyTranspose"
}
# Titles that a language writes as English does.
SAME = {
    "de": {"CC", "Note", "Global", "Normal", *(f"Pad {n}" for n in range(1, 9))},
    "es": {"CC", "Global", "Normal", *(f"Pad {n}" for n in range(1, 9))},
    "fr": {"CC", "Note", "Global", "Type", *(f"Pad {n}" for n in range(1, 9))},
    "ja": {"CC"},
    "zh_CN": {"CC"},
}
# What the window's texts call a display mode, as the label of the setting.
MODES = {0: "MIDI channel", 1: "Type", 5: "Behaviour", 6: "Off value", 7: "On value"}
KEYS = {"BtnID", *(field for fields in FIELDS.values() for field in fields)}
# What a new scene does.
SCENE = [
    ("Group", "MIDIChannel", [16] * 4),  # the global one
    ("Knob", "CCOrNoteNumber", [74, 71, 73, 72]),
    ("Slider", "CCOrNoteNumber", [7, 11, 91, 93]),
    *((kind, "LowerOrLeftValue", [0] * 4) for kind in ("Knob", "Slider")),
    *((kind, "UpperOrRightValue", [127] * 4) for kind in ("Knob", "Slider")),
    *((kind, "Enable", [1] * 4) for kind in ("Knob", "Slider")),
    ("Pad", "AssignType", [2] * 8),
    ("Pad", "CCOrNoteNumber", list(range(36, 44))),  # the drums of General MIDI
    ("Pad", "MIDIChannel", [9] * 8),  # channel 10
    ("Key", "AssignType", [2] * 25),
    ("Key", "CCOrNoteNumber", list(range(48, 73))),  # from C3 up
]


class ResourceLists(unittest.TestCase):
    def test_the_project_holds_the_one_keyboard(self):
        self.assertEqual(PROJECT, [{"VID": 0x1209, "PID": 0x0001}])

    def test_the_basic_lists_have_these_titles_in_the_order_of_their_codes(self):
        names = BASIC.pop("common-sceneName")
        self.assertEqual(BASIC, LISTS)
        self.assertEqual(len(BASIC["control"]), 46)
        self.assertTrue(names)
        for name in names:
            self.assertTrue(0 < len(name.encode()) <= 12, name)

    def test_the_default_scene_lies_in_its_lists_and_has_no_more(self):
        self.assertEqual(DEFAULT.keys(), {"ButtonArray", "CommonValue"})
        self.assertEqual(DEFAULT["CommonValue"].keys(), COMMON.keys())
        for field, name in COMMON.items():
            self.assertIn(DEFAULT["CommonValue"][field], range(len(LISTS[name])), field)
        kinds = [kind for kind, count in COUNTS.items() for _ in range(count)]
        self.assertEqual(len(DEFAULT["ButtonArray"]), len(kinds))
        for place, (kind, control) in enumerate(zip(kinds, DEFAULT["ButtonArray"]), 1):
            self.assertEqual((control.keys(), control["BtnID"]), (KEYS, place))
            for field in KEYS - {"BtnID"}:
                name = FIELDS[kind].get(field)
                allowed = range(len(LISTS[name])) if name else [-1]  # it does not carry it
                self.assertIs(type(control[field]), int)
                self.assertIn(control[field], allowed, (kind, place, field))

    def test_the_default_scene_is_one_to_play(self):
        found, first = {}, 0
        for kind, count in COUNTS.items():
            found[kind] = DEFAULT["ButtonArray"][first : first + count]
            first += count
        for kind, field, values in SCENE:
            self.assertEqual([control[field] for control in found[kind]], values, (kind, field))
        colours = {(pad["CR"], pad["CG"], pad["CB"]) for pad in found["Pad"]}
        self.assertEqual([max(colour) for colour in colours], [127] * 8)


class ListsOfTheLanguages(unittest.TestCase):
    def each(self, check):
        for language in LANGUAGES:
            lists = plistlib.loads((RESOURCES / f"basic_{language}.plist").read_bytes())
            words = tree.parse(RESOURCES / "translations" / f"scenewright_{language}.ts")
            texts = {message.findtext("source"): message.findtext("translation")
                     for message in words.getroot().iter("message")}
            with self.subTest(language=language):
                check(language, lists, texts)

    def test_every_list_of_words_is_there_whole_and_translated(self):
        def check(language, lists, texts):
            self.assertEqual(texts["basic"], f"basic_{language}")
            self.assertEqual(lists.keys(), WORDS)
            for key, titles in lists.items():
                self.assertEqual(len(titles), len(LISTS[key]), key)
                same = {title for title, english in zip(titles, LISTS[key]) if title == english}
                self.assertLessEqual(same - SAME[language], set(CHANNELS), key)
                self.assertEqual(len(titles), len(set(titles)), key)

        self.each(check)

    def test_a_word_is_spelt_as_in_the_windows_texts(self):
        def check(_, lists, texts):
            numbered = [f"{texts[kind]} {n}" for kind, count in COUNTS.items()
                        for n in range(1, count + 1)]
            self.assertEqual(lists["control"], [texts["Common"], *numbered])
            for mode, label in MODES.items():
                self.assertEqual(lists["displaySelect"][mode], texts[label])
            self.assertEqual(lists["button-MIDICh"], lists["common-pianoKeyCh"])
            self.assertEqual(lists["button-assginType"][0], lists["button-enable"][0])
            self.assertEqual(lists["button-assginType"][2], texts["Note"])

        self.each(check)


if __name__ == "__main__":
    unittest.main()
