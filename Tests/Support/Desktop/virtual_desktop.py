"""A desktop in memory for driving the program as a person does: screen, bus, windows, tray."""

import os
import pathlib
import subprocess
import tempfile

import dbus
import dbus.bus

from fake_status_host import ITEM, FakeStatusHost
from patience import PATIENCE_SECONDS, NotSeen, wait_for, wait_for_rest
from picture import Box, FrameBuffer
from private_bus import services_folder, start_bus
from private_home import private_home
from processes import ProcessGroup
from tray_hosts import STARTERS

PYTHON = "/usr/bin/python3"
TRAY_HEIGHT = 26
BUS_NAME = "org.freedesktop.DBus"
BUS_PATH = "/org/freedesktop/DBus"
SESSION_BUS = "session-bus"
# After this many changes of the dot, a double click is over: a pulse takes longer than one.
CHANGES_BEYOND_A_DOUBLE_CLICK = 3
TYPING_MILLISECONDS = 25
# Function keys that no program uses.
SPARE_KEYS = [f"FK{number}" for number in range(13, 25)]
FOCUS_FOLLOWS_POINTER = """<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>yes</followMouse></focus>
</openbox_config>
"""
KEYMAP = """xkb_keymap {
    xkb_keycodes { include "evdev+aliases(qwerty)" };
    xkb_types { include "complete" };
    xkb_compat { include "complete" };
    xkb_symbols { include "pc+us+inet(evdev)" %s };
};
"""


def process_id(bus, name):
    """The process that owns the name on the bus, or None if it has just released the name."""
    try:
        return bus.call_blocking(
            BUS_NAME, "/", BUS_NAME, "GetConnectionUnixProcessID", "s", (name,)
        )
    except dbus.DBusException:
        return None


