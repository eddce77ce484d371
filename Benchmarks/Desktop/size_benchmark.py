"""The size of an installation on the disk, beside that of a minimal Qt tray program.

usage: size_benchmark.py BUILD
Debug symbols and the libraries of the system are not counted.
"""

import pathlib
import subprocess
import sys
import tempfile

AIM_MB = 3
SHOWN_MB = 0.1
MB = 1e6


def installed_files(build, folder):
    """The size of each file that this build installs, by its path."""
    command = ["cmake", "--install", build, "--strip", "--prefix", folder]
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    files = (path for path in folder.rglob("*") if path.is_file())
    return {str(path.relative_to(folder)): path.stat().st_size for path in files}


def stripped_size(program, folder):
    copy = folder / program.name
    subprocess.run(["strip", "-o", copy, program], check=True)
    return copy.stat().st_size


def main(build):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        sizes = installed_files(build, folder / "installed")
        bare = stripped_size(build / "benchmarks/parts/bare_tray", folder)
    total = sum(sizes.values())
    print(f"{'':<44} {'quorvel':>8} {'bare':>8} {'':<5} {'ratio':>5}  aim")
    print(f"{'installed size':<44} {total / MB:>8.2f} {bare / MB:>8.2f} {'MB':<5} "
          f"{total / bare:>5.1f}  <= {AIM_MB}")
    for file, size in sorted(sizes.items(), key=lambda item: -item[1]):
        if size >= SHOWN_MB * MB:
            print(f"  {file:<42} {size / MB:>8.2f}")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
