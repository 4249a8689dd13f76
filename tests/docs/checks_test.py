"""Each check of the documents is shown a tree with the fault it looks for, and one without."""

import tempfile
import unittest
from pathlib import Path

import check_architecture
import check_commands
import check_links
from documents import Document


class TreeTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def write(self, path, text, mode=0o644):
        target = self.root / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(text, encoding="utf-8")
        target.chmod(mode)


class Links(TreeTest):
    def faults(self, readme, **others):
        self.write("README.md", readme)
        self.write("usb/Pipe.h", "")
        for name, text in others.items():
            self.write(f"docs/{name}.md", text)
        return list(check_links.faults(self.root))

    def test_links_that_lead_somewhere_pass(self):
        self.assertEqual(
            self.faults("[a](docs/other.md#two-words) [b](#top) `usb/Pipe.h` `Pipe.h`\n# Top\n"
                        "[c]: https://example.org/\n", other="## Two `words`\n"), [])

    def test_a_link_to_a_missing_file_fails(self):
        self.assertEqual(self.faults("\n[a](docs/gone.md)\n"),
                         ["README.md:2: docs/gone.md leads nowhere"])

    def test_a_link_to_a_missing_heading_fails(self):
        self.assertEqual(self.faults("[a](docs/other.md#three)\n", other="# Two\n"),
                         ["README.md:1: docs/other.md#three: no such heading"])

    def test_the_second_of_two_equal_headings_has_a_number(self):
        self.assertEqual(self.faults("[a](#one-1)\n# One\n# One\n"), [])

    def test_links_in_code_are_no_links(self):
        self.assertEqual(self.faults("`[a](gone)`\n```\n[b](gone)\n```\n"), [])

    def test_a_named_file_that_is_missing_fails(self):
        self.assertEqual(self.faults("`usb/Gone.h` and `Lost.cpp`\n"),
                         ["README.md:1: there is no usb/Gone.h", "README.md:1: there is no Lost.cpp"])

    def test_a_document_that_nothing_leads_to_fails(self):
        self.assertEqual(self.faults("nothing\n", lonely="# Lonely\n"),
                         ["docs/lonely.md: no link leads here from README.md"])


HELP = """#!/bin/bash
case "$*" in
--help) printf 'Options:\\n  --virtual  x\\nSubcommands:\\n  read  x\\n' ;;
"read --help") printf 'Options:\\n  --fast  x\\n' ;;
*) echo "ran $*" ;;
esac
"""


class Commands(TreeTest):
    def faults(self, text):
        self.write("bin/scenewright-cli", HELP, 0o755)
        self.write("README.md", text)
        return list(check_commands.faults(self.root, str(self.root / "bin")))

    def test_a_session_that_prints_what_it_shows_passes(self):
        self.assertEqual(self.faults("```console\n$ scenewright-cli read x\nran read x\n```\n"), [])

    def test_a_session_that_prints_something_else_fails(self):
        self.assertEqual(self.faults("```console\n$ scenewright-cli read x\nran read y\n```\n"),
                         ["README.md:2: `scenewright-cli read x` prints\nran read x\n"])

    def test_three_dots_stand_for_any_lines(self):
        self.assertEqual(self.faults("```console\n$ seq 9\n1\n...\n9\n```\n"), [])
        self.assertEqual(len(self.faults("```console\n$ seq 9\n1\n...\n8\n```\n")), 1)

    def test_a_session_goes_on_in_the_folder_of_the_one_before(self):
        self.assertEqual(self.faults("```console\n$ cat > a <<'E'\n> one\n> E\n```\n"
                                     "```console\n$ cat ~/a\none\n```\n"), [])

    def test_a_session_can_be_left_out_with_a_reason(self):
        self.assertEqual(
            self.faults("<!-- not run: no root -->\n```console\n$ false\nyes\n```\n"), [])
        self.assertEqual(len(self.faults("<!-- not run -->\n```console\n$ false\nyes\n```\n")), 1)

    def test_a_script_is_run_when_it_says_so(self):
        self.assertEqual(self.faults("```sh\nfalse\n```\n"), [])
        self.assertEqual(len(self.faults("<!-- run -->\n```sh\nfalse\n```\n")), 1)

    def test_a_script_that_cannot_be_parsed_fails(self):
        self.assertEqual(len(self.faults("```sh\nif true; then\n```\n")), 1)

    def test_an_option_that_no_command_has_fails(self):
        self.assertEqual(self.faults("`scenewright-cli --virtual read --fast x`\n"), [])
        self.assertEqual(self.faults("\n    scenewright-cli read --slow x\n"),
                         ["README.md:2: scenewright-cli has no --slow"])
        self.assertEqual(self.faults("```sh\nscenewright-cli read --slow | cat --fast\n```\n"),
                         ["README.md:2: scenewright-cli has no --slow"])


class Architecture(TreeTest):
    def faults(self, picture, *rows):
        check_architecture.ALLOWED, kept = {"low": set(), "high": {"low"}}, check_architecture.ALLOWED
        try:
            self.write("a.md", "```\n" + picture + "```\n" + "".join(row + "\n" for row in rows))
            return list(check_architecture.faults(Document(self.root, "a.md")))
        finally:
            check_architecture.ALLOWED = kept

    def test_what_is_so_passes(self):
        self.assertEqual(self.faults("| high |\n| low |\n", "| [`low`](low) | | x |",
                                     "| [`high`](high) | `low` | x |"), [])

    def test_a_row_can_name_another_one(self):
        self.assertEqual(self.faults("| high |\n| low |\n", "| [`low`](low) | | x |",
                                     "| [`high`](high) | what `low` may, `low` | x |"), [])

    def test_a_row_that_differs_fails(self):
        self.assertEqual(self.faults("| high |\n| low |\n", "| [`low`](low) | `high` | x |",
                                     "| [`high`](high) | `low` | x |"),
                         ["the row of low differs from tests/tree/include_directions.py"])

    def test_a_missing_row_fails(self):
        self.assertEqual(
            self.faults("| high |\n| low |\n", "| [`low`](low) | | x |"),
            ["high is not in both the table and tests/tree/include_directions.py"])

    def test_a_folder_that_stands_too_low_fails(self):
        self.assertEqual(self.faults("| low high |\n", "| [`low`](low) | | x |",
                                     "| [`high`](high) | `low` | x |"),
                         ["in the picture high does not stand above low"])


if __name__ == "__main__":
    unittest.main()
