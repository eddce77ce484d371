"""The district's keyring: the real daemon with a keyring in a temporary folder."""

import threading

from keyring_world import KeyringWorld


class KeyringPart:
    def __init__(self, environment, processes):
        self._world = KeyringWorld(environment, processes)
        self._thaw = None
        self._undo = []

    def start(self):
        self._world.start()

    def stop(self):
        self._end_wait()
        self._world.absent()

    def slow(self, seconds):
        """Answers nobody for so many seconds, and then everybody."""
        self._end_wait()
        self._world.stop()
        self._thaw = threading.Timer(seconds, self._world.resume)
        self._thaw.daemon = True
        self._thaw.start()

    def fail(self, how):
        """The keyring is "locked", there is "no keyring", or the daemon answers nobody
        ("silence")."""
        if how == "locked":
            self._world.lock()
            self._undo.append(self._world.unlock)
        elif how == "no keyring":
            self._world.forget()
            self._world.start_without_keyring()
            self._undo.append(self._world.start)
        elif how == "silence":
            self._world.stop()
            self._undo.append(self._world.resume)
        else:
            raise ValueError(f"no such failure: {how}")

    def vanish(self):
        self._end_wait()
        self._world.absent()
        self._undo.append(self._world.start)

    def recover(self):
        """Undoes every failure. A daemon that had vanished comes back with what it kept."""
        self._end_wait()
        while self._undo:
            self._undo.pop()()

    come_back = recover

    def _end_wait(self):
        if self._thaw:
            self._thaw.cancel()
            self._world.resume()
            self._thaw = None
