"""Which files are compiled alone, and what they are shown precompiled."""

import unittest

from alone import Includes, flags_by_file
from clang_tidy import ROOT
from source import Tree

CUP = {"Models/Cup.h": "#pragma once\n#include <QObject>\n",
       "Models/Cup.cpp": '#include "Models/Cup.h"\n'}
TRAY = {"Models/Tray.h": '#include "Models/Cup.h"\n'}


def compiled(texts):
    """The files that are compiled, each with the macro that names the body of its flags."""
    tree = Tree(texts)
    commands = {path: {"file": str(ROOT / path), "command": f"clang++ -D{path} -O2 -o x -c x"}
                for path in texts if path.endswith(".cpp")}
    return flags_by_file(tree, Includes(tree), commands)


class AloneTest(unittest.TestCase):
    def test_a_body_stands_for_the_header_that_it_includes_first(self):
        self.assertEqual(compiled(CUP), {"Models/Cup.cpp": ["-DModels/Cup.cpp"]})

    def test_another_header_has_the_flags_of_a_body_that_includes_it(self):
        bar = {"Models/Bar.cpp": '#include "Models/Cup.h"\n#include "Models/Tray.h"\n'}
        self.assertEqual(compiled(CUP | TRAY | bar)["Models/Tray.h"], ["-DModels/Bar.cpp"])

    def test_a_header_of_no_body_has_no_flags(self):
        self.assertEqual(compiled(CUP | TRAY)["Models/Tray.h"], None)

    def test_bodies_of_tests_are_not_compiled_and_their_headers_are(self):
        tests = {"Tests/Bar.h": "", "Tests/Bar.cpp": '#include "Tests/Bar.h"\n'}
        self.assertEqual(compiled(tests), {"Tests/Bar.h": ["-DTests/Bar.cpp"]})

    def test_the_shared_header_is_shown_only_to_what_includes_it(self):
        bodies = {"Models/Bar.cpp": '#include "Models/Bar.h"\n#include <QObject>\n',
                  "Models/Bar.h": "", "Models/Desk.h": ""}
        includes = Includes(Tree(CUP | TRAY | bodies))
        sharing = [path for path in sorted(CUP | TRAY | bodies) if includes.shares(path)]
        self.assertEqual(sharing, ["Models/Cup.cpp", "Models/Cup.h", "Models/Tray.h"])


if __name__ == "__main__":
    unittest.main()
