"""The program as it is without its modules."""

import pathlib
import shutil


def copy_without_modules(program, folder):
    """Copies the program and the library that it starts with; returns the copied program."""
    prefix = pathlib.Path(program).resolve().parent.parent
    [library] = prefix.glob("lib*/**/libquorvel.so")
    for file in (pathlib.Path(program), library):
        copy = folder / file.resolve().relative_to(prefix)
        copy.parent.mkdir(parents=True)
        shutil.copy(file, copy)
    return folder / "bin" / pathlib.Path(program).name
