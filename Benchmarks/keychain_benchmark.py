"""Measures how long a password takes to be read from the real keyring daemon.

usage: keychain_benchmark.py BUILD
"""

import pathlib
import sys

from keyring_world import KeyringWorld
from private_session import PrivateSession


def main(build):
    with PrivateSession() as session:
        KeyringWorld(session.environment, session.processes).start()
        program = session.start("reading", [build.resolve() / "benchmarks/parts/keychain_reading"])
        if program.status() != 0:
            raise SystemExit(f"the keychain was not measured\n{session.processes.logs()}")
        print(program.output(), end="")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
