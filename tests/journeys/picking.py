"""Click single heads and signs, delete, cut and copy exactly them; keys of commands that cannot act tell why."""
import sys

from desk import expect, take
from entry import Plan, Program


def compose(program):
    """A quarter chord of three heads, the middle one with a sharp, and a second quarter."""
    plan = Plan(program)
    plan.add("key 3")
    plan.append(1, 1, 3)
    plan.append(1, 1, 6)
    for line in (5, 8):
        plan.onto(1, 1, 1, 0, line)
    plan.add("key S")
    plan.onto(1, 1, 1, 0, 5)
    return plan


class Page:
    def __init__(self, desk, plan):
        self.desk, self.plan = desk, plan
        _, self.left, self.right = plan.measures[1, 1]
        self.x = self.left + plan.events(1, 1, 1)[0] * (self.right - self.left) // 1000

    def head(self, line):
        self.desk.press_page(self.x + 60, self.plan.y(1, line))

    def empty(self, measure):
        _, left, _ = self.plan.measures[1, measure]
        self.desk.press_page(left + 40, self.plan.y(1, 14))


def heads(program, path, measure):
    """The keys that sound in a measure, from below."""
    lines = [line.split() for line in program.script(f'open "{path}"', "dump notes").splitlines()]
    return sorted(int(words[8]) for words in lines if int(words[0]) == measure)


def journey(desk, corvane):
    program = Program(corvane, desk.env)
    plan = compose(program)
    path = desk.path("chord.cvm")
    program.script(*plan.steps, f'save "{path}"')
    start = heads(program, path, 1)
    expect(len(start) == 4, f"the score starts with {start}")
    process, _ = desk.start(corvane, path)
    desk.settled()
    page = Page(desk, plan)
    desk.key("a", "ctrl+t")
    expect("Corvane" in desk.active_window(), "no box comes up for a tie without notes")
    desk.picture("1-told-why")
    desk.key("alt+n")
    desk.picture("2-disabled")
    desk.key("Escape")

    page.head(8)
    desk.picture("3-head")
    desk.key("Delete")
    page.head(3)
    desk.key("ctrl+x")
    page.empty(2)
    desk.key("ctrl+v")
    page.head(5)
    desk.key("ctrl+c")
    page.empty(3)
    desk.key("ctrl+v")
    desk.picture("4-alone")
    # The sharp stands left of the head.
    desk.press_page(page.x - 60, plan.y(1, 5))
    desk.picture("5-sharp")
    desk.key("Delete")
    desk.picture("6-plain")
    desk.key("ctrl+s")
    desk.settled()
    told = [heads(program, path, measure) for measure in (1, 2, 3)]
    sharp = start[1]
    wanted = [[sharp - 1, start[2]], [start[0]], [sharp]]
    expect(told == wanted, f"the measures hold {told}, not {wanted}")
    expect("sound" in program.run("check", path), "the score is not sound")
    desk.quit(process)


if __name__ == "__main__":
    sys.exit(take(journey))
