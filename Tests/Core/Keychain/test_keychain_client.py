"""Watches a program that stores passwords, from outside. It must not reveal them, and it must
survive the loss of its services."""

import base64
import os
import pathlib
import unittest

from keyring_world import KeyringWorld
from patience import wait_for
from private_session import PrivateSession
from processes import environment_of, running_pids

CLIENT = os.environ["QUORVEL_KEYCHAIN_CLIENT"]
SECRET = "Mật-khẩu-0fR4nge-Tr33s"
SECOND = "Zw3iter-Schlüss3l-9931"
NO_KEYCHAIN = "No keychain is available. You may need to restart your computer."
# Makes the libraries underneath log as much as they can.
TALKATIVE = {"G_DBUS_DEBUG": "all", "G_MESSAGES_DEBUG": "all"}


def traces_of(secret):
    """The byte sequences in which a secret could show."""
    utf8 = secret.encode()
    return [utf8, utf8.hex().encode(), base64.b64encode(utf8)[:-4], secret.encode("utf-16-le")]


def command_line_of(pid):
    try:
        return pathlib.Path(f"/proc/{pid}/cmdline").read_bytes()
    except OSError:
        return b""


class Client:
    """The program, which answers each order with one line. All its other output goes to a log."""

    def __init__(self, session, environment):
        heard, orders = os.pipe()
        answers, written = os.pipe()
        self._process = session.start(
            "client", [CLIENT, str(written)], environment, stdin=heard, pass_fds=[written]
        )
        os.close(heard)
        os.close(written)
        self._orders = open(orders, "w", encoding="utf-8")
        self._answers = open(answers, encoding="utf-8")
        self.answers = []

    def tell(self, order):
        print(order, file=self._orders, flush=True)
        self.answers.append(self._answers.readline().strip())
        return self.answers[-1]

    def end(self):
        """Tells the program that no more orders come. Returns its exit status."""
        self._orders.close()
        self._answers.close()
        return self._process.status()


