"""Runs clang-tidy over the compiled files of a build folder, each once until it changes.

A file counts as the same while it, the headers it was built from, its compiler flags and the
checks are the same, byte for byte.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
# Following each function on its own finds what is worth it here, in half of the time.
SHALLOW = [
    f"--extra-arg={word}"
    for word in ("-Xclang", "-analyzer-config", "-Xclang", "mode=shallow")
]


def project_commands(build):
    """The compile commands of what the tree ships and measures, not of generated files. Tests are
    compiled with every warning by two compilers; linting them too would double the time."""
    commands = json.loads((build / "compile_commands.json").read_text())
    return {
        command["file"]: command
        for command in commands
        if build not in pathlib.Path(command["file"]).parents
        and "/Tests/" not in command["file"]
    }


def headers_by_object(build):
    """What ninja knows: each object's own headers, as far as they lie in the tree."""
    listing = subprocess.run(
        ["ninja", "-C", build, "-t", "deps"], capture_output=True, text=True, check=True
    ).stdout
    headers, current = {}, None
    for line in listing.splitlines():
        if line.startswith("    "):
            path = (build / line.strip()).resolve()
            if ROOT in path.parents:
                current.append(path)
        elif line:
            current = headers.setdefault(line.split(":")[0], [])
    return headers


def output_of(command):
    words = shlex.split(command["command"])
    return words[words.index("-o") + 1]


def fingerprint(command, headers):
    digest = hashlib.sha256(" ".join([command["command"], *SHALLOW]).encode())
    for path in [ROOT / ".clang-tidy", pathlib.Path(command["file"]), *headers]:
        digest.update(path.read_bytes() if path.exists() else b"")
    return digest.hexdigest()


def check(build, command, stamp):
    """Returns what clang-tidy said against the file, or nothing."""
    finished = subprocess.run(
        ["clang-tidy", "--quiet", f"-p={build}", *SHALLOW, command["file"]],
        capture_output=True, text=True, check=False,
    )
    # A configuration that it cannot read is no failure to clang-tidy: it goes on without.
    unread = ".clang-tidy:" in finished.stderr
    if finished.returncode == 0 and not unread:
        stamp.touch()
        return ""
    return finished.stdout + finished.stderr


def main(build):
    build = pathlib.Path(build).resolve()
    passed = build / "clang-tidy-passed"
    passed.mkdir(exist_ok=True)
    headers = headers_by_object(build)
    waiting = {}
    for path, command in sorted(project_commands(build).items()):
        stamp = passed / fingerprint(command, headers.get(output_of(command), []))
        if not stamp.exists():
            waiting[path] = (command, stamp)
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for complaint in pool.map(lambda job: check(build, *job), waiting.values()):
            if complaint:
                failed += 1
                print(complaint, flush=True)
    print(f"clang-tidy: {len(waiting)} files read, {failed} with something to change")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
