"""A fresh Debian in a folder, and the commands that are run in it."""

import os
import pathlib
import shutil
import subprocess

SYSTEM_PATH = "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin"
USER = "visitor"
HOME = f"/home/{USER}"
# The files by which this machine finds, trusts and reaches the sources of its packages.
OF_THIS_MACHINE = (
    "/etc/apt", "/usr/share/keyrings", "/usr/local/share/ca-certificates", "/etc/ssl/certs",
    "/etc/resolv.conf", "/etc/hosts",
)
# The kernel's folders, folders that everybody may write to, the users' own folders, and caches that
# programs make again, such as the index of all manuals.
NOT_COMPARED = ("/dev", "/proc", "/sys", "/tmp", "/home", "/root", "/var/cache")
LAST_LINES = 30


class RootError(Exception):
    """A command in the root failed. The message holds the last lines of its output."""


class DebianRoot:
    """The caller has to be in namespaces of its own, so that the mounts and processes end with
    it."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder).resolve()

    def create(self):
        """Makes a minimal Debian of this machine's release, with an ordinary user."""
        run(["rm", "--recursive", "--force", "--one-file-system", self.folder])
        self.folder.mkdir(parents=True)
        run(["debootstrap", "--variant=minbase", "--include=ca-certificates", release(),
             self.folder, *mirror()])
        for path in OF_THIS_MACHINE:
            self._copy_of_this_machine(path)
        # Keeps installed packages from starting services.
        self.write("/usr/sbin/policy-rc.d", "#!/bin/sh\nexit 101\n").chmod(0o755)
        self._mount()
        self.run("apt-get", "--quiet", "update")
        self.run("useradd", "--create-home", "--shell", "/bin/sh", USER)

    def path(self, inside):
        return self.folder / str(inside).lstrip("/")

    def write(self, inside, text):
        self.path(inside).write_text(text, encoding="utf-8")
        return self.path(inside)

    def run(self, *command):
        """Runs a command as root, waits for its end and returns its output."""
        return run(["chroot", self.folder, "env", "-i", f"PATH={SYSTEM_PATH}", "LC_ALL=C.UTF-8",
                    "DEBIAN_FRONTEND=noninteractive", "HOME=/root", *command])

    def run_as_user(self, *command):
        return run(["chroot", "--userspec", f"{USER}:{USER}", self.folder, "env", "-i",
                    f"--chdir={HOME}", f"PATH={SYSTEM_PATH}", "LC_ALL=C.UTF-8", f"HOME={HOME}",
                    f"USER={USER}", *command])

    def apt(self, *arguments):
        return self.run("apt-get", "--quiet", "--yes", "--no-install-recommends", *arguments)

    def files(self):
        """The paths of all files and folders that packages may have put there."""
        found = set()
        for folder, folders, names in os.walk(self.folder):
            inside = "/" / pathlib.Path(folder).relative_to(self.folder)
            folders[:] = [name for name in folders if str(inside / name) not in NOT_COMPARED]
            found.update(str(inside / name) for name in folders + names)
        return found

    def _copy_of_this_machine(self, path):
        source, target = pathlib.Path(path), self.path(path)
        if source.is_dir():
            shutil.rmtree(target, ignore_errors=True)
            shutil.copytree(source, target, symlinks=True)
        elif source.exists():
            target.unlink(missing_ok=True)
            shutil.copyfile(source, target)

    def _mount(self):
        # Order: the root first. A program can make a namespace in it only if the root is a mount.
        run(["mount", "--bind", self.folder, self.folder])
        run(["mount", "-t", "proc", "proc", self.path("/proc")])
        for name in ("/sys", "/dev"):
            run(["mount", "--rbind", name, self.path(name)])


def run(command):
    done = subprocess.run(
        command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        text=True, errors="replace", check=False,
    )
    if done.returncode != 0:
        said = done.stdout.splitlines()[-LAST_LINES:]
        words = " ".join(str(word) for word in command)
        raise RootError("\n".join([*said, f"status {done.returncode}: {words}"]))
    return done.stdout


def release():
    """The release of this machine. Its packages are built for it."""
    lines = pathlib.Path("/etc/os-release").read_text(encoding="utf-8").splitlines()
    fields = dict(line.split("=", maxsplit=1) for line in lines if "=" in line)
    return fields["VERSION_CODENAME"].strip('"')


def mirror():
    """The mirror of the release in this machine's package lists. If empty, debootstrap chooses
    one."""
    addresses = run(["apt-get", "indextargets", "--format", "$(REPO_URI)",
                     "Created-By: Packages", f"Codename: {release()}", "Component: main"])
    return addresses.split()[:1]
