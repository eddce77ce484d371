"""A password that the program handles appears only where it belongs.

The search leaves out the log of the district's radio. That process plays a service that has to know
the password, and it logs every call.
"""

import os
import pathlib
import re
import secrets
import unittest

from patience import PATIENCE_SECONDS, wait_for
from processes import environment_of, running_pids
from world import World

SENSE = os.environ["QUORVEL_SENSE"]
NETWORK = "Sân Trong"
TEMPORARY = pathlib.Path("/tmp")
# The number of looks at the processes while a join is held.
LOOKS = 6
LARGEST_BYTES = 10_000_000
RADIO_LOG = "wifi.log"
TALKATIVE = {"QT_LOGGING_RULES": "default.debug=true", "G_MESSAGES_DEBUG": "all"}


class SecretsTest(unittest.TestCase):
    def setUp(self):
        self.world = self.enterContext(World())
        self.temporary = self.world.folder / "tmp"
        self.temporary.mkdir()
        self.begun = self.temporary.stat().st_mtime
        self.password = f"cà phê {secrets.token_hex(8)}"
        self.seen = []

    def join(self, status=0, is_held=False):
        """Joins with the password, and meanwhile watches every process of the district."""
        reading, writing = os.pipe()
        os.write(writing, f"{self.password}\n".encode())
        os.close(writing)
        process = self.world.start(
            "sense", [SENSE, "--join", NETWORK], stdin=reading,
            TMPDIR=str(self.temporary), **TALKATIVE,
        )
        os.close(reading)
        if is_held:
            self.look_while_held()
        wait_for(lambda: self.look_until_ended(process), "the end of the join")
        self.assertEqual(process.status(), status, process.output())
        return process.output()

    def look_while_held(self):
        wait_for(self.world.wifi.count_waiting, "the join")
        self.seen += [self.processes_now() for _ in range(LOOKS)]
        self.world.wifi.recover()

    def look_until_ended(self, process):
        self.seen.append(self.processes_now())
        return not process.is_running()

    def processes_now(self):
        """The arguments and the environments of all processes in the district."""
        mark = str(self.world.folder).encode()
        texts = []
        for pid in running_pids():
            environment = b"\0".join(environment_of(pid))
            if mark in environment:
                texts += [environment, read(pathlib.Path(f"/proc/{pid}/cmdline"))]
        return b"\0".join(texts)

    def files(self):
        """Every file of the district or of /tmp that is new or has changed."""
        found = {*files_under(self.world.folder), *files_under(TEMPORARY, levels=2)}
        return [path for path in found if path.name != RADIO_LOG and self.is_recent(path)]

    def is_recent(self, path):
        try:
            status = path.stat()
        except OSError:
            return False
        return path.is_file() and status.st_mtime > self.begun and status.st_size < LARGEST_BYTES

    def places_of(self, text):
        """The places that contain the text, in one of the two encodings that programs use."""
        forms = [text.encode(), text.encode("utf-16-le")]
        found = [str(path) for path in self.files() if any(form in read(path) for form in forms)]
        if any(form in moment for moment in self.seen for form in forms):
            found.append("a process")
        return found

    def assert_kept(self):
        core = self.password.split()[-1]
        self.assertEqual(self.places_of(core), [])

    def test_a_successful_join_does_not_reveal_the_password(self):
        self.world.wifi.slow(PATIENCE_SECONDS)
        output = self.join(is_held=True)
        self.assertIn("join: done", output)
        self.assertIn("stored by the system: yes", output)
        self.assertIn("password: remembered", output)
        self.assert_kept()

    def test_a_failed_join_does_not_reveal_the_password(self):
        for how in ("wrong password", "no address", "join denied",
                    "join refused with the password"):
            with self.subTest(how=how):
                self.world.wifi.fail(how)
                self.assertRegex(self.join(status=1), "join: failed: .")
                self.world.wifi.recover()
                self.assert_kept()

    def test_a_locked_keyring_does_not_reveal_the_password(self):
        self.world.keyring.fail("locked")
        self.assertRegex(self.join(status=1), "join: failed: .*-25308")
        self.assert_kept()

    def test_the_search_finds_planted_texts(self):
        (self.temporary / "planted").write_text(f"psk={self.password}")
        self.assertEqual(self.places_of(self.password), [str(self.temporary / "planted")])
        (self.temporary / "planted").write_bytes(self.password.encode("utf-16-le"))
        self.assertEqual(self.places_of(self.password), [str(self.temporary / "planted")])
        self.join()
        self.assertIn("a process", self.places_of(f"--join\0{NETWORK}"))
        self.assertTrue(any(re.search("sense.log$", place) for place in self.places_of(NETWORK)))


def files_under(folder, levels=100):
    """The files in a folder, so many levels deep. Folders of other tests may disappear
    meanwhile."""
    for place, folders, names in os.walk(folder):
        yield from (pathlib.Path(place, name) for name in names)
        if len(pathlib.Path(place).relative_to(folder).parts) + 1 >= levels:
            folders.clear()


def read(path):
    try:
        return path.read_bytes()
    except OSError:
        return b""


if __name__ == "__main__":
    unittest.main()
