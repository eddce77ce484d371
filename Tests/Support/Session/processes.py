"""The processes of one test: started together, ended together, whatever happens."""

import os
import pathlib
import signal
import subprocess

from patience import PATIENCE_SECONDS, NotSeen, wait_for

# How long a process may take to end by itself after a test, before it is killed.
GRACE_SECONDS = 20


class Process:
    """One running program with its output kept in a file."""

    def __init__(self, name, command, environment, log, stdin=subprocess.DEVNULL, **options):
        self.name = name
        self.log = log
        with open(log, "ab") as output:
            # The kernel ends the child even if this interpreter is killed. A Ctrl-C in the terminal
            # reaches only this interpreter, which ends its children in their order.
            self._child = subprocess.Popen(
                ["setpriv", "--pdeathsig", "KILL", *command],
                env=environment,
                stdin=stdin,
                stdout=output,
                stderr=subprocess.STDOUT,
                start_new_session=True,
                **options,
            )

    @property
    def pid(self):
        return self._child.pid

    def is_running(self):
        return self._child.poll() is None

    def freeze(self):
        """Stops the process. It keeps its names on the bus, and answers nobody."""
        self._child.send_signal(signal.SIGSTOP)
        # The signal takes effect with a delay, in which another thread could still answer.
        os.waitid(os.P_PID, self.pid, os.WSTOPPED | os.WEXITED | os.WNOWAIT)

    def thaw(self):
        self._child.send_signal(signal.SIGCONT)

    def terminate(self):
        self._child.send_signal(signal.SIGTERM)

    def has_failed(self):
        """Whether the process has ended with an error."""
        return bool(self._child.poll())

    def status(self):
        """The exit status once the process has ended. None when it hangs."""
        return self._status_within(PATIENCE_SECONDS)

    def end(self):
        if self.is_running():
            self.terminate()
            self.thaw()
        if self._status_within(GRACE_SECONDS) is None:
            self._child.kill()
            self._child.wait()

    def output(self):
        return pathlib.Path(self.log).read_text(errors="replace")

    def _status_within(self, seconds):
        try:
            return self._child.wait(seconds)
        except subprocess.TimeoutExpired:
            return None


class ProcessGroup:
    """Starts processes with a common mark in their environment, so that their children are found as
    well."""

    MARK = "QUORVEL_VIRTUAL_DESKTOP"

    def __init__(self, folder):
        self._folder = folder
        self._started = []

    def start(self, name, command, environment, **options):
        log = self._folder / f"{name}.log"
        process = Process(name, command, self.marked(environment), log, **options)
        self._started.append(process)
        return process

    def marked(self, environment):
        """The environment with the mark of this group: the process ends with it, whoever starts
        it."""
        return {**environment, self.MARK: str(self._folder)}

    def start_announcing(self, name, command, environment):
        """Starts a server, and returns the line that it writes to a descriptor once it can be
        reached."""
        reading, writing = os.pipe()
        with os.fdopen(reading) as lines:
            self.start(name, command(writing), environment, pass_fds=[writing])
            os.close(writing)
            line = lines.readline().strip()
        if not line:
            raise NotSeen(f"the {name} did not start\n{self.logs()}")
        return line

    def named(self, name):
        """The newest process with that name."""
        return [process for process in self._started if process.name == name][-1]

    def end(self, name):
        for process in self._started:
            if process.name == name:
                process.end()

    def end_all(self):
        for process in reversed(self._started):
            process.end()
        wait_for(self._are_strays_gone, "the end of what the processes have started")

    def logs(self):
        """The output of every process, each under its name."""
        texts = {process.name: process.output().strip() for process in self._started}
        return "\n".join(f"--- {name}\n{text}" for name, text in texts.items() if text)

    def _are_strays_gone(self):
        mark = f"{self.MARK}={self._folder}".encode()
        strays = [pid for pid in running_pids() if mark in environment_of(pid)]
        for pid in strays:
            kill_quietly(pid)
        return not strays


def running_pids():
    return [int(entry) for entry in os.listdir("/proc") if entry.isdigit()]


def environment_of(pid):
    try:
        return pathlib.Path(f"/proc/{pid}/environ").read_bytes().split(b"\0")
    except OSError:
        return []


def kill_quietly(pid):
    try:
        os.kill(pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
