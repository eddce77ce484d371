"""Shows the program to somebody without a display: a virtual desktop, a click, two pictures.

usage: show_program.py [--world] PROGRAM PICTURES [ARGUMENT ...]
With --world the desktop stands in a district of cafés, with all that the program senses by.
Ends with status 0 only if the icon appeared and a click on it opened the panel.
"""

import contextlib
import pathlib
import sys

from virtual_desktop import NotSeen, VirtualDesktop

PANEL = "Quorvel"
WORLD = pathlib.Path(__file__).resolve().parent.parent / "World"


def district_around(desktop):
    sys.path.append(str(WORLD))
    from world import World

    return World(desktop)


def show(program, pictures, arguments, surroundings):
    with VirtualDesktop(pictures=pictures) as desktop, surroundings(desktop):
        desktop.start_tray("xfce4-panel")
        process = desktop.start_program(program, *arguments)
        desktop.wait_until(
            lambda: desktop.icon() or not process.is_running(), "the icon is in the tray"
        )
        if not process.is_running():
            raise NotSeen(f"the program ended instead of showing its icon\n{process.output()}")
        print("The icon:", desktop.picture().write_png(pictures / "1-icon.png"))
        desktop.click_icon()
        desktop.wait_for_focused_window(PANEL)
        print("The panel:", desktop.settled_picture().write_png(pictures / "2-panel.png"))
        process.terminate()
        if process.status_within(seconds=5) != 0:
            raise NotSeen(f"the program did not end when asked to\n{process.output()}")


def main():
    words = sys.argv[1:]
    surroundings = contextlib.nullcontext
    if words[0] == "--world":
        surroundings = district_around
        del words[0]
    program, pictures, *arguments = words
    print("There is no display here: starting a virtual one, with a panel that has a tray.")
    try:
        show(pathlib.Path(program).resolve(), pathlib.Path(pictures), arguments, surroundings)
    except NotSeen as problem:
        sys.exit(f"./dev run: {problem}")


if __name__ == "__main__":
    main()
