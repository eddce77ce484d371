"""A virtual desktop with a Wayland compositor, which draws on the X screen. So the pointer, the
keyboard and the pictures work as on every other desktop."""

import json
import os

from picture import Box
from virtual_desktop import TRAY_HEIGHT, VirtualDesktop

# Like this compositor's configuration for a new user, except that the bar starts only when a test
# asks for it.
CONFIGURATION = """xwayland disable
output * background #56646e solid_color
bar {{
  id bar-0
  position top
  height {height}
  swaybar_command true
  font DejaVu Sans 10
  tray_output *
  workspace_buttons no
  colors {{
    background #2b2b2b
  }}
}}
"""
OUTPUT = "output {name} mode --custom {width}x{height}@60Hz position {left} 0 scale {scale}\n"
# The compositor refuses to run for a user who could become root again.
NOBODY_IN_PARTICULAR = ["unshare", "--user", "--map-user=1000", "--map-group=1000"]


def all_nodes(node):
    yield node
    for child in node.get("nodes", []) + node.get("floating_nodes", []):
        yield from all_nodes(child)


def box_of(node):
    rectangle = node["rect"]
    return Box(*(rectangle[side] for side in ("x", "y", "width", "height")))


def right_of(box):
    return box.left + box.width


class WaylandDesktop(VirtualDesktop):
    """Has one output for each given scale, side by side, each of that size in pixels.

    The boxes of windows and outputs are in the compositor's own points.
    """

    def __init__(self, width=1280, height=900, scales=(1,), **options):
        super().__init__(width * len(scales), height, **options)
        self._output_width = width
        self._scales = scales

    # Seeing

    def windows(self, title):
        return [box_of(node) for node in self._nodes() if node["name"] == title]

    def outputs(self):
        """The boxes of the active outputs, from the left."""
        nodes = [node for node in self._nodes() if node["type"] == "output"]
        return sorted(box_of(node) for node in nodes if not node["name"].startswith("__"))

    def on_screen(self, box):
        number = next(n for n, output in enumerate(self.outputs()) if box.left < right_of(output))
        left = self.outputs()[number].left
        scale = self._scales[number]
        return Box(number * self._output_width + round((box.left - left) * scale),
                   round(box.top * scale), round(box.width * scale), round(box.height * scale))

    def tray_box(self):
        return Box(0, 0, self._output_width, round(self._tray_height * self._scales[0]))

    # Parts

    def _start_window_manager(self):
        backend = {"WLR_BACKENDS": "x11", "WLR_RENDERER": "pixman", "WLR_LIBINPUT_NO_DEVICES": "1",
                   "WLR_X11_OUTPUTS": str(len(self._scales))}
        configuration = self.folder / "compositor.conf"
        configuration.write_text(self._configuration())
        prefix = NOBODY_IN_PARTICULAR if os.geteuid() == 0 else []
        self.start("compositor", [*prefix, "sway", "--config", str(configuration)], backend)
        socket = self.wait_until(self._command_socket, "the compositor is up")
        self.environment |= {"SWAYSOCK": str(socket), "WAYLAND_DISPLAY": "wayland-1",
                             "XDG_SESSION_TYPE": "wayland", "QT_QPA_PLATFORM": "wayland"}
        # Programs of this desktop must not know the X server.
        del self.environment["DISPLAY"]
        self.wait_until(lambda: len(self.outputs()) == len(self._scales), "the outputs are on")
        self._lay_out_screen()

    def _configuration(self):
        left = 0
        lines = [CONFIGURATION.format(height=TRAY_HEIGHT)]
        for number, scale in enumerate(self._scales, 1):
            lines.append(OUTPUT.format(name=f"X11-{number}", width=self._output_width,
                                       height=self._size[1], left=left, scale=scale))
            left += round(self._output_width / scale)
        return "".join(lines)

    def _command_socket(self):
        return next((self.folder / "run").glob("sway-ipc.*.sock"), None)

    def _lay_out_screen(self):
        """Moves the outputs side by side. Each is a nameless window of the X screen, at first in
        its corner."""
        listed = self._ask("xwininfo", "-root", "-children").split()
        windows = sorted({int(word, 16) for word in listed if word.startswith("0x")})
        for index, window in enumerate(windows[-len(self._scales):]):
            self._ask("xdotool", "windowmove", str(window), str(index * self._output_width), "0")

    def _nodes(self):
        tree = self._ask("swaymsg", "--raw", "--type", "get_tree")
        return all_nodes(json.loads(tree)) if tree else iter(())

    def _focused_title(self):
        return next((node["name"] for node in self._nodes() if node["focused"]), None)
