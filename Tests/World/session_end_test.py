"""A visit that is being saved when the session ends is stored first."""

import contextlib
import json
import os
import pathlib
import sqlite3
import subprocess
import unittest

from accessible_program import AccessibleProgram
from patience import PATIENCE_SECONDS
from virtual_desktop import VirtualDesktop
from world import World

PROGRAM = os.environ["QUORVEL_PROGRAM"]
SERVICES = ("org.xfce.Xfconf", "org.a11y.Bus")
NEAREST = "Cà phê Gió Sông"


class SessionEndTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(VirtualDesktop(services=SERVICES))
        self.enterContext(World(self.desktop))
        self.program = self.desktop.start_program(PROGRAM, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.desktop.wait_for_focused_window("Quorvel")
        self.window = AccessibleProgram(self.desktop.bus_address, self.program.pid)
        self.addCleanup(self.window.close)
        self.button = self.desktop.wait_until(
            lambda: self.window.find(NEAREST) and self.window.find("Check In"), "the café is found"
        )

    def test_a_visit_that_waits_for_the_store_is_stored_before_the_end(self):
        with self.store_taken():
            self.click_button()
            self.desktop.wait_until(self.waits_for_the_store, "the save finds the store taken")
            self.program.terminate()
        self.assertEqual(self.program.status(), 0, self.program.output())
        self.assertEqual(self.visits(), [NEAREST])

    @contextlib.contextmanager
    def store_taken(self):
        """Another program holds the store and takes its time."""
        store = sqlite3.connect(self.desktop.data_home / "Quorvel/Quorvel.store")
        store.execute("BEGIN IMMEDIATE")
        yield
        store.rollback()
        store.close()

    def waits_for_the_store(self):
        """Whether the main thread sleeps. It sleeps only for the store: elsewhere it waits for an
        event."""
        return "nanosleep" in pathlib.Path(f"/proc/{self.program.pid}/wchan").read_text()

    def click_button(self):
        left, top, width, height = self.button.box()
        self.desktop.click(left + width // 2, top + height // 2)

    def visits(self):
        printed = subprocess.run(
            [PROGRAM, "history", "--json"], env=self.desktop.environment, check=True,
            stdout=subprocess.PIPE, timeout=PATIENCE_SECONDS,
        ).stdout
        history = json.loads(printed)
        return [visit["cafe"]["name"] for visit in history["visits"]]


if __name__ == "__main__":
    unittest.main()
