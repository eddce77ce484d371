"""Runs all tests several times on a busy machine, and lists those that fail or differ.

usage: flakes.py BUILD ROUNDS
BUILD/flakes gets the output of each round. Ends with status 0 only if no test is listed.
"""

import contextlib
import os
import pathlib
import shutil
import subprocess
import sys
import xml.etree.ElementTree

BUSY = [sys.executable, "-c", "while True: pass"]
PASSED, FAILED, SKIPPED, ABSENT = "passed", "failed", "skipped", "did not run"


def cores():
    return len(os.sched_getaffinity(0))


@contextlib.contextmanager
def busy_machine():
    """Keeps every core busy with something else."""
    # The kernel ends these processes even if this interpreter is killed.
    command = ["setpriv", "--pdeathsig", "KILL", *BUSY]
    processes = [subprocess.Popen(command) for _ in range(cores())]
    try:
        yield
    finally:
        for process in processes:
            process.kill()
            process.wait()


def outcomes(report):
    """The outcome of each test of a round, by its name, from a JUnit report."""
    found = {}
    for case in xml.etree.ElementTree.fromstring(report).iter("testcase"):
        if case.find("failure") is not None or case.get("status") == "fail":
            outcome = FAILED
        elif case.find("skipped") is not None or case.get("status") in ("notrun", "disabled"):
            outcome = SKIPPED
        else:
            outcome = PASSED
        found[case.get("name")] = outcome
    return found


def differences(rounds):
    """A line for each test that failed, or whose outcomes differ between the rounds."""
    lines = []
    for name in sorted({name for found in rounds for name in found}):
        ends = [found.get(name, ABSENT) for found in rounds]
        if FAILED not in ends and len(set(ends)) == 1:
            continue
        others = [f"{end} in round {number}" for number, end in enumerate(ends, 1) if end != PASSED]
        lines.append(f"{name}: passed {ends.count(PASSED)} of {len(ends)} ({', '.join(others)})")
    return lines


def run_round(build, number):
    report = build / f"flakes/round-{number}.xml"
    command = ["ctest", "--test-dir", str(build), "-j", str(cores() + 1), "--output-on-failure",
               "--no-tests=error", "--output-junit", str(report)]
    with open(build / f"flakes/round-{number}.log", "wb") as log:
        subprocess.run(command, stdout=log, stderr=subprocess.STDOUT, check=False)
    if not report.exists():
        sys.exit(f"flakes: ctest has failed, see {log.name}")
    return outcomes(report.read_text(errors="replace"))


def main(build, count):
    shutil.rmtree(build / "flakes", ignore_errors=True)
    (build / "flakes").mkdir()
    rounds = []
    with busy_machine():
        for number in range(1, count + 1):
            found = run_round(build, number)
            rounds.append(found)
            passed = list(found.values()).count(PASSED)
            print(f"round {number} of {count}: {passed} of {len(found)} tests passed", flush=True)
    lines = differences(rounds)
    print("\n".join(lines) or "Every test ended alike each time.")
    return 1 if lines else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), int(sys.argv[2])))