class VirtualDesktop:
    """A context manager. Nothing of the desktop outlives it, and it touches nothing outside.

    A call on its bus can start only the named services of the machine, so that a test sees the same
    desktop everywhere. If `pictures` is given, that folder gets a picture of each failure.
    """

    def __init__(self, width=1280, height=900, services=("org.xfce.Xfconf",), pictures=None,
                 focus_follows_pointer=False):
        self._size = (width, height)
        self._services = services
        self._pictures = pictures or os.environ.get("QUORVEL_PICTURES")
        self._focus_follows_pointer = focus_follows_pointer
        self._tray_height = 0
        self._program = None

    def __enter__(self):
        self._temporary = tempfile.TemporaryDirectory(prefix="quorvel-desktop-")
        self.folder = pathlib.Path(self._temporary.name)
        self._processes = ProcessGroup(self.folder)
        try:
            self._make_home()
            self._start_bus()
            self._start_screen()
            self._start_window_manager()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self._processes.end_all()
        self._temporary.cleanup()

    # Processes

    def start(self, name, command, environment=None, **options):
        return self._processes.start(
            name, command, {**self.environment, **(environment or {})}, **options
        )

    def start_announcing(self, name, command):
        """Starts a server. Returns the line that it writes once it can be reached."""
        return self._processes.start_announcing(name, command, self.environment)

    def process(self, name):
        return self._processes.named(name)

    def python(self, script, *arguments):
        return [PYTHON, str(script), *arguments]

    def start_program(self, path, *arguments, prefix=(), **environment):
        self._program = self.start("program", [*prefix, str(path), *arguments], environment)
        return self._program

    def run_program(self, path, *arguments):
        """Starts the program once more and waits for its end. Returns its status, or None if it
        hangs."""
        process = self.start("another-program", [str(path), *arguments])
        return process.status()

    def start_tray(self, kind, height=TRAY_HEIGHT, **options):
        """Puts a status area of that kind, one of `STARTERS`, along the upper edge."""
        self._tray_height = height
        self._tray = STARTERS[kind](self, height, **options)

    def wait_for_trayer(self):
        """Waits until the tray has made its window. The window may take the focus when it shows:
        sometimes that is at once, and sometimes with the first icon."""
        self.wait_until(
            lambda: self._ask("xdotool", "search", "--classname", "^panel$"), "trayer has a window"
        )

    def stop_tray(self):
        self._tray.end()

    def divide_screen(self, *names):
        """Divides the screen into monitors of equal width, named from the left."""
        width, height = self._size[0] // len(names), self._size[1]
        for index, name in enumerate(names):
            place = f"{width}/{width}x{height}/{height}+{index * width}+0"
            self._ask("xrandr", "--setmonitor", name, place, "none" if index else "screen")

    def remove_monitor(self, name):
        self._ask("xrandr", "--delmonitor", name)

    def start_fake_host(self, has_host=True):
        return FakeStatusHost(self, has_host)

    def add_service(self, name, text):
        """Adds a service file, so that a call to that name on the bus starts its program. Tells the
        bus the variables of this session, as a desktop does."""
        services_folder(self.folder, SESSION_BUS).joinpath(f"{name}.service").write_text(text)
        bus = dbus.bus.BusConnection(self.bus_address)
        environment = dbus.Dictionary(self._processes.marked(self.environment), signature="ss")
        bus.call_blocking(BUS_NAME, BUS_PATH, BUS_NAME, "ReloadConfig", "", ())
        bus.call_blocking(
            BUS_NAME, BUS_PATH, BUS_NAME, "UpdateActivationEnvironment", "a{ss}", (environment,)
        )
        bus.close()

    def is_reachable(self, program):
        """Whether the program owns its name on the bus, by which a second start finds it."""
        bus = dbus.bus.BusConnection(self.bus_address)
        names = [name for name in bus.list_names() if not name.startswith((":", ITEM))]
        pids = [process_id(bus, name) for name in names]
        bus.close()
        return program.pid in pids

    def wait_until_reachable(self, program):
        self.wait_until(lambda: self.is_reachable(program), "the program has its bus name")

    # Seeing

    def picture(self):
        return self._frame_buffer.picture()

    def settled_picture(self):
        """The screen, once the part below the tray no longer changes."""
        below = Box(0, self._tray_height, self._size[0], self._size[1] - self._tray_height)
        return wait_for_rest(self.picture, lambda picture: picture.crop(below))

    def tray_box(self):
        return Box(0, 0, self._size[0], self._tray_height)

    def icon(self):
        """The box of the status icon's dot on the screen, or None."""
        return self.picture().crop(self.tray_box()).dot()

    def on_screen(self, box):
        """The place in the picture of a window with that box."""
        return box

    def windows(self, title):
        """The boxes of the visible windows with that title, without the small windows of the
        tray."""
        found = self._ask("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()
        boxes = [self._window_box(window) for window in found]
        return [box for box in boxes if box and box.height > 2 * TRAY_HEIGHT]

    def window_properties(self, title, *names):
        """The properties of the visible window with that title, as xprop prints them."""
        window = self._ask("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()[-1]
        return self._ask("xprop", "-id", window, *names)

    # Acting

    def move_focused_window(self, left, top):
        self._ask("xdotool", "getactivewindow", "windowmove", "--sync", str(left), str(top))

    def click_icon(self):
        """Clicks just beside the icon's dot, so that the pointer does not cover the dot."""
        dot = self.wait_for_icon()
        x, y = dot.left + dot.width, dot.top + dot.height
        self._ask("xdotool", "mousemove", str(x), str(y), "click", "1")

    def point(self, x, y):
        """Moves the pointer there. The last step is a small one, as from a hand."""
        self._ask("xdotool", "mousemove", str(x - 1), str(y), "mousemove", str(x), str(y))

    def click(self, x, y):
        self._ask("xdotool", "mousemove", str(x), str(y), "click", "1")

    def turn_wheel(self, x, y, notches):
        """Turns the wheel over that point, downwards if `notches` is positive."""
        button = "5" if notches > 0 else "4"
        repeated = ["click", "--repeat", str(abs(notches)), "--delay", "20", button]
        self._ask("xdotool", "mousemove", str(x), str(y), *repeated)

    def press_key(self, *keys):
        self._ask("xdotool", "key", *keys)

    def add_letters(self, text):
        """Gives the keyboard keys for the letters that it lacks, at most one for each spare key.
        Has to be called before a program starts: a running program can miss a letter while it
        learns of a new key."""
        letters = sorted({letter for letter in text if not letter.isascii()})
        assert len(letters) <= len(SPARE_KEYS)
        keys = [f"key <{key}> {{ [ U{ord(letter):04X} ] }};"
                for key, letter in zip(SPARE_KEYS, letters)]
        keymap = self.folder / "keymap.xkb"
        keymap.write_text(KEYMAP % " ".join(keys))
        self._ask("xkbcomp", "-w0", str(keymap), self._display)

    def type_text(self, text):
        self._ask("xdotool", "type", "--delay", str(TYPING_MILLISECONDS), text)

    def let_double_click_time_pass(self):
        """Waits until the next click no longer counts as part of a double click."""
        for _ in range(CHANGES_BEYOND_A_DOUBLE_CLICK):
            height = self.wait_for_icon().height
            self.wait_for_dot(lambda dot: dot.height != height, "the dot changes its size")

    # Waiting

    def wait_until(self, condition, what):
        """Waits for the condition, and returns its first true value. A failure leaves a picture."""
        def come_or_over():
            value = condition()
            if not value and self._program and self._program.has_failed():
                raise NotSeen(f"the program failed before: {what}{self._evidence(what)}")
            return value

        return wait_for(come_or_over, what, lambda: self._evidence(what))

    def wait_for_dot(self, is_wanted, what):
        """Waits until the icon's dot is as wanted, and returns it. It may be covered or half
        painted before."""
        return self.wait_until(lambda: (dot := self.icon()) and is_wanted(dot) and dot, what)

    def wait_for_icon(self):
        return self.wait_until(self.icon, "the icon is in the tray")

    def wait_for_no_icon(self):
        self.wait_until(lambda: not self.icon(), "the icon is gone")

    def wait_for_window(self, title):
        return self.wait_until(lambda: self.windows(title), f"the window {title} opens")[0]

    def wait_for_focused_window(self, title):
        self.wait_until(lambda: self.has_focus(title), f"the window {title} has focus")

    def has_focus(self, title):
        return self._focused_title() == title

    def wait_for_no_window(self, title):
        self.wait_until(lambda: not self.windows(title), f"the window {title} closes")

    # Parts

    def _make_home(self):
        self.config_home = self.folder / "config"
        self.data_home = self.folder / "data"
        (self.folder / "screen").mkdir(mode=0o700)
        self.environment = {
            **private_home(self.folder),
            "XDG_SESSION_TYPE": "x11",
            "QT_QPA_PLATFORM": "xcb",
            "NO_AT_BRIDGE": "1",
        }

    def _start_bus(self):
        self.bus_address = start_bus(
            self._processes, SESSION_BUS, self.folder, self.environment, self._services
        )
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.bus_address

    def _start_screen(self):
        width, height = self._size
        # Without -noreset, the server restarts and refuses clients whenever its last client leaves.
        number = self._processes.start_announcing(
            "screen", lambda end: ["Xvfb", "-displayfd", str(end), "-noreset", "-nolisten", "tcp"]
            + ["-screen", "0", f"{width}x{height}x24", "-fbdir", str(self.folder / "screen")],
            self.environment,
        )
        self._display = self.environment["DISPLAY"] = f":{number}"
        self._frame_buffer = FrameBuffer(self.folder / "screen" / "Xvfb_screen0")

    def _start_window_manager(self):
        if self._focus_follows_pointer:
            settings = self.config_home / "openbox" / "rc.xml"
            settings.parent.mkdir()
            settings.write_text(FOCUS_FOLLOWS_POINTER)
        self.start("window-manager", ["openbox", "--sm-disable"])
        self.wait_until(
            lambda: "window id" in self._ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
            "the window manager is up",
        )

    def _ask(self, *command):
        finished = subprocess.run(
            command, env={**self.environment, "DISPLAY": self._display}, text=True,
            stdin=subprocess.DEVNULL, capture_output=True, timeout=PATIENCE_SECONDS, check=False,
        )
        return finished.stdout

    def _focused_title(self):
        return self._ask("xdotool", "getactivewindow", "getwindowname").strip()

    def _window_box(self, window):
        words = self._ask("xdotool", "getwindowgeometry", "--shell", window).split()
        values = dict(word.split("=") for word in words)
        keys = ("X", "Y", "WIDTH", "HEIGHT")
        return Box(*(int(values[key]) for key in keys)) if values else None

    def _evidence(self, what):
        logs = f"\n{self._processes.logs()}"
        if not self._pictures:
            return logs
        name = "".join(c if c.isalnum() else "-" for c in what)
        path = pathlib.Path(self._pictures) / f"{os.getpid()}-{name}.png"
        return f"\npicture: {self.picture().write_png(path)}{logs}"
