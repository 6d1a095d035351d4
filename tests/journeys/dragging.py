"""A dynamic and a head dragged with the arrow, seen on the way; the score then is as a script makes it."""
import sys

from commands import compose
from desk import expect, take, wait_for
from entry import Program


def dynamic_in(geometry):
    """The corner of the page's only dynamic."""
    return [int(n) for line in geometry.splitlines() if line.startswith("Dinamiche") for n in line.split()[-4:-2]]


def is_near(geometry, other):
    """A hand presses on pixels, which are some units wide."""
    near = all(abs(a - b) < 30 for a, b in zip(dynamic_in(geometry), dynamic_in(other), strict=True))
    return near and heads_in(geometry) == heads_in(other)


def heads_in(geometry):
    return [line for line in geometry.splitlines() if not line.startswith("Dinamiche")]


def journey(desk, corvane):
    program = Program(corvane, desk.env)
    plan = compose(program)
    _, left, right = plan.measures[1, 1]
    x, y = (left + right) // 2, plan.y(1, -5)
    plan.add("item 3 8", f"press {x} {y}", "tool arrow")
    path = desk.path("score.cvm")
    program.script(*plan.steps, f'save "{path}"')
    process, _ = desk.start(corvane, path)
    desk.settled()
    desk.type("a")
    note_x = left + plan.events(1, 1, 1)[1] * (right - left) // 1000 + 50
    moves = [(x, y, x + 800, y + 300), (note_x, plan.y(1, 4), note_x, plan.y(1, 11))]
    for name, move in zip(("dynamic", "head"), moves):
        desk.drag_page(*move, lambda name=name: desk.picture(name))
        desk.settled()
    desk.picture("dragged")
    desk.key("ctrl+s")
    steps = [f"drag {' '.join(str(n) for n in move)}" for move in moves]
    told, untouched = (program.script(*plan.steps, *more, "dump geometry") for more in (steps, []))
    expect(not is_near(told, untouched), "the script drags nothing")
    wait_for(lambda: is_near(program.script(f'open "{path}"', "dump geometry"), told),
             "the score by hand to be as by script")
    expect("sound" in program.run("check", path), "the saved score is not sound")
    desk.key("ctrl+q")
    wait_for(lambda: process.poll() is not None, "the program's end")


if __name__ == "__main__":
    sys.exit(take(journey))
