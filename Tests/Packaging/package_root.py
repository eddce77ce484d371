"""Installs the Debian package in a fresh Debian, uses it, and purges it again.

usage: package_root.py PACKAGE ROOT [PACKAGE OF THE TESTS ...]
Needs root. The folder ROOT is made anew, and stays for inspection. The program is used twice: with
only the packages that apt installs for it, and on a whole tour. Ends with status 0 only if both
succeed, and if each purge leaves exactly the files that were there before.
"""

import contextlib
import os
import pathlib
import shutil
import sys

from debian_root import HOME, DebianRoot, RootError, run

TESTS = pathlib.Path(__file__).resolve().parent.parent
STORE = f"{HOME}/.local/share/Quorvel/Quorvel.store"
INSIDE = "QUORVEL_PACKAGE_ROOT"
NAMESPACES = ["unshare", "--mount", "--propagation", "private", "--pid", "--fork", "--kill-child"]


class Package:
    """The package to try, as a file in the root."""

    def __init__(self, root, file):
        self._root = root
        self._file = f"/tmp/{file.name}"
        shutil.copyfile(file, root.path(self._file))
        self.name, self.version = (
            run(["dpkg-deb", "--field", file, field]).strip() for field in ("Package", "Version")
        )

    def install_dependencies(self):
        """Installs the packages that apt would install for it, without the package itself."""
        plan = self._root.apt("install", "--simulate", self._file).splitlines()
        names = [line.split()[1] for line in plan if line.startswith("Inst ")]
        self._root.apt("install", *(name for name in names if name != self.name))

    @contextlib.contextmanager
    def installed(self):
        """Installs the package, and purges it afterwards. Fails if the files then differ from those
        before."""
        before = self._root.files()
        said = self._root.apt("install", self._file)
        if "0 upgraded, 1 newly installed, 0 to remove" not in said:
            raise RootError(f"{said}\nmore was installed than {self.name}")
        yield
        self._root.apt("purge", self.name)
        after = self._root.files()
        differing = [f"  left behind: {path}" for path in sorted(after - before)]
        differing += [f"  taken away: {path}" for path in sorted(before - after)]
        if differing:
            raise RootError("\n".join(["the purge has not made it undone:", *differing]))
        print(f"purged {self.name}: {len(after)} files and folders, as before", flush=True)


def use_alone(root, package):
    """Uses the program in a terminal, as an ordinary user."""
    printed = root.run_as_user("quorvel", "--version")
    print(printed.strip())
    if package.version not in printed.split():
        raise RootError(f"it is not {package.version}")
    root.run_as_user("quorvel", "--help")
    print(root.run_as_user("quorvel", "history").strip(), flush=True)


def take_the_tour(root):
    """Takes the tour as root: in a changed root, nobody else may make the namespaces of the
    district."""
    shutil.copytree(TESTS, root.path("/tmp/Tests"), ignore=shutil.ignore_patterns("__pycache__"))
    print(root.run("/usr/bin/python3", "-B", "/tmp/Tests/Tour/tour.py",
                   "/usr/bin/quorvel", "/tmp/tour").strip(), flush=True)


def expect_own_data(root):
    if not root.path(STORE).is_file():
        raise RootError(f"the user's own {STORE} is gone")


def try_package(file, folder, test_packages):
    root = DebianRoot(folder)
    print(f"Making a fresh Debian in {root.folder}", flush=True)
    root.create()
    package = Package(root, file)
    package.install_dependencies()
    with package.installed():
        use_alone(root, package)
    expect_own_data(root)
    root.apt("install", *test_packages)
    with package.installed():
        take_the_tour(root)
    expect_own_data(root)


def main():
    if os.geteuid() != 0:
        sys.exit("package_root: only root can make a Debian of its own")
    if INSIDE not in os.environ:
        os.environ[INSIDE] = "1"
        os.execvp(NAMESPACES[0], [*NAMESPACES, sys.executable, "-B", *sys.argv])
    file, folder, *test_packages = sys.argv[1:]
    try:
        try_package(pathlib.Path(file), folder, test_packages)
    except RootError as problem:
        sys.exit(f"package_root: {problem}")


if __name__ == "__main__":
    main()
