"""The icon and its panel on the desktops that it lives on, for a person to look at.

usage: desktops.py PROGRAM FOLDER
The folder gets one picture of each. Ends with status 0 only if the panel opened on all of them.
"""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
for neighbour in ("Support", "World"):
    sys.path.append(str(HERE.parent / neighbour))

from person import Person  # noqa: E402
from processes import NotSeen  # noqa: E402
from virtual_desktop import VirtualDesktop  # noqa: E402
from wayland_desktop import WaylandDesktop  # noqa: E402
from world import World  # noqa: E402

PANEL = "Quorvel"
WEATHER = "Overcast"
SERVICES = ("org.xfce.Xfconf", "org.a11y.Bus")
TRAYS = {"trayer": VirtualDesktop, "xfce4-panel": VirtualDesktop, "swaybar": WaylandDesktop}


def picture_of(desktop, tray, program):
    desktop.start_tray(tray)
    process = desktop.start_program(program, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    desktop.click_icon()
    desktop.wait_for_focused_window(PANEL)
    person = Person(desktop, process)
    person.wait_for(WEATHER)
    person.close()
    return desktop.settled_picture()


def main():
    program, folder = (pathlib.Path(word).resolve() for word in sys.argv[1:])
    try:
        for tray, kind in TRAYS.items():
            with kind(services=SERVICES, pictures=folder) as desktop, World(desktop):
                picture_of(desktop, tray, program).write_png(folder / f"{tray}.png")
    except NotSeen as problem:
        sys.exit(f"desktops: {problem}")
    print(f"The panel under {', '.join(TRAYS)} is in {folder}")


if __name__ == "__main__":
    main()
