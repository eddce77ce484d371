"""Runs a program beside a keyring that it can give orders to. usage: keyring_session.py COMMAND...

The program finds a socket under the number in QUORVEL_KEYRING: it writes one of the keyring's verbs
as a line, and reads "done" or what went wrong. At first there is no daemon.
"""

import socket
import subprocess
import sys

from keyring_world import KeyringWorld
from private_session import PrivateSession

VARIABLE = "QUORVEL_KEYRING"


def carry_out(keyring, verb):
    if verb not in KeyringWorld.VERBS:
        return f"no such verb: {verb}"
    try:
        getattr(keyring, verb)()
    except Exception as error:
        return f"{verb} failed: {error}".replace("\n", " ")
    return "done"


def main(command):
    with PrivateSession() as session:
        ours, theirs = socket.socketpair()
        keyring = KeyringWorld(session.environment, session.processes)
        program = subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", *command], pass_fds=[theirs.fileno()],
            env={**session.environment, VARIABLE: str(theirs.fileno())},
        )
        theirs.close()
        with ours.makefile("rw") as orders:
            for line in orders:
                print(carry_out(keyring, line.strip()), file=orders, flush=True)
        return program.wait()


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
