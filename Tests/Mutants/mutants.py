"""usage: mutants.py FOLDER [--again]

Makes small changes of the code in FOLDER, one at a time, and runs the folder's tests on each. Lists
what no test noticed. Everything happens in a copy of the tree, `build/mutants`.

The folder's tests are the compiled ones of Tests/FOLDER, or of the nearest folder above it that has
any, and those of Tests/Contract that link a library of FOLDER; without the label `world` or
`desktop`. Each runs in a box in which it can write nothing but its own home and /tmp, both in
memory. A test that does not end counts as one that noticed.

With --again only those changes are tried that were not noticed the last time; the others count as
they did. Ends well if at least 90 % were noticed of those that compile.
"""

import argparse
import collections
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import threading
import time

import mutation

ROOT = pathlib.Path(__file__).resolve().parents[2]
COPY = ROOT / "build/mutants"
BUILD = COPY / "build/dev"
WANTED = 0.9
PREAMBLE = (b'#pragma clang diagnostic ignored "-Weverything"\n'
            b'#include "Tests/Mutants/Mutant.h"\n#line 1\n')
DIAGNOSTIC = re.compile(r"^([^:\s]+):(\d+):(\d+): (error|fatal error|note): ", re.MULTILINE)
# A test may take this many seconds, plus this many times as long as without a change.
PATIENCE_SECONDS, PATIENCE_FACTOR = 5, 10

Test = collections.namedtuple("Test", "name command environment home")


def fail(message):
    sys.exit(f"mutants: {message}")


def say(message):
    print(f"mutants: {message}", flush=True)


# --- the copy

def copy_tree():
    """Copies only the files that differ, so that nothing is rebuilt without need."""
    wanted = set()
    for folder, folders, names in os.walk(ROOT):
        folders[:] = [name for name in folders if name not in ("build", ".git", "__pycache__")]
        for name in names:
            source = pathlib.Path(folder, name)
            target = COPY / source.relative_to(ROOT)
            wanted.add(target)
            if not target.exists() or target.read_bytes() != source.read_bytes():
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, target)
    for folder, folders, names in os.walk(COPY):
        folders[:] = [name for name in folders if name != "build"]
        for name in names:
            if pathlib.Path(folder, name) not in wanted:
                pathlib.Path(folder, name).unlink()


def run(*command):
    return subprocess.run(command, cwd=COPY, capture_output=True, text=True, check=False)


def build(*targets):
    """Returns the output if the build failed, or nothing."""
    os.environ.update(CCACHE_BASEDIR=str(COPY), CCACHE_NOHASHDIR="1",
                      CCACHE_SLOPPINESS="pch_defines,time_macros")
    done = run("ninja", "-C", BUILD, "-j", str(os.cpu_count()), "-k", "0", *targets)
    return done.stdout + done.stderr if done.returncode else ""


def configure():
    done = run("cmake", "--preset", "dev")
    if done.returncode:
        fail("the copy could not be configured:\n" + done.stdout + done.stderr)


# --- the tests

def tests_of(folder):
    """The tests of the folder, or of the nearest folder above it that has any, and the contract
    tests that link one of its libraries."""
    listing = json.loads(run("ctest", "--test-dir", BUILD, "--show-only=json-v1").stdout)
    places = {}
    for test in listing["tests"]:
        values = {each["name"]: each["value"] for each in test["properties"]}
        environment = dict(each.split("=", 1) for each in values.get("ENVIRONMENT", []))
        home = environment.get("HOME")
        if not home or {"world", "desktop", "program"} & set(values.get("LABELS", [])):
            continue
        command = test.get("command", [str(BUILD / "tests" / test["name"])])
        places.setdefault(pathlib.Path(values["WORKING_DIRECTORY"]), []).append(
            Test(test["name"], command, environment, home))
    found, room = [], BUILD / "Tests" / folder.removeprefix("_")
    while not found and room != BUILD / "Tests":
        found = [test for place, tests in places.items() if place.is_relative_to(room)
                 for test in tests]
        room = room.parent
    contracts = places.get(BUILD / "Tests/Contract", [])
    return found + [test for test in contracts if test not in found and links(test.name, folder)]


def links(name, folder):
    inputs = run("ninja", "-C", BUILD, "-t", "inputs", f"tests/{name}").stdout.split()
    return any(each.startswith(f"{folder}/") and each.endswith(".o") for each in inputs)


