"""A visit from the first click to the stored check-in, with the shipped program.

usage: tour.py PROGRAM FOLDER
A user clicks, types and reads on a virtual desktop in the district of cafés. FOLDER gets a numbered
picture of each step and a transcript. Ends with status 0 only if all was as expected.
"""

import pathlib
import sqlite3
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
for neighbour in ("Support/Desktop", "Support/Session", "World"):
    sys.path.append(str(HERE.parent / neighbour))

from patience import PATIENCE_SECONDS, NotSeen  # noqa: E402
from person import Person  # noqa: E402
from virtual_desktop import VirtualDesktop  # noqa: E402
from world import World  # noqa: E402

PANEL = "Quorvel"
HISTORY = "Check-ins — Quorvel"
WAITING = "Đang định vị quán cafe…"
NEAREST = "Cà phê Gió Sông"
CHOSEN = "Sân Trong – Cà phê & Sách"
NETWORK = "Cà phê Gió Sông 5G"
PASSWORD = "ca phe sua da 35k"
CODE = f"WIFI:T:WPA;S:{NETWORK};P:{PASSWORD};;"
NOTE = "Yên tĩnh, ổ cắm đầy đủ – sẽ quay lại."
KEYCHAIN_SERVICE = "com.zantho.quorvel.wifi"
REFUSAL = "Already checked in today at this café."
SERVICES = ("org.xfce.Xfconf", "org.a11y.Bus")


