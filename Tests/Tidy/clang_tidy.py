"""Runs clang-tidy over the compiled files of a build folder, each target's together and once
until one of them changes.

Most of the time goes into what the files include, which is nearly the same for all of a target: a
batch of them is read as one. It counts as the same while its files, the headers that they were
built from, their compiler flags and the checks are the same, byte for byte.
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
CHECKS = ROOT / ".clang-tidy"
# More at once would leave one processor with nothing to do at the end.
BATCH = 12
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


def batches(commands):
    """The commands of each target, at most so many at once."""
    by_target = {}
    for _, command in sorted(commands.items()):
        target = output_of(command).split(".dir/")[0]
        by_target.setdefault(target, []).append(command)
    return [
        commands[start : start + BATCH]
        for commands in by_target.values()
        for start in range(0, len(commands), BATCH)
    ]


def flags_of(command):
    """Without the compiler, its cache, and what names the one file."""
    words = shlex.split(command["command"])
    first = next(i for i, word in enumerate(words) if word.startswith("-"))
    output = words.index("-o")
    return [word for word in words[first:output] + words[output + 2 :]
            if word not in ("-c", command["file"])]


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


def fingerprint(batch, headers):
    digest = hashlib.sha256(" ".join([*SHALLOW, *flags_of(batch[0])]).encode())
    files = {pathlib.Path(command["file"]) for command in batch}
    for command in batch:
        files.update(headers.get(output_of(command), []))
    for path in [CHECKS, *sorted(files)]:
        digest.update(bytes(path))
        digest.update(path.read_bytes() if path.exists() else b"")
    return digest.hexdigest()


def check(batch, stamp):
    """Returns what clang-tidy said against the batch, or nothing."""
    unity = stamp.with_suffix(".cpp")
    unity.write_text("".join(f'#include "{command["file"]}" // NOLINT\n' for command in batch))
    finished = subprocess.run(
        ["clang-tidy", "--quiet", f"--config-file={CHECKS}", *SHALLOW, unity,
         "--", *flags_of(batch[0])],
        cwd=batch[0]["directory"], capture_output=True, text=True, check=False,
    )
    unity.unlink()
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
    waiting = []
    for batch in batches(project_commands(build)):
        stamp = passed / fingerprint(batch, headers)
        if not stamp.exists():
            waiting.append((batch, stamp))
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for complaint in pool.map(lambda job: check(*job), waiting):
            if complaint:
                failed += 1
                print(complaint, flush=True)
    files = sum(len(batch) for batch, _ in waiting)
    parts = f"{files} files read in {len(waiting)} parts"
    print(f"clang-tidy: {parts}, {failed} with something to change")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
