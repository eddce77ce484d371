"""Measures the program beside a minimal Qt tray program: start to icon, memory and an idle minute.

usage: tray_benchmark.py BUILD [--rounds N] [--idle-seconds N]
Both run in turns on the same kind of virtual desktop. Only the ratios within one run count.
"""

import argparse
import pathlib
import statistics
import time

import dbus
import dbus.bus

from fake_status_watcher import NAME, PATH
from virtual_desktop import VirtualDesktop

ICON_SECONDS = 15
# A small screen is quick to read, so that reading it does not slow the measured program down.
SCREEN = (400, 100)
START_AIM = 1.3
MEMORY_AIM_MB = 6
ANONYMOUS_AIM_MB = 5
PROCESSOR_AIM_MS = 25
WAKE_UPS_AIM = 5
CACHES = pathlib.Path("/proc/sys/vm/drop_caches")


def forget_files():
    """Makes the kernel read every file anew. Returns False if this user may not ask for that."""
    try:
        CACHES.write_text("3")
    except OSError:
        return False
    return True


def has_notifier_host(desktop):
    bus = dbus.bus.BusConnection(desktop.bus_address)
    try:
        return bus.call_blocking(NAME, PATH, dbus.PROPERTIES_IFACE, "Get", "ss",
                                 (NAME, "IsStatusNotifierHostRegistered"))
    except dbus.DBusException:
        return False
    finally:
        bus.close()


def start_tray(desktop, tray):
    """Starts the tray. Waits until xfce4-panel is a notifier host: a program that looks for a host
    only once would otherwise use the panel's XEmbed tray, which gives another figure."""
    desktop.start_tray(tray)
    if tray == "xfce4-panel":
        desktop.wait_until(lambda: has_notifier_host(desktop), "the panel is a notifier host")


def milliseconds_to_icon(desktop, program, cold):
    if cold:
        forget_files()
    started = time.monotonic()
    process = desktop.start("measured", [str(program)])
    while not desktop.icon():
        if time.monotonic() - started > ICON_SECONDS:
            raise SystemExit(f"{program} shows no icon\n{process.output()}")
    elapsed = (time.monotonic() - started) * 1000
    process.end()
    desktop.wait_for_no_icon()
    return elapsed


def start_times(desktop, programs, rounds, cold):
    """The median start time of each program. The programs take turns."""
    times = {name: [] for name in programs}
    for _ in range(rounds):
        for name, program in programs.items():
            times[name].append(milliseconds_to_icon(desktop, program, cold))
    return {name: statistics.median(values) for name, values in times.items()}


def memory_mb(pid):
    """The proportional set size and the private anonymous memory, in MB."""
    fields = {}
    for line in pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()[1:]:
        name, _, value = line.partition(":")
        fields[name] = int(value.split()[0]) / 1024
    return fields["Pss"], fields["Anonymous"]


def processor_ms_and_wake_ups(pid):
    """The processor time and the wake-ups of all threads of the process so far."""
    nanoseconds = wake_ups = 0
    for task in pathlib.Path(f"/proc/{pid}/task").iterdir():
        nanoseconds += int((task / "schedstat").read_text().split()[0])
        for line in (task / "status").read_text().splitlines():
            if line.startswith("voluntary_ctxt_switches"):
                wake_ups += int(line.split()[1])
    return nanoseconds / 1e6, wake_ups


def idle_figures(program, tray, seconds):
    """The memory (PSS and anonymous, in MB), the processor ms a minute and the wake-ups a second of
    an idle program."""
    with VirtualDesktop(*SCREEN) as desktop:
        start_tray(desktop, tray)
        process = desktop.start("measured", [str(program)])
        desktop.wait_for_icon()
        time.sleep(2)
        processor, wake_ups = processor_ms_and_wake_ups(process.pid)
        time.sleep(seconds)
        later_processor, later_wake_ups = processor_ms_and_wake_ups(process.pid)
        per_minute = (later_processor - processor) * 60 / seconds
        return *memory_mb(process.pid), per_minute, (later_wake_ups - wake_ups) / seconds


def row(what, ours, bare, unit, aim):
    print(f"{what:<44} {ours:>8.1f} {bare:>8.1f} {unit:<5} {ours / bare:>5.2f}  {aim}")


def compare_starts(programs, rounds):
    for tray in ("trayer", "xfce4-panel"):
        with VirtualDesktop(*SCREEN) as desktop:
            start_tray(desktop, tray)
            start_times(desktop, programs, 1, cold=False)
            warm = start_times(desktop, programs, rounds, cold=False)
            row(f"start to icon, warm, {tray}", *warm.values(), "ms", f"<= {START_AIM} x")
    with VirtualDesktop(*SCREEN) as desktop:
        start_tray(desktop, "trayer")
        if forget_files():
            cold = start_times(desktop, programs, rounds, cold=True)
            row("start to icon, cold, trayer", *cold.values(), "ms", f"<= {START_AIM} x")


def compare_idle(programs, seconds):
    for tray in ("trayer", "xfce4-panel"):
        ours, bare = (idle_figures(program, tray, seconds) for program in programs.values())
        row(f"memory (PSS), {tray}", ours[0], bare[0], "MB", f"<= bare + {MEMORY_AIM_MB}")
        row(f"private anonymous memory, {tray}", ours[1], bare[1], "MB", f"<= {ANONYMOUS_AIM_MB}")
        row(f"processor, idle minute, {tray}", ours[2], bare[2], "ms", f"<= {PROCESSOR_AIM_MS}")
        row(f"wake-ups a second, {tray}", ours[3], bare[3], "", f"<= {WAKE_UPS_AIM}")


def show_panel_opening(program):
    """Prints the figures that the panel's program measures."""
    with VirtualDesktop() as desktop:
        process = desktop.start("panel", [str(program)])
        if process.status() != 0:
            raise SystemExit(f"{program} failed\n{process.output()}")
        print(process.output().strip())


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--rounds", type=int, default=9)
    parser.add_argument("--idle-seconds", type=int, default=60)
    options = parser.parse_args()
    build = options.build.resolve()
    programs = {"quorvel": build / "bin/quorvel", "bare": build / "benchmarks/parts/bare_tray"}
    print(f"{'':<44} {'quorvel':>8} {'bare':>8} {'':<5} {'ratio':>5}  aim")
    compare_starts(programs, options.rounds)
    compare_idle(programs, options.idle_seconds)
    show_panel_opening(build / "benchmarks/parts/panel_opening")


if __name__ == "__main__":
    main()
