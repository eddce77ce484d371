"""Takes pictures of the icon and its panel on several desktops, for a person to look at.

usage: desktops.py PROGRAM FOLDER [DOCUMENTS]
FOLDER gets one picture of each desktop. DOCUMENTS gets the part around the panel of the desktop
whose panel hangs under its icon. Ends with status 0 only if the panel opened on all of them.
"""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
for neighbour in ("Support/Desktop", "Support/Session", "World"):
    sys.path.append(str(HERE.parent / neighbour))

from patience import NotSeen  # noqa: E402
from person import Person  # noqa: E402
from picture import Box  # noqa: E402
from virtual_desktop import VirtualDesktop  # noqa: E402
from wayland_desktop import WaylandDesktop  # noqa: E402
from world import World  # noqa: E402

PANEL = "Quorvel"
WEATHER = "Overcast"
SERVICES = ("org.xfce.Xfconf", "org.a11y.Bus")
TRAYS = {"trayer": VirtualDesktop, "xfce4-panel": VirtualDesktop, "swaybar": WaylandDesktop}
ILLUSTRATED = "xfce4-panel"
BACKDROP = "#56646e"
MARGIN = 24


def picture_of(desktop, tray, program):
    if not isinstance(desktop, WaylandDesktop):
        desktop.start("backdrop", ["xsetroot", "-solid", BACKDROP])
    desktop.start_tray(tray)
    process = desktop.start_program(program, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    desktop.click_icon()
    desktop.wait_for_focused_window(PANEL)
    person = Person(desktop, process)
    person.wait_for(WEATHER)
    person.close()
    return desktop.settled_picture()


def around_panel(desktop, picture):
    """The icon, the panel under it, and a little of the screen."""
    panel = desktop.windows(PANEL)[0]
    left = panel.left - MARGIN
    return picture.crop(Box(left, 0, picture.width - left, panel.top + panel.height + MARGIN))


def main():
    program, folder, *documents = (pathlib.Path(word).resolve() for word in sys.argv[1:])
    try:
        for tray, kind in TRAYS.items():
            with kind(services=SERVICES, pictures=folder) as desktop, World(desktop):
                picture = picture_of(desktop, tray, program)
                picture.write_png(folder / f"{tray}.png")
                if documents and tray == ILLUSTRATED:
                    around_panel(desktop, picture).write_png(documents[0] / "tour-panel.png")
    except NotSeen as problem:
        sys.exit(f"desktops: {problem}")
    print(f"The panel under {', '.join(TRAYS)} is in {folder}")


if __name__ == "__main__":
    main()
