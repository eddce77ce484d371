"""Every shell offers exactly the words that the program accepts."""

import pathlib
import tempfile
import unittest

import help_texts
import shells

SCORES = {"1", "2", "3", "4", "5"}
FORMATS = {"json", "csv", "geojson"}
SCORED = ("--wifi-speed", "--outlets", "--noise", "--quiet-for-calls")
TYPED = (("history", "--since"), ("check-in", "--cafe"), ("check-in", "--note"))


class CompletionCase:
    """The tests that every shell has to pass."""

    shell = None

    def offered(self, line, **where):
        return shells.offered(self.shell, line, **where)

    def assert_offers(self, line, words):
        self.assertEqual(self.offered(line), set(words), line)

    def test_the_commands_are_those_of_the_help(self):
        self.assert_offers("quorvel ", help_texts.commands())

    def test_a_word_is_completed_from_its_beginning(self):
        self.assert_offers("quorvel e", {"export"})
        self.assert_offers("quorvel --pa", {"--panel"})
        self.assert_offers("quorvel export --o", {"--output"})

    def test_the_options_are_those_of_the_help(self):
        for page in help_texts.pages():
            self.assert_offers(" ".join(["quorvel", *page, "-"]), help_texts.options(*page))

    def test_a_choice_of_values_is_offered(self):
        self.assert_offers("quorvel export --format ", FORMATS)
        self.assert_offers("quorvel export --format g", {"geojson"})
        for option in SCORED:
            self.assert_offers(f"quorvel check-in --note x {option} ", SCORES)

    def test_a_value_is_offered_behind_an_equals_sign(self):
        self.assert_offers("quorvel export --format=", FORMATS)
        self.assert_offers("quorvel export --format=c", {"csv"})
        self.assert_offers("quorvel check-in --noise=", SCORES)

    def test_nothing_is_offered_for_a_value_that_only_a_person_knows(self):
        for command, option in TYPED:
            self.assert_offers(f"quorvel {command} {option} ", set())

    def test_a_file_is_offered_for_the_output(self):
        with tempfile.TemporaryDirectory(prefix="quorvel-files-") as folder:
            pathlib.Path(folder, "visits 2026.csv").touch()
            for line in ("quorvel export --output v", "quorvel export --output=v"):
                offered = {word.replace("\\", "") for word in self.offered(line, folder=folder)}
                self.assertEqual(offered, {"visits 2026.csv"}, line)

    def test_the_values_of_another_command_are_not_offered(self):
        self.assertFalse(FORMATS & self.offered("quorvel locate --format "))


class BashTest(CompletionCase, unittest.TestCase):
    shell = "bash"

    def test_an_option_is_offered_once(self):
        self.assert_offers("quorvel export --format csv --", {"--output", "--help"})
        self.assert_offers("quorvel history --since=2026-03-01 --", {"--json", "--help"})


class ZshTest(CompletionCase, unittest.TestCase):
    shell = "zsh"

    def test_an_option_is_offered_once(self):
        self.assert_offers("quorvel export --format csv --", {"--output", "--help"})


class FishTest(CompletionCase, unittest.TestCase):
    shell = "fish"


if __name__ == "__main__":
    unittest.main()