class Box:
    """Runs one test in a box in which it cannot do any harm."""

    def __init__(self, test, reached=None):
        self.test = test
        self.command = [
            "bwrap", "--ro-bind", "/", "/", "--dev", "/dev", "--proc", "/proc", "--cap-add", "ALL",
            "--unshare-pid", "--unshare-net", "--unshare-ipc", "--die-with-parent",
            "--tmpfs", "/tmp", "--tmpfs", "/var/tmp", "--tmpfs", test.home,
            "--perms", "0700", "--dir", f"{test.home}/run", "--chdir", "/tmp",
        ]
        self.environment = {**os.environ, **test.environment}
        for name in ("TMPDIR", "DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS"):
            self.environment.pop(name, None)
        if reached:
            self.command += ["--bind", reached, reached]
            self.environment["QUORVEL_MUTANTS_REACHED"] = reached

    def passes(self, number=0, patience=600):
        """Ends with the first case that fails."""
        environment = {**self.environment, "QUORVEL_MUTANT": str(number)}
        with subprocess.Popen([*self.command, *self.test.command], env=environment,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL) as process:
            timer = threading.Timer(patience, process.kill)
            timer.start()
            failed = any(line.startswith(b"FAIL!") for line in process.stdout)
            if failed:
                process.kill()
            status = process.wait()
            timer.cancel()
            return status == 0 and not failed


def try_unchanged(test, count):
    """The duration of the test, and the numbers of the changes that it reaches. None if it
    fails."""
    with tempfile.NamedTemporaryFile(dir=BUILD) as file:
        file.write(bytes(count + 1))
        file.flush()
        begun = time.monotonic()
        if not Box(test, file.name).passes():
            return None
        duration = time.monotonic() - begun
        reached = pathlib.Path(file.name).read_bytes()
        return duration, {number for number, byte in enumerate(reached) if byte}


# --- the changes

def find_edits(folder):
    """All edits of the folder's own files, except the fakes: they serve the tests."""
    files = {str(path): path.read_bytes() for path in sorted((COPY / folder).rglob("*"))
             if path.suffix in (".cpp", ".h") and not path.name.startswith("Fake")}
    commands = {each["file"]: arguments_of(each["command"]) for each in
                json.loads((BUILD / "compile_commands.json").read_text())}
    edits = {}
    with concurrent.futures.ProcessPoolExecutor(os.cpu_count()) as pool:
        def read(paths):
            choices = [choices_for(path, commands) for path in paths]
            for found in pool.map(find_with_any, paths, choices, [files] * len(paths)):
                for path, more in found.items():
                    edits.setdefault(path, {}).update(dict.fromkeys(more))

        read([path for path in files if path in commands])
        read([path for path in files if path not in edits])  # Headers that none of those includes.
    return files, [edit for found in edits.values() for edit in found]


def find_with_any(path, choices, files):
    """The edits by the first arguments with which the file compiles."""
    for arguments in choices:
        try:
            return mutation.find(path, arguments, files)
        except SyntaxError as error:
            wrong = error
    raise wrong


def choices_for(path, commands):
    """The arguments of a file; a header is compiled as one of those that stand nearest to it."""
    if path in commands:
        return [commands[path]]
    near, folder = [], os.path.relpath(path, COPY)
    while not near:
        folder = os.path.dirname(folder)
        roots = tuple(f"{root}/{folder}/" for root in (COPY, BUILD))
        near = [arguments for each, arguments in commands.items() if each.startswith(roots)]
    return [[*arguments, "-w", "-x", "c++"] for arguments in near]


def arguments_of(command):
    """The arguments of a command, without the compiler, its cache and the names of the files."""
    words = shlex.split(command)
    first = next(i for i, word in enumerate(words) if word.startswith("-"))
    return words[first:words.index("-o")]


class Mutation:
    """The copy with all its changes, except those that do not compile."""

    def __init__(self, files, edits):
        self.files, self.edits = files, edits
        mutants = sorted({edit.mutant for edit in edits if edit.mutant})
        self.numbers = {mutant: number for number, mutant in enumerate(mutants, 1)}
        self.uncompiled = set()
        self._rendered = {}

    def write(self):
        edits = {}
        for edit in self.edits:
            edits.setdefault(edit.path, []).append(edit)
        for path, text in self.files.items():
            code, places = mutation.render(text, edits.get(path, []), self.numbers)
            code = PREAMBLE + code
            self._rendered[path] = code.split(b"\n"), places
            if pathlib.Path(path).read_bytes() != code:
                pathlib.Path(path).write_bytes(code)

    def drop_what_fails(self, output):
        """Drops the changes that the compiler complains about. Returns whether it found any."""
        culprits, lines = set(), set()
        blamed = False  # whether a change was found at the place of the last error
        for path, line, column, kind in DIAGNOSTIC.findall(output):
            path, line = os.path.normpath(BUILD / path), int(line)
            if kind != "note":
                blamed = False
            if path not in self.files:
                continue
            lines.add((path, line))
            if kind != "note":
                innermost = self._innermost(path, line, int(column))
                culprits |= set(innermost)
                blamed = bool(innermost)
            if not blamed:
                culprits |= set(self._constants_at(path, line))
        if not culprits:
            culprits = {edit for edit in self.edits
                        if (edit.path, self._line(edit.path, edit.start)) in lines}
        self._drop(culprits)
        return bool(culprits)

    def _line(self, path, offset):
        return self.files[path].count(b"\n", 0, offset) + 1

    def _constants_at(self, path, line):
        return [edit for edit in self.edits if edit.path == path and edit.span
                and self._line(path, edit.span[0]) <= line <= self._line(path, edit.span[1])]

    def _innermost(self, path, line, column):
        lines, places = self._rendered[path]
        before = PREAMBLE.count(b"\n")
        offset = sum(len(each) + 1 for each in lines[before:before + line - 1]) + column - 1
        around = [(end - start, edits) for start, end, edits in places if start <= offset < end]
        return min(around, key=lambda each: each[0])[1] if around else []

    def _drop(self, culprits):
        spans = [(edit.path, *edit.span) for edit in culprits if edit.span]
        lost = {edit.mutant for edit in culprits if edit.mutant}
        lost |= {edit.mutant for edit in self.edits for path, start, end in spans
                 if edit.mutant and edit.path == path and start <= edit.start < end}
        self.uncompiled |= lost
        self.edits = [edit for edit in self.edits
                      if edit not in culprits and edit.mutant not in lost]


