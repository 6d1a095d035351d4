"""A screen, the program on it, a mouse and a keyboard."""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

# Seconds for anything to come about; a program that a sanitizer watches takes several times as long.
PATIENCE = 20.0 * float(os.environ.get("JOURNEY_PATIENCE", "1"))


class Failure(Exception):
    pass


def expect(condition, what):
    if not condition:
        raise Failure(what)


def wait_for(condition, what):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.02)
    raise Failure(f"waited in vain for {what}")


def take(journey):
    """Takes a journey(desk, corvane) with the program and the folder for pictures that the script was told."""
    corvane, pictures = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    with Desk(pictures) as desk:
        try:
            journey(desk, corvane)
        except Failure as failure:
            desk.picture("failure")
            print(f"FAILED: {failure}")
            return 1
    return 0


class Desk:
    """A screen with a window manager, gone at the end with all that runs on it."""

    def __init__(self, pictures):
        self.pictures = pictures
        os.makedirs(pictures, exist_ok=True)
        self.home = tempfile.mkdtemp(prefix="corvane-journey-")
        self.map_path = os.path.join(self.home, "map")
        self.env = self._environment()
        self.running = []

    def _environment(self):
        kept = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "QT_", "CORVANE_"))}
        for name in ("config", "state", "cache", "data", "runtime"):
            os.mkdir(os.path.join(self.home, name), 0o700)
            key = "XDG_RUNTIME_DIR" if name == "runtime" else f"XDG_{name.upper()}_HOME"
            kept[key] = os.path.join(self.home, name)
        kept.update(HOME=self.home, LC_ALL="C.UTF-8", CORVANE_AUDIO="none", CORVANE_UI_MAP=self.map_path,
                    JACK_NO_START_SERVER="1")
        return kept

    def __enter__(self):
        read, write = os.pipe()
        self.spawn(["Xvfb", "-displayfd", str(write), "-screen", "0", "1400x1000x24", "-nolisten", "tcp"],
                    pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as pipe:
            self.env["DISPLAY"] = ":" + pipe.readline().strip()
        ready = self.path("ready")  # a window that comes before it may be left without the keyboard
        self.spawn(["openbox", "--startup", f"touch {ready}"])
        wait_for(lambda: os.path.exists(ready), "the window manager")
        return self

    def __exit__(self, *_):
        for process in reversed(self.running):
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        shutil.rmtree(self.home, ignore_errors=True)

    def spawn(self, command, into=os.devnull, **more):
        with open(into, "wb") as out:
            process = subprocess.Popen(command, env=self.env, cwd=self.home, stdin=subprocess.DEVNULL, stdout=out,
                                       stderr=subprocess.DEVNULL, **more)
        self.running.append(process)
        return process

    def run(self, *command):
        return subprocess.run(command, env=self.env, capture_output=True, text=True, check=False).stdout

    def path(self, name):
        return os.path.join(self.home, name)

    # ---- the program

    def start(self, program, *arguments):
        """Starts the program; returns it and the milliseconds until its first score was painted."""
        if os.path.exists(self.map_path):
            os.remove(self.map_path)
        begin = time.time() * 1000
        process = self.spawn([program, *arguments])
        painted = wait_for(lambda: self.words("painted"), "the first paint")
        self.focus()
        return process, int(painted[0][0]) - begin

    def gone(self, process):
        wait_for(lambda: process.poll() is not None, "the program's end")

    def quit(self, process):
        """Leaves the program by its key; whatever it asks first is not answered."""
        self.key("ctrl+q")
        self.gone(process)

    def focus(self):
        """Waits until the program's window has the keyboard."""
        wait_for(lambda: "Corvane" in self.run("xdotool", "getactivewindow", "getwindowname"), "the window")

    def active_window(self):
        return self.run("xdotool", "getactivewindow", "getwindowname").strip()

    # ---- the map of the window

    def words(self, kind):
        """The lines of the map that begin with a word, each split into its further words."""
        try:
            with open(self.map_path, encoding="utf-8") as file:
                return [line.split()[1:] for line in file if line.startswith(kind + " ")]
        except FileNotFoundError:
            return []

    def title(self):
        return " ".join(self.words("title")[0])

    def area(self, name):
        """x, y, width and height of a named part of the window."""
        for *numbers, found in ((*line[:4], " ".join(line[4:])) for line in self.words("widget")):
            if found == name:
                return tuple(int(n) for n in numbers)
        raise Failure(f'the window has no "{name}"')

    def widget(self, name):
        """The middle of a named part of the window."""
        x, y, width, height = self.area(name)
        return x + width // 2, y + height // 2

    def settled(self):
        """Lets the program come to rest, so that the map tells where things are now."""
        before = None
        while before != (now := self.words("")):
            before = now
            time.sleep(0.12)

    # ---- hands

    def press(self, x, y):
        self.run("xdotool", "mousemove", str(x), str(y), "click", "1")
        time.sleep(0.03)

    def press_page(self, x, y):
        """Presses a place given in page units."""
        left, top, scale = (float(word) for word in self.words("view")[0])
        self.press(round(left + x * scale), round(top + y * scale))

    def drag_page(self, x, y, to_x, to_y, on_the_way=None):
        """Presses at one place of the page, in page units, and lets go at another."""
        left, top, scale = (float(word) for word in self.words("view")[0])
        path = [(x, y), ((x + to_x) / 2, (y + to_y) / 2), (to_x, to_y)]
        spots = [(str(round(left + px * scale)), str(round(top + py * scale))) for px, py in path]
        self.run("xdotool", "mousemove", *spots[0], "mousedown", "1")
        for spot in spots[1:]:
            time.sleep(0.03)
            self.run("xdotool", "mousemove", *spot)
        if on_the_way:
            on_the_way()
        self.run("xdotool", "mouseup", "1")
        time.sleep(0.05)

    def press_widget(self, name):
        self.press(*self.widget(name))

    def point_page(self, x, y):
        left, top, scale = (float(word) for word in self.words("view")[0])
        self.run("xdotool", "mousemove", str(round(left + x * scale)), str(round(top + y * scale)))

    def key(self, *names):
        """Keys by their names, such as ctrl+s or Return."""
        self.run("xdotool", "key", "--delay", "30", *names)
        time.sleep(0.05)

    def type(self, text):
        self.run("xdotool", "type", "--delay", "8", text)
        time.sleep(0.05)

    def dialog(self, title):
        """Waits for a box with a title to have the keyboard."""
        wait_for(lambda: re.fullmatch(title, self.active_window()), f'the box "{title}"')
        time.sleep(0.15)

    def by_dialog(self, name, title, menu, keys="", fill=lambda: None):
        """Opens a dialog by its menu keys, types keys into it or has it filled, and closes it with Return."""
        self.key(*menu.split())
        self.dialog(title + ".*")
        if keys:
            self.key(*keys.split())
        fill()
        self.picture(name)
        self.key("Return")
        wait_for(lambda: "score.cvm" in self.active_window(), f"{title} to be done")
        self.settled()

    def picture(self, name):
        time.sleep(0.25)
        path = os.path.join(self.pictures, name + ".png")
        subprocess.run(["import", "-window", "root", path], env=self.env, check=True)
        return path
