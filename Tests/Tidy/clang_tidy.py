"""Runs clang-tidy over the compiled files of a build folder, in batches. A batch that passed is not
read again until something in it changes.

Most of the time goes into included files, which are nearly the same for all files of a layer: so a
batch of files is read as one. If two files of a batch give the same name to different things, even
to private ones, the batch is read again target by target. A batch counts as unchanged while its
files, the headers that they include, their compiler flags and the checks are the same, byte for
byte.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
CHECKS = ROOT / ".clang-tidy"
# Larger batches would leave a processor idle at the end.
BATCH = 12
PRECOMPILED = re.compile(r" -Winvalid-pch| -Xclang \S+")
# The shallow mode follows each function on its own. It finds what matters here, in half of the
# time.
SHALLOW = [
    f"--extra-arg={word}"
    for word in ("-Xclang", "-analyzer-config", "-Xclang", "mode=shallow")
]


def is_generated(command, build):
    return build in pathlib.Path(command["file"]).parents


def is_test(command):
    return "/Tests/" in command["file"]


def project_commands(build):
    """The compile commands of the files that the tree ships or measures, without generated files.
    Tests are compiled with every warning, and reading them too would double the time."""
    commands = json.loads((build / "compile_commands.json").read_text())
    return {
        command["file"]: command
        for command in commands
        if not is_generated(command, build) and not is_test(command)
    }


def room_of(command):
    """The group of files that can be read together: a folder of the root, divided by whether Qt's
    keywords are off. Each benchmark has its own main, so that it is read alone."""
    room = pathlib.Path(command["file"]).relative_to(ROOT).parts[0]
    if room == "Benchmarks":
        return target_of(command)
    return room, "-DQT_NO_KEYWORDS" in command["command"]


def target_of(command):
    return output_of(command).split(".dir/")[0]


def grouped(commands, key):
    groups = {}
    for command in commands:
        groups.setdefault(key(command), []).append(command)
    return list(groups.values())


def batches(commands):
    """The commands of each group, in parts of at most BATCH files and nearly equal size."""
    parts = []
    for group in grouped((command for _, command in sorted(commands.items())), room_of):
        count = -(-len(group) // BATCH)
        parts += [group[i * len(group) // count : (i + 1) * len(group) // count]
                  for i in range(count)]
    return parts


def flags_of(command):
    """The flags of a command, without the compiler, its cache, the precompiled headers, and the
    names of the file. `-isystem` stays with its folder."""
    words = shlex.split(
        PRECOMPILED.sub("", command["command"]).replace("-isystem ", "-isystem"))
    first = next(i for i, word in enumerate(words) if word.startswith("-"))
    output = words.index("-o")
    return [word for word in words[first:output] + words[output + 2 :]
            if word not in ("-c", command["file"])]


def flags_of_all(batch):
    """The flags of all commands, each once, in the order of their first use."""
    return list(dict.fromkeys(word for command in batch for word in flags_of(command)))


def headers_by_object(build):
    """The headers of this tree that each object includes, as ninja knows them."""
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
    digest = hashlib.sha256(" ".join([*SHALLOW, *flags_of_all(batch)]).encode())
    files = {pathlib.Path(command["file"]) for command in batch}
    for command in batch:
        files.update(headers.get(output_of(command), []))
    for path in [CHECKS, *sorted(files)]:
        digest.update(bytes(path))
        digest.update(path.read_bytes() if path.exists() else b"")
    return digest.hexdigest()


def complaint_about(batch, unity):
    """Returns clang-tidy's complaint about the batch, or nothing."""
    unity.write_text("".join(f'#include "{command["file"]}" // NOLINT\n' for command in batch))
    finished = subprocess.run(
        ["clang-tidy", "--quiet", f"--config-file={CHECKS}", *SHALLOW, unity,
         "--", *flags_of_all(batch)],
        cwd=batch[0]["directory"], capture_output=True, text=True, check=False,
    )
    unity.unlink()
    # clang-tidy does not fail if it cannot read its configuration: it goes on without one.
    unread = ".clang-tidy:" in finished.stderr
    return finished.stdout + finished.stderr if finished.returncode or unread else ""


def check(batch, stamp):
    """Returns the complaint about the batch. If there is none, remembers that the batch passed."""
    unity = stamp.with_suffix(".cpp")
    complaint = complaint_about(batch, unity)
    targets = grouped(batch, target_of)
    if complaint and len(targets) > 1:
        complaint = "".join(complaint_about(target, unity) for target in targets)
    if not complaint:
        stamp.touch()
    return complaint


def main(build):
    build = pathlib.Path(build).resolve()
    passed = build / "clang-tidy-passed"
    passed.mkdir(exist_ok=True)
    headers = headers_by_object(build)
    commands = project_commands(build)
    if not commands:
        sys.exit(f"clang-tidy: {build} compiles no file by itself: choose another preset")
    waiting = []
    for batch in batches(commands):
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
