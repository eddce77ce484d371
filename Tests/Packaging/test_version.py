"""The version stands in CMakeLists.txt, and every copy of it agrees."""

import os
import pathlib
import re
import unittest
import xml.etree.ElementTree

VERSION = os.environ["QUORVEL_VERSION"]
PACKAGING = pathlib.Path(__file__).resolve().parents[2] / "Packaging"


class VersionTest(unittest.TestCase):
    def test_the_newest_entry_of_the_changelog_is_this_version(self):
        newest = (PACKAGING / "debian/changelog").read_text(encoding="utf-8").splitlines()[0]
        self.assertEqual(re.match(r"quorvel \((.*?)\) ", newest)[1], VERSION)

    def test_the_newest_release_in_the_metainfo_is_this_version(self):
        shown = xml.etree.ElementTree.parse(PACKAGING / "com.zantho.quorvel.metainfo.xml")
        self.assertEqual(shown.find("releases/release").get("version"), VERSION)

    def test_the_manual_names_this_version(self):
        heading = (PACKAGING / "quorvel.1").read_text(encoding="utf-8").splitlines()[0]
        self.assertEqual(re.match(r"\.TH .*\"Quorvel (.*?)\"", heading)[1], VERSION)


if __name__ == "__main__":
    unittest.main()