class Tour:
    """The steps in their order. Each has a title and leaves a picture."""

    def __init__(self, desktop, world, program, folder):
        self._desktop = desktop
        self._world = world
        self._program = program
        self._folder = folder
        self._number = 0
        self._person = None

    def take(self):
        self._step("The icon is in the tray", self._start)
        self._step("A click opens the panel, which looks for the café", self._open)
        self._step("The café, its weather and the Wi-Fi are there", self._read)
        self._step("There are other cafés nearby", self._list_cafes)
        self._step("Another café is chosen", self._choose)
        self._step("The visit is scored with pointer and keys", self._rate)
        self._step("A note is typed", self._write)
        self._step("The password of the Wi-Fi is kept", self._keep_password)
        self._step("The visit is checked in", self._check_in)
        self._step("Escape closes the panel", self._close)
        self._step("Opened again, it knows of today's visit", self._open_again)
        self._step("A second check-in is refused", self._refused)
        self._step("The history lists the visit", self._list_visits)
        self._step("A click on the visit opens its card", self._open_visit)
        self._step("A camera joins the Wi-Fi by the card", self._scan)
        self._step("A press on Share copies the card", self._share)
        self._step("Another program pastes it, code and all", self._paste)
        self._step("The way back leads to the list", self._go_back)
        self._step("A visit somewhere else comes into the list by itself", self._check_in_elsewhere)
        self._step("Store and keychain hold what was typed, once", self._look_behind)
        self._person.close()

    def _step(self, title, action):
        self._number += 1
        print(f"{self._number:2}. {title}", flush=True)
        # A step that shows something only for a moment cannot wait for rest: it returns its own
        # picture.
        picture = action() or self._desktop.settled_picture()
        picture.write_png(self._folder / f"{self._number:02}.png")
        with open(self._folder / "transcript.txt", "a", encoding="utf-8") as transcript:
            transcript.write(f"{self._number}. {title}\n")
            if self._person:
                transcript.writelines(f"   {text}\n" for text in self._person.texts())

    # The steps

    def _start(self):
        self._desktop.start_tray("xfce4-panel")
        self._world.location.slow(PATIENCE_SECONDS)
        self._desktop.add_letters(NOTE)
        self._process = self._desktop.start_program(
            self._program, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1"
        )
        self._desktop.wait_for_icon()

    def _open(self):
        self._desktop.click_icon()
        self._desktop.wait_for_focused_window(PANEL)
        self._person = Person(self._desktop, self._process)
        self._person.wait_for(WAITING)
        return self._desktop.picture()

    def _read(self):
        self._world.location.recover()
        for text in (NEAREST, "31°", "Feels 36°", "Overcast"):
            self._person.wait_for(text)
        self._person.wait_until_gone(WAITING)
        self._person.wait_for(NETWORK)

    def _list_cafes(self):
        self._person.click("Change")
        self._person.wait_for("Choose a café")
        self._person.wait_for(CHOSEN)

    def _choose(self):
        self._person.click(CHOSEN)
        self._person.wait_until_gone("Choose a café")
        self._person.wait_for(CHOSEN)

    def _rate(self):
        last_star, second_star = 0.9, 0.3
        self._person.click("WiFi speed", across=last_star)
        self._person.wait_for_description("WiFi speed", "5 of 5")
        self._person.click("Noise level", across=second_star)
        self._person.wait_for_description("Noise level", "2 of 5")
        self._person.focus("Quiet for calls")
        self._person.press("Right")
        self._person.wait_for_description("Quiet for calls", "4 of 5")

    def _write(self):
        self._person.write(NOTE, "Note")

    def _keep_password(self):
        self._person.click("WiFi password")
        self._person.type(PASSWORD)
        self._person.click("Save")
        self._person.wait_for("Copy")

    def _check_in(self):
        self._person.click("Check In")
        self._person.wait_for("Checked in!")
        self._person.wait_for(REFUSAL)

    def _close(self):
        self._person.press("Escape")
        self._desktop.wait_for_no_window(PANEL)

    def _open_again(self):
        self._desktop.let_double_click_time_pass()
        self._desktop.click_icon()
        self._desktop.wait_for_focused_window(PANEL)
        self._person.wait_for(REFUSAL)
        self._person.wait_for(CHOSEN)

    def _refused(self):
        self._person.click("Check In")
        self._expect("visits", len(self._visits()), 1)

    def _list_visits(self):
        self._person.click("Check-ins")
        self._desktop.wait_for_focused_window(HISTORY)
        for text in ("Your check-ins", "1 visits · 1 cafés this week", "TODAY", CHOSEN):
            self._person.wait_for(text)
        self._person.wait_for_words(CHOSEN, f"31°, {NOTE}")

    def _open_visit(self):
        self._person.click(CHOSEN)
        for text in (CHOSEN, "31°", "Checked in", "WiFi speed 5 of 5", "Calls 4 of 5", NOTE,
                     "Scan to join wifi", NETWORK, "Logged with Quorvel", "Share"):
            self._person.wait_for(text)
        self._person.wait_until_gone("Your check-ins")

    def _scan(self):
        self._person.press("Next")
        picture = self._desktop.settled_picture()
        shot = self._folder / "scanned.png"
        picture.write_png(shot)
        self._expect("the code", self._read_code(shot), CODE)
        shot.unlink()
        return picture

    def _share(self):
        self._person.click("Share")
        self._person.wait_for("Copied!")
        picture = self._desktop.picture()
        self._person.wait_for("Share")
        return picture

    def _paste(self):
        pasted = self._folder / "pasted.png"
        with open(pasted, "wb") as file:
            command = ["xclip", "-selection", "clipboard", "-t", "image/png", "-o"]
            subprocess.run(command, env=self._desktop.environment, stdout=file,
                           timeout=PATIENCE_SECONDS, check=True)
        self._expect("the pasted code", self._read_code(pasted), CODE)

    def _go_back(self):
        self._person.click("Check-ins")
        self._person.wait_for("Your check-ins")
        self._person.wait_for_words(CHOSEN, NOTE)

    def _check_in_elsewhere(self):
        self._desktop.click_icon()
        self._desktop.wait_for_focused_window(PANEL)
        self._person.wait_for(REFUSAL)
        self._person.click("Change")
        self._person.wait_for("Choose a café")
        self._person.click(NEAREST)
        self._person.wait_until_gone("Choose a café")
        self._person.click("Check In")
        self._person.wait_for("Checked in!")
        self._person.wait_for("2 visits · 2 cafés this week")

    def _look_behind(self):
        visit, other = self._visits()
        self._expect("the other visit", other["name"], NEAREST)
        expected = {"name": CHOSEN, "lastKnownSSID": NETWORK, "note": NOTE, "wifiSpeed": 5,
                    "outlets": 3, "noise": 2, "quietForCalls": 4}
        self._expect("the visit", {key: visit[key] for key in expected}, expected)
        self._expect("the password", self._kept_password(), PASSWORD)
        self._process.terminate()
        if self._process.status() != 0:
            raise NotSeen(f"the program did not end well\n{self._process.output()}")

    # Checks of what the program does not show

    def _visits(self):
        store = self._desktop.data_home / "Quorvel" / "Quorvel.store"
        connection = sqlite3.connect(f"file:{store}?mode=ro", uri=True)
        connection.row_factory = sqlite3.Row
        visits = connection.execute(
            'SELECT * FROM CheckIn JOIN Cafe ON CheckIn.cafe = Cafe.pk ORDER BY date'
        ).fetchall()
        connection.close()
        return visits

    def _read_code(self, picture):
        command = ["zbarimg", "--raw", "--quiet", "--nodbus", "-Sbinary", "--oneshot", picture]
        read = subprocess.run(command, capture_output=True, timeout=PATIENCE_SECONDS, check=False)
        return read.stdout.decode().strip()

    def _kept_password(self):
        command = ["secret-tool", "lookup", "service", KEYCHAIN_SERVICE, "account", NETWORK]
        return subprocess.run(
            command, env=self._world.environment, capture_output=True, text=True,
            timeout=PATIENCE_SECONDS, check=True,
        ).stdout

    def _expect(self, what, found, expected):
        if found != expected:
            raise NotSeen(f"{what}: {found!r}, not {expected!r}")


def main():
    program, folder = (pathlib.Path(word).resolve() for word in sys.argv[1:])
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "transcript.txt").unlink(missing_ok=True)
    try:
        with VirtualDesktop(services=SERVICES, pictures=folder) as desktop:
            with World(desktop) as world:
                Tour(desktop, world, program, folder).take()
    except NotSeen as problem:
        sys.exit(f"tour: {problem}")
    print(f"The pictures and the transcript are in {folder}")


if __name__ == "__main__":
    main()