class KeychainClientTest(unittest.TestCase):
    def setUp(self):
        self.session = PrivateSession().__enter__()
        self.addCleanup(self.session.__exit__)
        self.keyring = KeyringWorld(self.session.environment, self.session.processes)

    def start_client(self, **environment):
        client = Client(self.session, environment)
        self.addCleanup(client.end)
        return client

    def watch_bus(self):
        """Records everything that is said on the bus from now on."""
        monitor = self.session.start("monitor", ["dbus-monitor", "--session"])
        wait_for(lambda: "NameLost" in monitor.output(), "the monitor listens")
        return monitor

    def assert_untraced(self, content, where):
        for secret in (SECRET, SECOND):
            for trace in traces_of(secret):
                self.assertNotIn(trace, content, f"{secret} shows in {where}")

    def assert_untraced_processes(self):
        pids = running_pids()
        self.assertIn(os.getpid(), pids)
        for pid in pids:
            self.assert_untraced(command_line_of(pid), f"the arguments of process {pid}")
            for variable in environment_of(pid):
                self.assert_untraced(variable, f"the environment of process {pid}")

    def files(self):
        return [path for path in self.session.folder.rglob("*") if path.is_file()]

    def test_a_secret_shows_nowhere(self):
        self.keyring.start()
        monitor = self.watch_bus()
        client = self.start_client(**TALKATIVE, TMPDIR=str(self.session.folder))
        for order, answer in (
            (f"save {SECRET}", "saved"), ("read", "the same"), (f"save {SECOND}", "saved"),
            ("read", "the same"),
        ):
            self.assertEqual(client.tell(order), answer)
            self.assert_untraced_processes()
        self.keyring.lock()
        self.assertIn("(-25308)", client.tell(f"save {SECRET}"))
        self.assertIn("(-25308)", client.tell("read"))
        self.keyring.absent()
        self.assertIn("(-25291)", client.tell(f"save {SECRET}"))
        self.assertEqual(client.end(), 0)
        wait_for(lambda: "NameOwnerChanged" in monitor.output().split("SetSecret")[-1],
                 "the monitor has seen the end")
        monitor.end()

        self.assert_untraced("\n".join(client.answers).encode(), "what the user reads")
        names = {path.name for path in self.files()}
        self.assertLessEqual({"login.keyring", "client.log", "monitor.log", "keyring.log"}, names)
        for path in self.files():
            self.assert_untraced(path.read_bytes(), path.name)

    def test_the_search_for_secrets_finds_them(self):
        for number, trace in enumerate(traces_of(SECRET)):
            with self.assertRaises(AssertionError):
                self.assert_untraced(b"before " + trace + b" after", f"trace {number}")
        sleeper = self.session.start("sleeper", ["tail", "-f", "/dev/null", "--", SECRET])
        wait_for(lambda: SECRET.encode() in command_line_of(sleeper.pid), "it runs")
        with self.assertRaises(AssertionError):
            self.assert_untraced_processes()

    def test_a_locked_keyring_is_never_asked_to_open(self):
        self.keyring.start()
        client = self.start_client()
        self.assertEqual(client.tell(f"save {SECRET}"), "saved")
        self.keyring.lock()
        monitor = self.watch_bus()
        for order in (f"save {SECOND}", "read", "delete"):
            self.assertIn("(-25308): User interaction is not allowed.", client.tell(order))
        # The monitor lags behind the client. It sees this call after everything that came before.
        self.keyring.collections()
        wait_for(lambda: "member=GetAll" in monitor.output(), "the monitor has seen all")
        self.assertGreaterEqual(monitor.output().count("member=SearchItems"), 3)
        for member in ("Unlock", "Prompt", "CreateCollection", "PromptAtDBus"):
            self.assertNotIn(f"member={member}\n", monitor.output())

    def test_no_keyring_is_created_where_none_exists(self):
        self.keyring.start_without_keyring()
        client = self.start_client()
        monitor = self.watch_bus()
        self.assertEqual(
            client.tell(f"save {SECRET}"),
            "Keychain save failed (-25307): A default keychain could not be found.",
        )
        self.assertEqual(client.tell("read"), "absent")
        wait_for(lambda: monitor.output().count("member=SearchItems") == 2, "all is seen")
        self.assertNotIn("member=CreateCollection", monitor.output())
        self.assertNotIn("member=Prompt\n", monitor.output())

    def test_a_locked_keyring_is_never_asked_for_a_new_item(self):
        self.keyring.start()
        self.keyring.lock()
        client = self.start_client()
        monitor = self.watch_bus()
        self.assertIn("(-25308)", client.tell(f"save {SECRET}"))
        self.keyring.collections()
        wait_for(lambda: "member=GetAll" in monitor.output(), "the monitor has seen all")
        self.assertIn("member=SearchItems", monitor.output())
        self.assertNotIn("member=CreateItem", monitor.output())

    def test_without_a_bus_there_is_no_keychain_and_no_bus_is_started(self):
        launched = self.session.folder / "launched"
        launcher = self.session.folder / "dbus-launch"
        launcher.write_text(f"#!/bin/sh\n: > '{launched}'\nexit 1\n")
        launcher.chmod(0o700)
        nowhere = {"DBUS_SESSION_BUS_ADDRESS": "", "XDG_RUNTIME_DIR": "/nowhere", "DISPLAY": ":99",
                   "PATH": f"{self.session.folder}:{self.session.environment['PATH']}"}
        for address in ("", "autolaunch:", "unix:path=/nowhere/bus", "nonsense"):
            with self.subTest(address=address):
                client = self.start_client(**{**nowhere, "DBUS_SESSION_BUS_ADDRESS": address})
                self.assertEqual(client.tell("read"),
                                 f"Keychain read failed (-25291): {NO_KEYCHAIN}")
                self.assertEqual(client.tell("delete"),
                                 f"Keychain delete failed (-25291): {NO_KEYCHAIN}")
        self.assertFalse(launched.exists(), "a bus was launched")

    def test_the_program_survives_the_loss_of_its_bus(self):
        self.keyring.start()
        client = self.start_client()
        self.assertEqual(client.tell(f"save {SECRET}"), "saved")
        self.session.end_bus()
        for _ in range(3):
            self.assertIn("(-25291)", client.tell("read"))
        self.assertEqual(client.end(), 0)


if __name__ == "__main__":
    unittest.main()