def build_mutants(folder, tests):
    files, edits = find_edits(folder)
    code = Mutation(files, edits)
    say(f"{len(code.numbers)} changes in {folder}, {len(tests)} tests")
    targets = [test.name for test in tests]
    while True:
        code.write()
        output = build(*targets)
        if not output:
            return code
        before = len(code.uncompiled)
        if not code.drop_what_fails(output):
            fail("the copy does not compile:\n" + output[-4000:])
        say(f"{len(code.uncompiled) - before} do not compile; building without them")


# --- the runs

def outcomes(numbers, count, tests):
    """For each number, in its time, what the tests say of it: caught, survived or not reached."""
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        unchanged = list(pool.map(lambda test: try_unchanged(test, count), tests))
        for test, result in zip(tests, unchanged):
            if not result:
                say(f"left out, since it fails without any change: {test.name}")
        known = sorted(((*result, test) for test, result in zip(tests, unchanged) if result),
                       key=lambda each: each[0])
        say(f"the tests take {sum(each[0] for each in known):.1f} s; trying each change")

        def outcome(number):
            concerned = [(test, PATIENCE_SECONDS + PATIENCE_FACTOR * duration)
                         for duration, reached, test in known if number in reached]
            if not concerned:
                return "not reached"
            passed = all(Box(test).passes(number, seconds) for test, seconds in concerned)
            return "survived" if passed else "caught"

        yield from zip(numbers, pool.map(outcome, numbers))


def describe(mutant, word):
    path = pathlib.Path(mutant.path).relative_to(COPY)
    after = mutant.after or "(nothing)"
    return f"{path}:{mutant.line}: {word}: {mutant.before}  →  {after}"


def key(mutant):
    """What tells a change from others, also after lines came in above it."""
    return mutant.path, mutant.before, mutant.after


def prepare(folder):
    """The copy with its changes, and the tests."""
    copy_tree()
    configure()
    if output := build("quorvel_headers"):
        fail(output)
    tests = tests_of(folder)
    if not tests:
        fail(f"{folder} has no tests")
    code = build_mutants(folder, tests)
    # Only now CMake knows every command.
    return code, tests_of(folder)


def main():
    parser = argparse.ArgumentParser(usage=__doc__.partition("\n")[0].partition(" ")[2])
    parser.add_argument("folder", type=lambda text: text.strip("/"))
    parser.add_argument("--again", action="store_true")
    arguments = parser.parse_args()
    folder = arguments.folder
    if not (ROOT / folder).is_dir():
        fail(f"there is no folder {folder}")
    code, tests = prepare(folder)
    mutants = {number: mutant for mutant, number in code.numbers.items()
               if mutant not in code.uncompiled}
    memory = COPY / "build" / (folder.replace("/", "-") + "-missed.json")
    last = None
    if arguments.again and memory.exists():
        last = {tuple(each) for each in json.loads(memory.read_text())}
    tried = [number for number, mutant in mutants.items() if last is None or key(mutant) in last]
    missed = {"survived": [], "not reached": []}
    for number, outcome in outcomes(sorted(tried), len(code.numbers), tests):
        if outcome in missed:
            missed[outcome].append(mutants[number])
            print(describe(mutants[number], outcome), flush=True)
    memory.write_text(json.dumps([key(mutant) for mutant in sum(missed.values(), [])]))
    caught = len(mutants) - sum(map(len, missed.values()))
    share = caught / len(mutants) if mutants else 1
    print(f"{folder}: {len(code.numbers)} made, {caught} caught ({100 * share:.1f} %), "
          f"{len(missed['survived'])} survived, {len(missed['not reached'])} not reached, "
          f"{len(code.uncompiled)} do not compile")
    return 0 if share >= WANTED else 1


if __name__ == "__main__":
    sys.exit(main())
