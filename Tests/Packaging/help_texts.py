"""The options and commands that the built program lists in its help."""

import functools
import os
import re
import subprocess

from patience import PATIENCE_SECONDS

PROGRAM = os.environ["QUORVEL_PROGRAM"]
COMMAND = re.compile(r"^  ([a-z][a-z-]+)  ", re.MULTILINE)
OPTION = re.compile(r"^  (?:(-[a-z]), )?(--[a-z-]+)(?: ([A-Z]+))?  ", re.MULTILINE)


def help_text(*command):
    return output(*command, "--help")


@functools.cache
def output(*arguments):
    return subprocess.run(
        [PROGRAM, *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True,
        timeout=PATIENCE_SECONDS, check=True,
    ).stdout


def version():
    return output("--version").split()[1]


def commands():
    return COMMAND.findall(help_text())


def options(*command):
    """The options of the program or of a command. Each name has the word for its value, or an empty
    text."""
    found = {}
    for short, long, value in OPTION.findall(help_text(*command)):
        found.update({name: value for name in (short, long) if name})
    return found


def pages():
    """The arguments of each help text, without `--help`."""
    return [(), *((command,) for command in commands())]
