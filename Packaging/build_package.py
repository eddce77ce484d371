"""Builds the Debian package from the files of this tree, and checks it with lintian.

usage: build_package.py FOLDER [--twice]
Uses the files that git tracks or would add, so that a change can be tried before it is committed.
FOLDER gets the package. With --twice, the package is built again in another folder, with other
settings and without a compiler's cache. Both packages have to be the same, byte for byte.
"""

import argparse
import dataclasses
import hashlib
import os
import pathlib
import shutil
import subprocess
import sys

from package_difference import differences

ROOT = pathlib.Path(__file__).resolve().parent.parent
SYSTEM_PATH = "/usr/sbin:/usr/bin:/sbin:/bin"
LAST_LINES = 30


@dataclasses.dataclass(frozen=True)
class Surroundings:
    """The properties of a build that must not change its result."""

    folder: str
    umask: int
    locale: str
    time_zone: str
    jobs: int
    has_cache: bool


PLAIN = Surroundings(
    folder="built", umask=0o022, locale="C.UTF-8", time_zone="UTC0",
    jobs=os.cpu_count() or 1, has_cache=True,
)
OTHER = Surroundings(
    folder="built-again/elsewhere", umask=0o077, locale="C", time_zone="Asia/Ho_Chi_Minh",
    jobs=PLAIN.jobs + 1, has_cache=False,
)
FOLDERS = ("built", "built-again")


class PackageError(Exception):
    """The package could not be built, or must not be given away."""


def export_tree(target):
    """Copies the files, and puts the packaging where its tools look for it."""
    listed = subprocess.run(
        ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        cwd=ROOT, stdout=subprocess.PIPE, check=True,
    ).stdout
    for name in filter(None, listed.decode().split("\0")):
        # git also lists files that are deleted but not yet committed.
        if os.path.lexists(ROOT / name):
            (target / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(ROOT / name, target / name, follow_symlinks=False)
            shutil.copymode(ROOT / name, target / name, follow_symlinks=False)
    (target / "Packaging/debian").rename(target / "debian")


def environment_of(surroundings, folder):
    """The environment of a build. It holds none of the caller's flags, and finds only the system's
    tools."""
    cached, uncached = {"CCACHE_DIR": str(folder / "cache")}, {"CCACHE_DISABLE": "1"}
    return {
        **(cached if surroundings.has_cache else uncached),
        "PATH": SYSTEM_PATH,
        "HOME": "/nonexistent",
        "LC_ALL": surroundings.locale,
        "TZ": surroundings.time_zone,
        "DEB_BUILD_OPTIONS": f"parallel={surroundings.jobs} terse",
    }


def run_logged(command, log, **options):
    with open(log, "wb") as output:
        status = subprocess.run(
            command, stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT,
            check=False, **options,
        ).returncode
    if status != 0:
        lines = pathlib.Path(log).read_text(errors="replace").splitlines()
        raise PackageError("\n".join([*lines[-LAST_LINES:], f"{command[0]} failed: see {log}"]))


def build(folder, surroundings):
    """Builds the package in its surroundings. Returns the folder with the results."""
    results = folder / surroundings.folder
    tree = results / "quorvel"
    export_tree(tree)
    print(f"Building in {tree}", flush=True)
    run_logged(
        ["dpkg-buildpackage", "--build=binary", "--no-sign"], results / "build.log",
        cwd=tree, env=environment_of(surroundings, folder), umask=surroundings.umask,
    )
    return results


def only(paths):
    [path] = paths
    return path


def check_with_lintian(results):
    changes = only(results.glob("*.changes"))
    command = ["lintian", "--allow-root", "--fail-on", "error,warning", changes]
    if subprocess.run(command, check=False).returncode != 0:
        raise PackageError("lintian has found something to change")


def compare(results, others):
    for package in sorted(results.glob("*.deb")):
        found = differences(package, others / package.name)
        if found:
            raise PackageError("\n".join([f"{package.name} came out differently:", *found]))
        print(f"Built twice, the same: {package.name}")


def describe(package):
    digest = hashlib.sha256(package.read_bytes()).hexdigest()
    return f"{package}\n  {package.stat().st_size} bytes\n  sha256 {digest}"


def clear(folder):
    """Deletes earlier results. Leaves `root`, in which package_root.py tries packages."""
    for name in FOLDERS:
        shutil.rmtree(folder / name, ignore_errors=True)
    for package in folder.glob("*.deb"):
        package.unlink()


def make(folder, twice):
    clear(folder)
    results = build(folder, PLAIN)
    check_with_lintian(results)
    if twice:
        compare(results, build(folder, OTHER))
    for package in sorted(results.glob("*.deb")):
        print(describe(pathlib.Path(shutil.copy2(package, folder))))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--twice", action="store_true")
    options = parser.parse_args()
    try:
        make(options.folder.resolve(), options.twice)
    except PackageError as problem:
        sys.exit(f"package: {problem}")


if __name__ == "__main__":
    main()
