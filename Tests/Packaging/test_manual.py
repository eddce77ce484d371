"""The manual page has no faults, and agrees with the program's help."""

import os
import pathlib
import re
import subprocess
import unittest

import help_texts
from patience import PATIENCE_SECONDS

SOURCE = pathlib.Path(os.environ["QUORVEL_SOURCE"])
PAGE = SOURCE / "Packaging" / "quorvel.1"
ATTRIBUTION = ("Map data © OpenStreetMap contributors.", "Weather by Open-Meteo.")
SECTION = re.compile(r'^\.SH "?([A-Z ]+)"?$', re.MULTILINE)
COMMAND = re.compile(r"^\.SS (.+)$", re.MULTILINE)
TAGGED = re.compile(r"^\.TP\n\.[A-Z]+ (.+)$", re.MULTILINE)
SYNOPSIS = re.compile(r'^\.SY "?quorvel ?([a-z-]*)"?$(.*?)^\.YS$', re.MULTILINE | re.DOTALL)
EXAMPLE = re.compile(r"^quorvel ([a-z-]+)([^|\n]*)", re.MULTILINE)
NAME = re.compile(r"(?<![\w-])--?[a-z][a-z-]*")


def split(pattern, text):
    """The text behind each match of the pattern, by the group of the match."""
    _, *parts = pattern.split(text)
    return dict(zip(parts[::2], parts[1::2]))


def tagged_options(text):
    """The options of the page. Each name has the word for its value, as in the help."""
    found = {}
    for line in TAGGED.findall(text):
        value = re.search(r"\b[A-Z]+\b", line)
        found.update({name: value[0] if value else "" for name in NAME.findall(line)})
    return found


class ManualTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.text = PAGE.read_text().replace("\\-", "-")
        cls.sections = split(SECTION, cls.text)
        cls.commands = split(COMMAND, cls.sections["COMMANDS"])

    def test_two_formatters_find_no_fault(self):
        for command in (
            ["man", "--warnings", "--local-file", "--troff-device=utf8", "--ditroff", PAGE],
            ["mandoc", "-T", "lint", "-W", "all", PAGE],
        ):
            finished = subprocess.run(
                command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=PATIENCE_SECONDS,
                env={"PATH": os.environ["PATH"], "LANG": "C.UTF-8"}, check=False,
            )
            said = finished.stdout.decode(errors="replace")
            if command[0] == "mandoc":
                self.assertEqual(said, "")
            self.assertNotIn("warning:", said)
            self.assertEqual(finished.returncode, 0, said)

    def test_its_commands_are_those_of_the_help(self):
        self.assertEqual(list(self.commands), help_texts.commands())

    def test_its_options_are_those_of_the_help(self):
        self.assertEqual(tagged_options(self.sections["OPTIONS"]), help_texts.options())
        for command, text in self.commands.items():
            self.assertEqual(tagged_options(text), help_texts.options(command), command)

    def test_its_synopsis_has_the_options_of_each_command(self):
        synopses = dict(SYNOPSIS.findall(self.sections["SYNOPSIS"]))
        self.assertEqual(list(synopses), ["", *help_texts.commands()])
        for command in help_texts.commands():
            expected = set(help_texts.options(command)) - {"--help"}
            self.assertEqual(set(NAME.findall(synopses[command])), expected, command)

    def test_its_examples_use_only_existing_options(self):
        examples = EXAMPLE.findall(self.sections["EXAMPLES"])
        self.assertTrue(examples)
        for command, arguments in examples:
            self.assertLessEqual(set(NAME.findall(arguments)), set(help_texts.options(command)))

    def test_its_exit_statuses_are_those_of_the_terminal_page(self):
        page = (SOURCE / "Docs" / "terminal.md").read_text()
        self.assertEqual(
            TAGGED.findall(self.sections["EXIT STATUS"]), re.findall(r"^\| (\d+) \|", page, re.M)
        )

    def test_it_names_this_version(self):
        self.assertIn(f'"Quorvel {help_texts.version()}"', self.text.splitlines()[0])

    def test_it_names_the_sources_of_the_data(self):
        for sentence in ATTRIBUTION:
            self.assertIn(sentence, self.sections["AUTHORS"])


class MetainfoTest(unittest.TestCase):
    """The texts that software centres show."""

    def setUp(self):
        self.text = (SOURCE / "Packaging" / "com.zantho.quorvel.metainfo.xml").read_text()

    def test_its_latest_release_is_this_version(self):
        self.assertEqual(re.findall(r'<release version="([^"]*)"', self.text)[0],
                         help_texts.version())

    def test_it_names_the_sources_of_the_data(self):
        for sentence in ATTRIBUTION:
            self.assertIn(sentence, " ".join(self.text.split()))


if __name__ == "__main__":
    unittest.main()
