"""In what two Debian packages differ, file by file."""

import hashlib
import io
import subprocess
import tarfile


def differences(package, other):
    """One line for each file that is not the same in both; none where the packages are."""
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
    """What dpkg would unpack: each name with all that is told of it."""
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
