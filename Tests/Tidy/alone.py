"""Compiles every header, and every body that the tree ships or measures, alone: not several as one,
and with nothing precompiled that they do not include. A missing include has nowhere to hide then.

A body that includes its own header first stands for that as well. Only the syntax is read, and
only once until the file, its flags or a header of ours that it reaches changes. Bodies of tests
are left to the rules of the tree: reading them as well would take twice as long.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import subprocess
import sys

from clang_tidy import ROOT, flags_of, is_generated, is_test
from source import read_tree

# Warnings are the build's to give: a header is not made to be compiled.
COMPILER = ["clang++", "-w"]
# Only the copies that mutants.py writes include it.
WITHOUT_A_BODY = {"Tests/Mutants/Mutant.h"}
# Most of the time would go into this one. Only what includes it is shown it precompiled.
SHARED = "QObject"


class Includes:
    """What each file of the tree includes, by the paths from the root or the toolkit's names."""

    def __init__(self, tree):
        self._direct = {
            source.path: [target.strip('"<>') for _, target in source.includes]
            for source in tree.sources if source.is_cpp()
        }

    def first_of(self, path):
        """The header that the file shows to be complete: a header, itself."""
        return path if path.endswith(".h") else next(iter(self._direct[path]), None)

    def reached_from(self, path):
        """The file itself, what it includes, and so on."""
        reached, waiting = set(), [path]
        while waiting:
            path = waiting.pop()
            if path not in reached:
                reached.add(path)
                waiting += self._direct.get(path, [])
        return reached

    def shares(self, path):
        return SHARED in self.reached_from(self.first_of(path))


def commands_by_path(build):
    """The compile commands of the tree's own files."""
    commands = json.loads((build / "compile_commands.json").read_text())
    return {
        pathlib.Path(command["file"]).relative_to(ROOT).as_posix(): command
        for command in commands if not is_generated(command, build)
    }


def names_and_folders(command):
    """The flags that decide what a file means."""
    return [word for word in flags_of(command)
            if word.startswith(("-D", "-I", "-isystem", "-std"))]


def flags_by_file(tree, includes, commands):
    """What is to be compiled: the bodies with their own flags, the headers with those of a body
    that includes them. A header that nobody includes has none."""
    bodies = {path for path, command in commands.items() if not is_test(command)}
    flags = {path: names_and_folders(commands[path]) for path in sorted(bodies)}
    shown = {includes.first_of(path) for path in bodies}
    users = {}
    for path in sorted(commands):
        for header in includes.reached_from(path):
            users.setdefault(header, path)
    for source in tree.sources:
        if source.is_header() and source.path not in shown:
            user = users.get(source.path)
            flags[source.path] = names_and_folders(commands[user]) if user else None
    return flags


def fingerprint(path, flags, includes):
    digest = hashlib.sha256(" ".join([*COMPILER, *flags]).encode())
    for name in sorted(includes.reached_from(path)):
        digest.update(name.encode())
        digest.update((ROOT / name).read_bytes() if (ROOT / name).is_file() else b"")
    return digest.hexdigest()


def precompiled(build, flags):
    """The shared header, compiled with the flags that all files have in common."""
    header = build / f"{SHARED}.pch"
    common = [word for word in flags[0] if all(word in others for others in flags)]
    subprocess.run(
        [*COMPILER, *common, "-x", "c++-header", "-", "-o", header],
        input=f"#include <{SHARED}>\n", text=True, check=True,
    )
    return header


def complaint_about(path, flags):
    """What the compiler says against the file, or nothing."""
    finished = subprocess.run(
        [*COMPILER, "-fsyntax-only", *flags, "-x", "c++", ROOT / path],
        capture_output=True, text=True, check=False,
    )
    return finished.stderr if finished.returncode else ""


def main(build):
    build = pathlib.Path(build).resolve()
    passed = build / "alone-passed"
    passed.mkdir(exist_ok=True)
    tree = read_tree(ROOT)
    includes = Includes(tree)
    flags = flags_by_file(tree, includes, commands_by_path(build))
    complaints = [f"{path}: no body includes it" for path in flags
                  if flags[path] is None and path not in WITHOUT_A_BODY]
    stamps = {path: passed / fingerprint(path, flags[path], includes)
              for path in flags if flags[path]}
    waiting = [path for path, stamp in stamps.items() if not stamp.exists()]
    sharing = [path for path in waiting if includes.shares(path)]
    if sharing:
        header = precompiled(build, [flags[path] for path in sharing])
        for path in sharing:
            flags[path] += ["-include-pch", header]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = {path: pool.submit(complaint_about, path, flags[path]) for path in waiting}
    for path, job in jobs.items():
        if job.result():
            complaints.append(job.result())
        else:
            stamps[path].touch()
    print(*complaints, sep="\n", end="\n" if complaints else "")
    print(f"alone: {len(waiting)} of {len(flags)} files compiled, "
          f"{len(complaints)} with something to change")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
