"""Editing steps, entered by hand through the window or by script, and what a score then holds."""
import re
import subprocess

from desk import Failure


class Program:
    """The command line."""

    def __init__(self, path, env):
        self.path = path
        self.env = env

    def run(self, *arguments, text=None):
        done = subprocess.run([self.path, *arguments], env=self.env, input=text, capture_output=True, text=True,
                              check=False)
        if done.returncode != 0:
            raise Failure(f"{' '.join(arguments)}: {done.stderr.strip()}")
        return done.stdout

    def script(self, *steps):
        return self.run("script", "-", text="\n".join(steps) + "\n")


class Plan:
    """A score as a list of script steps, in terms of systems, measures and staves. The first page of a new score."""

    def __init__(self, program):
        self.program = program
        self.steps = ["new"]
        self.measures, self.staves = {}, {}
        for line in program.script("new", "dump layout").splitlines():
            word, *numbers = line.split()
            numbers = [int(n) for n in numbers]
            if word == "measure":
                self.measures[tuple(numbers[:2])] = numbers[2:]
            elif word == "staff":
                self.staves[tuple(numbers[:2])] = numbers[2:]

    def add(self, *steps):
        self.steps += steps

    def y(self, staff, line):
        """Of a staff step of the first system, 1 the bottom line."""
        top, distance, lines = self.staves[1, staff]
        return top + (lines - 1) * distance - (line - 1) * distance // 2

    def append(self, measure, staff, line):
        """A press behind all events of a measure of the first system."""
        _, left, right = self.measures[1, measure]
        self.add(f"press {right - (right - left) // 50} {self.y(staff, line)}")

    def onto(self, measure, staff, voice, number, line):
        """A press on the event of that number, from 0, in a voice."""
        x = self.events(measure, staff, voice)[number]
        _, left, right = self.measures[1, measure]
        self.add(f"press {left + x * (right - left) // 1000 + 50} {self.y(staff, line)}")

    def events(self, measure, staff, voice):
        """Places of a voice's events in per mille of the note area."""
        here, places = [0, 0, 0], []
        for line in self.program.script(*self.steps, "dump tree").splitlines():
            if found := re.match(r" *(measure|staff|voice) (\d+)", line):
                level = ("measure", "staff", "voice").index(found[1])
                here[level] = int(found[2])
            elif here == [measure, staff, voice] and (found := re.match(r" *(?:Chord|Pause) .*?\bx (-?\d+)", line)):
                places.append(int(found[1]))
        return places

    def play_on(self, desk, start=1):
        """Carries the steps from one on out by hand; answers how many there are."""
        for step in self.steps[start:]:
            word, *rest = step.split()
            if word == "press":
                desk.press_page(int(rest[0]), int(rest[1]))
            elif word == "key":
                desk.key(rest[0].lower())
            elif word == "voice":
                desk.key(f"ctrl+{rest[0]}")
            elif word == "item":
                desk.press_widget("item " + " ".join(rest))
            elif word == "undo":
                desk.key("ctrl+z")
            elif word == "redo":
                desk.key("ctrl+shift+z")
            else:
                raise Failure(f"no hand knows how to {word}")
        return len(self.steps)
