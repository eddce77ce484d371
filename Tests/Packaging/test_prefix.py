"""`cmake --install` puts each file in its place, and the program runs from there."""

import os
import pathlib
import re
import stat
import subprocess
import tempfile
import unittest

from patience import PATIENCE_SECONDS
from private_home import private_home

BUILD = os.environ["QUORVEL_BUILD"]
CMAKE = os.environ["QUORVEL_CMAKE"]
VERSION = os.environ["QUORVEL_VERSION"]
# This prefix does not exist: DESTDIR sends its files elsewhere.
PREFIX = "/quorvel-of-this-test"
PROGRAM = "bin/quorvel"
LIBRARY = "lib/quorvel/libquorvel.so"
MODULES = ("lib/quorvel/quorvel-scenes.so", "lib/quorvel/quorvel-terminal.so")
RUNPATHS = {
    PROGRAM: ["$ORIGIN/../lib/quorvel"],
    LIBRARY: [],
    **{module: ["$ORIGIN"] for module in MODULES},
}
TYPE_OF_ERRORS = "typeinfo for quorvel::AppError"


class InstallCase(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.home = self.folder / "home-of-the-user"
        self.home.mkdir()
        self.environment = private_home(self.home)
        self.place = self.folder / "place"

    def install(self, prefix, umask=0o022, **environment):
        subprocess.run(
            [CMAKE, "--install", BUILD, "--prefix", prefix], check=True, umask=umask,
            env={**self.environment, **environment}, stdout=subprocess.DEVNULL,
            timeout=PATIENCE_SECONDS,
        )

    def run_program(self, prefix, *arguments):
        return subprocess.run(
            [prefix / PROGRAM, *arguments], env=self.environment, capture_output=True, text=True,
            check=True, timeout=PATIENCE_SECONDS,
        ).stdout

    def files(self, folder):
        return {str(path.relative_to(folder)) for path in folder.rglob("*") if not path.is_dir()}

    def files_besides_data(self, folder):
        return {name for name in self.files(folder) if not name.startswith("share/")}

    def assert_runs(self, prefix):
        self.assertIn(VERSION, self.run_program(prefix, "--version").split())
        self.run_program(prefix, "history")


class PrefixTest(InstallCase):
    def setUp(self):
        super().setUp()
        self.install(self.place)

    def test_it_is_the_program_and_its_libraries_besides_what_desktops_look_for(self):
        self.assertEqual(self.files_besides_data(self.place), {PROGRAM, LIBRARY, *MODULES})

    def test_the_program_runs_from_there(self):
        self.assert_runs(self.place)

    def test_the_program_runs_after_a_move(self):
        moved = self.place.rename(self.folder / "moved")
        self.assert_runs(moved)

    def test_libraries_are_looked_for_only_in_the_folder_of_the_program(self):
        for name, looked_for in RUNPATHS.items():
            with self.subTest(name):
                read = self.output_about(name, "readelf", "--dynamic")
                self.assertIn("(NEEDED)", read)
                self.assertEqual(re.findall(r"\((?:RPATH|RUNPATH)\).*\[(.*)\]", read), looked_for)

    def test_the_modules_take_classes_from_the_library(self):
        # gcc marks this definition as weak, clang does not.
        self.assertRegex(self.names(LIBRARY), rf"(?m) [DV] {TYPE_OF_ERRORS}$")
        for name in MODULES:
            with self.subTest(name):
                self.assertIn(f" U {TYPE_OF_ERRORS}\n", self.names(name))

    def names(self, file):
        return self.output_about(file, "nm", "--dynamic", "--demangle")

    def output_about(self, file, *command):
        return subprocess.run([*command, self.place / file], check=True, capture_output=True,
                              text=True).stdout


class ModesTest(InstallCase):
    def test_everybody_may_use_the_files_even_after_a_strict_umask(self):
        self.install(self.place, umask=0o077)
        for name in self.files(self.place):
            with self.subTest(name):
                mode = stat.S_IMODE((self.place / name).lstat().st_mode)
                self.assertEqual(mode, 0o755 if name == PROGRAM else 0o644)


class DestinationTest(InstallCase):
    def test_nothing_is_outside_the_prefix(self):
        self.install(PREFIX, DESTDIR=str(self.place))
        self.assertEqual(set(os.listdir(self.folder)), {"home-of-the-user", "place"})
        self.assertEqual(os.listdir(self.place), [PREFIX[1:]])
        self.assertFalse(os.path.lexists(PREFIX))

    def test_the_program_runs_from_there(self):
        self.install(PREFIX, DESTDIR=str(self.place))
        self.assert_runs(self.place / PREFIX[1:])


if __name__ == "__main__":
    unittest.main()
