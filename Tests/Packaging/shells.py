"""The completions that each shell offers for a typed line."""

import os
import pathlib
import pty
import re
import shlex
import shutil
import subprocess
import tempfile

from patience import PATIENCE_SECONDS

COMPLETIONS = pathlib.Path(os.environ["QUORVEL_COMPLETIONS"])
HERE = pathlib.Path(__file__).parent
# Bash counts a "=" as a word of its own, and completes only the word behind it.
BASH_WORD = re.compile(r"=|[^\s=]+")


def bash(line, folder):
    words = BASH_WORD.findall(line) + ([""] if line[-1].isspace() else [])
    script = f"""
        source {shlex.quote(str(COMPLETIONS / "quorvel.bash"))}
        COMP_WORDS=({shlex.join(words)}) COMP_CWORD={len(words) - 1}
        $(complete -p quorvel | sed 's/.*-F \\([^ ]*\\).*/\\1/')
        (( ${{#COMPREPLY[@]}} == 0 )) || printf '%s\\n' "${{COMPREPLY[@]}}"
    """
    return _lines(["bash", "--norc", "-c", script], folder)


def fish(line, folder):
    script = f"source {COMPLETIONS / 'quorvel.fish'}; complete -C {shlex.quote(line)}"
    offers = _lines(["fish", "--no-config", "-c", script], folder)
    return [offer.partition("\t")[0] for offer in offers]


def zsh(line, folder):
    """zsh completes only in a terminal, so it gets one."""
    with tempfile.TemporaryDirectory(prefix="quorvel-zsh-") as settings:
        settings = pathlib.Path(settings)
        shutil.copy(HERE / "tell_completions.zsh", settings / ".zshrc")
        shutil.copy(COMPLETIONS / "quorvel.zsh", settings / "_quorvel")
        offers = settings / "offers"
        _run_in_terminal(
            ["zsh", "-d", "-i"], folder,
            {"ZDOTDIR": settings, "COMPLETIONS": settings, "OFFERS": offers, "LINE": line},
        )
        return offers.read_text().splitlines() if offers.exists() else []


SHELLS = {"bash": bash, "zsh": zsh, "fish": fish}


def offered(shell, line, folder=HERE):
    """The offered words, without the name of their option."""
    words = SHELLS[shell](line, folder)
    last = line.split(" ")[-1]
    option, equals, _ = last.partition("=")
    return {word.removeprefix(option + equals) if equals else word for word in words}


def _environment(folder):
    return {"PATH": os.environ["PATH"], "HOME": str(folder), "LANG": "C.UTF-8", "TERM": "dumb"}


def _lines(command, folder):
    with tempfile.TemporaryDirectory(prefix="quorvel-shell-") as home:
        finished = subprocess.run(
            command, cwd=folder, env=_environment(home), stdin=subprocess.DEVNULL,
            capture_output=True, text=True, timeout=PATIENCE_SECONDS, check=True,
        )
    if finished.stderr:
        raise AssertionError(finished.stderr)
    return finished.stdout.splitlines()


def _run_in_terminal(command, folder, variables):
    ours, theirs = pty.openpty()
    try:
        environment = {**_environment(folder), **{k: str(v) for k, v in variables.items()}}
        subprocess.run(
            command, cwd=folder, env=environment, stdin=theirs, stdout=theirs, stderr=theirs,
            start_new_session=True, timeout=PATIENCE_SECONDS, check=True,
        )
    finally:
        os.close(theirs)
        os.close(ours)
