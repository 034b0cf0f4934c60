"""The real program on a separate screen: found by what it says to assistive technology, driven by mouse and keyboard.

Nothing waits for a fixed time: each step waits until what it needs is on the screen, and a step whose window or control
does not come ends the run with its name.
"""

import os
import re
import signal
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402
from PIL import ImageChops, ImageGrab  # noqa: E402

PATIENCE = 30  # seconds
CARET = 3  # pixels: the width of what blinks
# Their cells are asked for one by one.
TABLES = ("table", "tree table", "tree")
CONTROLS = ("check box", "combo box", "page tab", "push button", "radio button", "spin button", "text")


class Missing(Exception):
    """What the picture needs did not come."""


def until(what, condition, patience=PATIENCE):
    """The first true answer of the condition."""
    end = time.monotonic() + patience
    while True:
        try:
            answer = condition()
        except GLib.Error:  # what was asked has just closed
            answer = None
        if answer:
            return answer
        if time.monotonic() > end:
            raise Missing(what)
        time.sleep(0.05)


def children(node):
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is not None:
            yield child


def showing(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def active(node):
    return node.get_state_set().contains(Atspi.StateType.ACTIVE)


def enabled(node):
    return node.get_state_set().contains(Atspi.StateType.ENABLED)


def descendants(node):
    """All that is shown below a node, what is nearer first; without the cells of tables."""
    level = [node]
    while level:
        below = []
        for each in level:
            if each.get_role_name() in TABLES:
                continue
            for child in children(each):
                yield child
                below.append(child)
        level = below


def rectangle(node):
    """Left, top, right, bottom on the screen."""
    at = node.get_extents(Atspi.CoordType.SCREEN)
    return at.x, at.y, at.x + at.width, at.y + at.height


def seen_part(node, top):
    """What the controls around it leave of a control's rectangle; none where it is scrolled away."""
    left, top_edge, right, bottom = rectangle(node)
    while node != top:
        node = node.get_parent()
        outer = rectangle(node)
        left, top_edge = max(left, outer[0]), max(top_edge, outer[1])
        right, bottom = min(right, outer[2]), min(bottom, outer[3])
        if left >= right or top_edge >= bottom:
            return None
    return left, top_edge, right, bottom


def around(*rectangles):
    return (min(r[0] for r in rectangles), min(r[1] for r in rectangles),
            max(r[2] for r in rectangles), max(r[3] for r in rectangles))


def overlap(one, other):
    return one[0] < other[2] and other[0] < one[2] and one[1] < other[3] and other[1] < one[3]


def screen():
    return ImageGrab.grab(xdisplay=os.environ["DISPLAY"])


def same(before, now):
    """But for the caret."""
    if before.tobytes() == now.tobytes():
        return True
    changed = ImageChops.difference(before.convert("RGB"), now.convert("RGB")).getbbox()
    return changed is None or changed[2] - changed[0] <= CARET


class Program:
    def __init__(self, command, environment):
        self.process = subprocess.Popen(command, env=environment, stderr=subprocess.DEVNULL)
        try:
            self.application = until("the program", self._application)
        except Missing:
            self.stop()
            raise
        self.seen = None  # the controls on the screen, until something happens
        # Always as it is now.
        self.application.set_cache_mask(Atspi.Cache.NONE)

    def _application(self):
        """Until it is there; a program that cannot start says so."""
        if self.process.poll() is not None:
            raise Missing(f"the program, which ended with {self.process.returncode}")
        for child in children(Atspi.get_desktop(0)):
            if child.get_process_id() == self.process.pid:
                return child
        return None

    def stop(self):
        self.process.send_signal(signal.SIGTERM)
        try:
            self.process.wait(5)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()

    def windows(self):
        return [child for child in children(self.application) if showing(child)]

    def window(self, title):
        """The window whose title begins so, with the keyboard: no window manager gives it."""

        def found():
            for each in self.windows():
                if each.get_name().startswith(title):
                    if active(each):
                        return each
                    self._give_keyboard(each.get_name())
            return None

        window = until(f"the window {title}", found)
        self.settle()
        return window

    def resize(self, window, width, height):
        """A window in the corner of the screen, of that size."""
        number = self._windows_of(window.get_name())[-1]
        xdotool("windowmove", number, "0", "0")
        xdotool("windowsize", number, str(width), str(height))
        until(f"the size of {window.get_name()}", lambda: rectangle(window) == (0, 0, width, height))
        self.settle()

    def _windows_of(self, title):
        return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$"],
                              capture_output=True, text=True).stdout.split()

    def _give_keyboard(self, title):
        shown = self._windows_of(title)
        if shown:
            xdotool("windowfocus", shown[-1])
            time.sleep(0.1)

    def find(self, name, role=None, inside=None, number=0):
        """The control of that name, in any window, the newest first; several of a name are counted from 0."""

        def matches(seen):
            node, its_name, its_role, top = seen
            return ((name is None or its_name == name) and (role is None or its_role == role)
                    and (inside is None or top == inside))

        def found():
            matching = [seen[0] for seen in self._all() if matches(seen)]
            if number < len(matching):
                return matching[number]
            self.seen = None
            return None

        return until(f"the control {name or role}", found)

    def controls(self):
        """The rectangles of what is typed into or clicked, as far as it is seen: not scrolled away, not covered."""
        found, above = [], []
        for node, _, role, top in self._all():
            if not above or above[-1][0] != top:
                above.append((top, rectangle(top)))
            if role not in CONTROLS:
                continue
            here = seen_part(node, top)
            if here is not None and not any(overlap(here, window) for _, window in above[:-1]):
                found.append(here)
        return found

    def beginning(self, text, role="label"):
        """The control whose name begins so."""
        return until(f"the control {text}", lambda: next(
            (each for each, name, its_role, _ in self._all() if its_role == role and name.startswith(text)), None))

    def _all(self):
        if self.seen is None:
            self.seen = [(each, each.get_name(), each.get_role_name(), top) for top in reversed(self.windows())
                         for each in descendants(top) if showing(each)]
        return self.seen

    def cell(self, table, row, column):
        return table.get_table_iface().get_accessible_at(row, column)

    def settle(self):
        """Until the screen is still, but for the caret that blinks."""
        self.seen = None
        end = time.monotonic() + PATIENCE
        before = screen()
        still = 0
        while still < 2:
            time.sleep(0.15)
            now = screen()
            still = still + 1 if same(before, now) else 0
            before = now
            if time.monotonic() > end:
                raise Missing("a still screen")

    def click(self, where, button=1, repeat=1):
        """In the middle of a control or a rectangle."""
        left, top, right, bottom = where if isinstance(where, tuple) else rectangle(where)
        xdotool("mousemove", str((left + right) // 2), str((top + bottom) // 2))
        xdotool("click", "--repeat", str(repeat), "--delay", "60", str(button))
        self.settle()

    def press(self, name, role="push button", **where):
        """A button, as soon as it is enabled."""
        button = self.find(name, role, **where)
        until(f"{name} enabled", lambda: enabled(button))
        self.click(button)

    def choose(self, name, entry):
        """An entry of a button's menu, which begins with the first one; menus are not told to assistive technology."""
        self.press(name)
        self.keys(*["Down"] * (entry - 1), "Return")

    def focus(self, node):
        until(f"the focus on {node.get_name()}", lambda: node.get_component_iface().grab_focus()
              or node.get_state_set().contains(Atspi.StateType.FOCUSED))
        self.settle()

    def keys(self, *names):
        for name in names:
            xdotool("key", name)
            self.settle()

    def write(self, text):
        xdotool("type", "--delay", "25", text)
        self.settle()


def xdotool(*arguments):
    subprocess.run(["xdotool", *arguments], check=True)


def tree(node, depth=0, most=9):
    """What a control contains, as text: for writing scenes."""
    lines = []
    for child in children(node):
        if not showing(child) and child.get_role_name() != "list":
            continue
        lines.append("  " * depth + f"{child.get_role_name()} {child.get_name()!r} {rectangle(child)}")
        if child.get_role_name() not in TABLES and depth < most:
            lines += tree(child, depth + 1, most)
    return lines
