"""The comparison of two packages names every file that differs."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).resolve().parents[2] / "Packaging"))

from package_difference import differences  # noqa: E402

CONTROL = """Package: sample
Version: 1
Architecture: all
Maintainer: Somebody <somebody@example.org>
Description: a sample
"""
SOURCE_DATE_EPOCH = "1700000000"


class DifferenceTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def package(self, name, files, mode=0o644, control=CONTROL):
        tree = self.folder / name
        for path, text in {"DEBIAN/control": control, **files}.items():
            (tree / path).parent.mkdir(parents=True, exist_ok=True)
            (tree / path).write_text(text, encoding="utf-8")
            (tree / path).chmod(mode)
        built = self.folder / f"{name}.deb"
        subprocess.run(
            ["dpkg-deb", "--root-owner-group", "--build", tree, built], check=True,
            stdout=subprocess.DEVNULL, env={"PATH": "/usr/bin:/bin",
                                            "SOURCE_DATE_EPOCH": SOURCE_DATE_EPOCH},
        )
        return built

    def names(self, package, other):
        return [line.split()[0] for line in differences(package, other)]

    def test_the_same_files_make_no_difference(self):
        files = {"usr/one": "1", "usr/two": "2"}
        self.assertEqual(self.names(self.package("a", files), self.package("b", files)), [])

    def test_only_the_file_with_another_content_differs(self):
        package = self.package("a", {"usr/one": "1", "usr/two": "2"})
        other = self.package("b", {"usr/one": "1", "usr/two": "3"})
        self.assertEqual(self.names(package, other), ["./usr/two:"])

    def test_a_file_that_one_of_them_lacks_differs(self):
        package = self.package("a", {"usr/one": "1"})
        other = self.package("b", {"usr/one": "1", "usr/two": "2"})
        [line] = differences(package, other)
        self.assertIn("./usr/two: absent, ", line)

    def test_the_mode_of_a_file_is_compared(self):
        package = self.package("a", {"usr/one": "1"})
        other = self.package("b", {"usr/one": "1"}, mode=0o755)
        self.assertIn("./usr/one:", self.names(package, other))

    def test_the_description_of_the_package_is_compared(self):
        package = self.package("a", {"usr/one": "1"})
        other = self.package("b", {"usr/one": "1"}, control=CONTROL.replace("all", "any"))
        self.assertEqual(self.names(package, other), ["./control:"])


if __name__ == "__main__":
    unittest.main()
