"""Select, delete, cut, copy, paste and undo by mouse and keys alone, within a score and between two."""
import os
import sys

from desk import expect, take, wait_for
from entry import Plan, Program


def compose(program):
    """Eighth notes under beams with a slur and a dynamic in the first measure, quarters in the second."""
    plan = Plan(program)
    plan.add("key 4")
    for line in (3, 4, 5, 6, 7, 6, 5, 4):
        plan.append(1, 1, line)
    plan.add("key 3")
    for line in (8, 7, 6, 5):
        plan.append(2, 1, line)
    left, right = plan.measures[1, 1][1:]
    plan.add("tool arrow", f"drag {left + 10} {plan.y(1, 18)} {(left + right) // 2} {plan.y(1, -6)}", "command 40020",
             "tool pencil", "item 3 4", f"press {left + 300} {plan.y(1, -5)}")
    return plan


class Scores:
    """The program with two scores, of which it shows one at a time."""

    def __init__(self, desk, plan):
        self.desk, self.plan = desk, plan

    def show(self, name):
        if not self.desk.title().startswith(name):
            self.desk.key("ctrl+Tab")
        wait_for(lambda: self.desk.title().startswith(name), f"{name} to be shown")
        self.desk.settled()

    def place(self, measure, part, line, staff=1):
        """Of a part, in per mille, of a measure's width and a staff step."""
        _, left, right = self.plan.measures[1, measure]
        return left + (right - left) * part // 1000, self.plan.y(staff, line)

    def band(self, measure):
        self.desk.drag_page(*self.place(measure, 5, 20), *self.place(measure, 990, -8))

    def click(self, measure, part, line, staff=1):
        self.desk.press_page(*self.place(measure, part, line, staff))

    def save(self, path):
        before = os.stat(path).st_mtime_ns
        self.desk.key("ctrl+s")
        wait_for(lambda: os.stat(path).st_mtime_ns != before, f"{path} to be saved")


def lengths(program, path):
    """How many notes begin in each measure of each staff."""
    counts = {}
    for line in program.script(f'open "{path}"', "dump notes").splitlines():
        words = line.split()
        place = int(words[0]), int(words[6])
        counts[place] = counts.get(place, 0) + 1
    return counts


def delete_and_undo(scores):
    """A click selects one note; deleted, it leaves a rest; undo brings it back."""
    desk = scores.desk
    desk.key("a")
    x = scores.plan.events(2, 1, 1)[0]
    _, left, right = scores.plan.measures[1, 2]
    desk.press_page(left + x * (right - left) // 1000 + 50, scores.plan.y(1, 8))
    desk.picture("1-clicked")
    desk.key("Delete")
    desk.picture("2-deleted")
    desk.key("ctrl+z", "ctrl+shift+z", "ctrl+z")


def copy_between(scores):
    desk = scores.desk
    scores.band(1)
    desk.picture("3-selected")
    desk.press_widget("command 57634")
    scores.show("b.cvm")
    scores.click(2, 10, 14)
    desk.settled()
    desk.press_widget("command 57637")
    scores.click(3, 10, 2, staff=2)
    desk.key("ctrl+v")
    desk.picture("4-pasted")
    desk.key("ctrl+z", "ctrl+shift+z")


def cut_between(scores):
    """What was cut in one score is pasted in the other; its undo takes it off the clipboard."""
    desk = scores.desk
    scores.show("a.cvm")
    scores.band(2)
    desk.key("ctrl+x")
    desk.picture("5-cut")
    scores.show("b.cvm")
    scores.click(4, 10, 14)
    desk.key("ctrl+v")
    desk.picture("6-both")
    # A cut here completes the one there, which can be undone no more.
    scores.band(2)
    desk.key("ctrl+x")
    scores.show("a.cvm")
    desk.key("ctrl+z")
    desk.settled()
    desk.picture("7-no-undo")
    scores.click(2, 10, 14)
    desk.key("ctrl+v")


def journey(desk, corvane):
    program = Program(corvane, desk.env)
    plan = compose(program)
    first, second = desk.path("a.cvm"), desk.path("b.cvm")
    program.script(*plan.steps, f'save "{first}"')
    program.script("new", f'save "{second}"')
    process, _ = desk.start(corvane, first, second)
    desk.settled()
    scores = Scores(desk, plan)
    scores.show("a.cvm")
    delete_and_undo(scores)
    copy_between(scores)
    cut_between(scores)
    desk.picture("8-first")
    scores.save(first)
    scores.show("b.cvm")
    desk.picture("9-second")
    scores.save(second)
    told = lengths(program, first), lengths(program, second)
    expect(told == ({(1, 1): 8, (2, 1): 8}, {(3, 2): 8, (4, 1): 4}), f"the scores hold {told}")
    for path in (first, second):
        expect("sound" in program.run("check", path), f"{path} is not sound")
    desk.quit(process)


if __name__ == "__main__":
    sys.exit(take(journey))
