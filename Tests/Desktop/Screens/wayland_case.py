"""The base of the tests under a Wayland compositor."""

from desktop_case import PANEL, DesktopCase
from wayland_desktop import WaylandDesktop


class WaylandCase(DesktopCase):
    def make_desktop(self):
        return WaylandDesktop()

    def open_panel(self):
        self.desktop.click_icon()
        self.desktop.wait_for_focused_window(PANEL)
        return self.desktop.windows(PANEL)[0]
