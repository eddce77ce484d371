"""A user of the panel, who reads the accessibility tree and has a pointer and keys."""

from accessible_program import AccessibleProgram

FORM = "Check-in form"
WHEEL_NOTCHES = 1
MOST_NOTCHES = 80


class Person:
    """Uses each control by its name, as soon as it shows."""

    def __init__(self, desktop, program):
        self._desktop = desktop
        self._program = AccessibleProgram(desktop.bus_address, program.pid)

    def close(self):
        self._program.close()

    def sees(self, name, role=None):
        return self._program.find(name, role) is not None

    def texts(self):
        return self._program.texts()

    def wait_for(self, name, role=None):
        """Waits until the control with that name shows, and returns it."""
        what = f"“{name}” is seen"
        return self._desktop.wait_until(lambda: self._program.find(name, role), what)

    def wait_until_gone(self, name):
        self._desktop.wait_until(lambda: not self.sees(name), f"“{name}” is no longer seen")

    def wait_for_description(self, name, description):
        what = f"“{name}” is “{description}”"
        self._desktop.wait_until(lambda: self._described(name) == description, what)

    def wait_for_words(self, name, words):
        """Waits until the description of the control with that name contains the words."""
        what = f"“{name}” is described with “{words}”"
        return self._desktop.wait_until(lambda: words in (self._described(name) or ""), what)

    def click(self, name, role=None, across=0.5):
        """Clicks at half the height of the control, and that far across its width."""
        left, top, width, height = self._brought_into_view(name, role)
        self._desktop.click(round(left + width * across), round(top + height / 2))

    def focus(self, name, role=None):
        """Presses Tab until the control has the focus."""
        self.wait_for(name, role)
        self._desktop.wait_until(lambda: self._step_towards(name, role), f"“{name}” is focused")

    def press(self, *keys):
        self._desktop.press_key(*keys)

    def type(self, text):
        self._desktop.type_text(text)

    def write(self, text, name, role="text"):
        """Types the text into a field, and waits until the field contains it."""
        self.click(name, role)
        self.type(text)
        what = f"“{name}” reads “{text}”"
        self._desktop.wait_until(lambda: self.wait_for(name, role).text() == text, what)

    def _described(self, name):
        control = self._program.find(name)
        return control and control.description

    def _step_towards(self, name, role):
        control = self._program.find(name, role)
        if control and "focused" in control.states:
            return True
        self._desktop.press_key("Tab")
        return False

    def _brought_into_view(self, name, role):
        """Turns the wheel until the control is between the form's edges. Returns the control's
        box."""
        for _ in range(MOST_NOTCHES):
            box = self.wait_for(name, role).box()
            notches = self._notches_to(box, name)
            if not notches:
                return box
            left, top, width, height = self._program.find(FORM).box()
            self._desktop.turn_wheel(left + width // 2, top + height // 2, notches)
            self._desktop.settled_picture()
        raise AssertionError(f"“{name}” cannot be brought into view")

    def _notches_to(self, box, name):
        form = self._program.find(FORM)
        if not form or not any(control.name == name for control in form.all()):
            return 0
        _, top, _, height = form.box()
        if box[1] < top:
            return -WHEEL_NOTCHES
        return WHEEL_NOTCHES if box[1] + box[3] > top + height else 0
