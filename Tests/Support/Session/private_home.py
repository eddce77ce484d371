"""Folders for one test, in place of the user's."""

import os

FOLDERS = {
    "HOME": "home",
    "XDG_CONFIG_HOME": "config",
    "XDG_DATA_HOME": "data",
    "XDG_CACHE_HOME": "cache",
    "XDG_RUNTIME_DIR": "run",
}


def private_home(folder):
    """Makes the folders. Returns the environment in which a program finds only them."""
    for name in FOLDERS.values():
        (folder / name).mkdir(mode=0o700)
    kept = {name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}
    return {
        **kept,
        "PATH": "/usr/local/bin:/usr/bin:/bin",
        "LANG": "C.UTF-8",
        **{variable: str(folder / name) for variable, name in FOLDERS.items()},
    }
