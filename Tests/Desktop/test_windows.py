"""A desktop can tell that a window belongs to the program."""

import os
import pathlib
import re
import shutil
import unittest

from desktop_case import HISTORY, DesktopCase

ID = "com.zantho.quorvel"
ICONS = pathlib.Path(os.environ["QUORVEL_ICONS"])
ENTRY = pathlib.Path(os.environ["QUORVEL_PACKAGING"], f"{ID}.desktop")


class WindowTest(DesktopCase):
    def test_a_window_has_the_class_of_the_desktop_entry(self):
        self.start_program("--history")
        self.desktop.wait_for_window(HISTORY)
        [wanted] = re.findall(r"^StartupWMClass=(.*)$", ENTRY.read_text(), re.MULTILINE)
        told = self.desktop.window_properties(HISTORY, "WM_CLASS")
        self.assertEqual(re.findall(r'"(.*?)"', told)[-1], wanted)

    def test_a_window_carries_the_icon_in_small_sizes(self):
        for picture in ICONS.rglob(f"{ID}.png"):
            size = picture.parent.name
            folder = self.desktop.data_home / f"icons/hicolor/{size}x{size}/apps"
            folder.mkdir(parents=True)
            shutil.copy(picture, folder)
        self.start_program("--history")
        self.desktop.wait_for_window(HISTORY)
        told = self.desktop.window_properties(HISTORY, "_NET_WM_ICON")
        self.assertEqual(
            set(re.findall(r"Icon \((\d+) x \1\)", told)), {"16", "24", "32", "48", "64"}
        )


if __name__ == "__main__":
    unittest.main()
