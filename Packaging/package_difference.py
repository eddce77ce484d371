"""Compares two Debian packages, file by file."""

import hashlib
import io
import subprocess
import tarfile


def differences(package, other):
    """A line for each file that differs. An empty list if the packages are the same."""
    if package.read_bytes() == other.read_bytes():
        return []
    found = []
    for part in ("--ctrl-tarfile", "--fsys-tarfile"):
        entries, others = entries_of(package, part), entries_of(other, part)
        for name in sorted(entries.keys() | others.keys()):
            entry, as_well = entries.get(name), others.get(name)
            if entry != as_well:
                found.append(f"  {name}: {in_words(entry)}, {in_words(as_well)}")
    return found or ["  only in how they are packed"]


def entries_of(package, part):
    """All that dpkg would unpack, by name: mode, owners, time, size, target of a link and
    digest."""
    packed = subprocess.run(["dpkg-deb", part, package], stdout=subprocess.PIPE, check=True).stdout
    with tarfile.open(fileobj=io.BytesIO(packed)) as archive:
        return {entry.name: (*described(entry), digest(archive, entry)) for entry in archive}


def described(entry):
    return (f"{entry.mode:o}", entry.uname, entry.gname, entry.mtime, entry.size, entry.linkname)


def digest(archive, entry):
    if not entry.isfile():
        return ""
    return hashlib.sha256(archive.extractfile(entry).read()).hexdigest()


def in_words(entry):
    return " ".join(str(word) for word in entry if word != "") if entry else "absent"
