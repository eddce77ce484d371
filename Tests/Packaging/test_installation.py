"""The installed files lie where other programs look for them, and the program runs from there."""

import configparser
import os
import pathlib
import re
import struct
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree

import help_texts
from patience import PATIENCE_SECONDS
from private_home import private_home

BUILD = pathlib.Path(os.environ["QUORVEL_BUILD"])
ID = "com.zantho.quorvel"
SIZES = (16, 22, 24, 32, 48, 64, 96, 128, 256, 512)
ACTIONS = {"check-in": "--panel", "history": "--history", "diagnostics": "--probe"}
SHARED = {
    f"applications/{ID}.desktop",
    f"metainfo/{ID}.metainfo.xml",
    f"dbus-1/services/{ID}.service",
    "man/man1/quorvel.1",
    "bash-completion/completions/quorvel",
    "zsh/site-functions/_quorvel",
    "fish/vendor_completions.d/quorvel.fish",
    f"icons/hicolor/scalable/apps/{ID}.svg",
    f"icons/hicolor/symbolic/apps/{ID}-symbolic.svg",
    *(f"icons/hicolor/{size}x{size}/apps/{ID}.png" for size in SIZES),
}
BASH_LOADING = """
    source /usr/share/bash-completion/bash_completion
    _completion_loader quorvel
    complete -p quorvel
"""


def cmake(*arguments, **variables):
    subprocess.run(
        ["cmake", *map(str, arguments)], env={**os.environ, **variables}, stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT, timeout=PATIENCE_SECONDS, check=True,
    )


def entry(path):
    """Reads a desktop entry or a service file. Its keys keep their case."""
    parser = configparser.ConfigParser(interpolation=None)
    parser.optionxform = str
    parser.read_string(path.read_text())
    return parser


def picture_size(path):
    """The width and height in the first chunk of a PNG."""
    return struct.unpack(">II", path.read_bytes()[16:24])


class InstallationTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(
            cls.enterClassContext(tempfile.TemporaryDirectory(prefix="quorvel-prefix-"))
        )
        cls.prefix = cls.folder / "prefix"
        cls.share = cls.prefix / "share"
        cmake("--install", BUILD, "--prefix", cls.prefix)
        (cls.folder / "user").mkdir()
        cls.environment = {
            **private_home(cls.folder / "user"),
            "PATH": f"{cls.prefix / 'bin'}:{os.environ['PATH']}",
            "XDG_DATA_DIRS": str(cls.share),
        }

    def output(self, *command):
        return subprocess.run(
            command, env=self.environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            text=True, timeout=PATIENCE_SECONDS, check=True,
        ).stdout

    def test_each_file_is_in_the_folder_where_others_look_for_it(self):
        found = {str(path.relative_to(self.share))
                 for path in self.share.rglob("*") if path.is_file()}
        self.assertEqual(found, SHARED)

    def test_the_program_runs(self):
        self.assertEqual(self.output("quorvel", "--version"),
                         f"Quorvel {help_texts.version()}\n")

    def test_the_program_finds_its_library_and_its_modules(self):
        self.assertEqual(self.output("quorvel", "history"), "No check-ins yet\n")
        [folder] = {path.parent for path in self.prefix.rglob("*.so")}
        self.assertEqual({path.name for path in folder.iterdir()},
                         {"libquorvel.so", "quorvel-scenes.so", "quorvel-terminal.so"})

    def test_the_bus_starts_the_program_of_this_prefix(self):
        service = entry(self.share / f"dbus-1/services/{ID}.service")["D-BUS Service"]
        self.assertEqual(service["Name"], ID)
        program, *options = service["Exec"].split()
        self.assertEqual(program, str(self.prefix / "bin" / "quorvel"))
        self.assertEqual(options, ["--background"])
        self.assertTrue(os.access(program, os.X_OK))

    def test_a_staged_installation_names_the_prefix_without_its_stage(self):
        stage = self.folder / "stage"
        cmake("-DCMAKE_INSTALL_PREFIX=/usr", "-P", BUILD / "Packaging" / "cmake_install.cmake",
              DESTDIR=str(stage))
        service = entry(stage / f"usr/share/dbus-1/services/{ID}.service")["D-BUS Service"]
        self.assertEqual(service["Exec"], "/usr/bin/quorvel --background")

    def test_the_desktop_entry_uses_the_bus_and_offers_its_actions(self):
        desktop = entry(self.share / f"applications/{ID}.desktop")
        self.assertEqual(desktop["Desktop Entry"]["DBusActivatable"], "true")
        self.assertEqual(desktop["Desktop Entry"]["Actions"], ";".join([*ACTIONS, ""]))
        for action, option in ACTIONS.items():
            self.assertEqual(desktop[f"Desktop Action {action}"]["Exec"], f"quorvel {option}")
            self.assertIn(option, help_texts.options())

    def test_each_picture_of_the_icon_has_its_size(self):
        for size in SIZES:
            path = self.share / f"icons/hicolor/{size}x{size}/apps/{ID}.png"
            self.assertEqual(picture_size(path), (size, size))

    def test_the_symbolic_icon_has_one_colour_that_a_desktop_can_replace(self):
        path = self.share / f"icons/hicolor/symbolic/apps/{ID}-symbolic.svg"
        root = xml.etree.ElementTree.parse(path).getroot()
        self.assertEqual(root.get("viewBox"), "0 0 16 16")
        fills = [shape.get("fill") for shape in root.iter() if shape.get("fill")]
        self.assertEqual(len(set(fills)), 1)
        # A desktop replaces only the colours of fills.
        for other in ("stroke", "opacity", "style", "Gradient", "<image"):
            self.assertNotIn(other, path.read_text())

    def test_bash_finds_the_completions(self):
        self.assertRegex(self.output("bash", "--norc", "-c", BASH_LOADING), "^complete .* quorvel$")

    def test_fish_finds_the_completions(self):
        offered = self.output("fish", "-c", "complete -C 'quorvel loc'")
        self.assertRegex(offered, "^locate\t")

    def test_the_file_for_zsh_names_its_command(self):
        first = (self.share / "zsh/site-functions/_quorvel").read_text().splitlines()[0]
        self.assertTrue(re.fullmatch("#compdef quorvel", first))


if __name__ == "__main__":
    unittest.main()
