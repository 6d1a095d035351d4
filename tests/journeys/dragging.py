"""A dynamic, a head, the end and the opening of a hairpin, a beam and the handles of a stem and a barline dragged with the
arrow, seen on the way; the score then is as a script makes it."""
import sys

from commands import compose
from desk import expect, take, wait_for
from entry import Program


def is_near(geometry, other):
    """A hand presses on pixels, which are some units wide."""
    words, others = geometry.split(), other.split()
    return len(words) == len(others) and all(
        a == b or is_number(a) and is_number(b) and abs(int(a) - int(b)) < 30 for a, b in zip(words, others))


def is_number(word):
    return word.lstrip("-").isdigit()


def rect_of(geometry, name):
    """Of the first object of a class."""
    return next([int(n) for n in line.split()[-4:]] for line in geometry.splitlines() if line.startswith(name))


def journey(desk, corvane):
    program = Program(corvane, desk.env)
    plan = compose(program)
    _, left, right = plan.measures[1, 1]
    x, y = (left + right) // 2, plan.y(1, -5)
    plan.add("item 3 8", f"press {x} {y}", "key 4")
    for line in (4, 5):
        plan.append(3, 1, line)
    wedge = right + 200, plan.y(1, -4)
    plan.add("item 3 18", f"drag {wedge[0]} {wedge[1]} {wedge[0] + 1000} {wedge[1]}", "tool arrow")
    geometry = program.script(*plan.steps, "dump geometry")
    beam, hairpin = rect_of(geometry, "BeamMarker"), rect_of(geometry, "MarkHairpin")
    beam_x, beam_y = (beam[0] + beam[2]) // 2, (beam[1] + beam[3]) // 2
    path = desk.path("score.cvm")
    program.script(*plan.steps, f'save "{path}"')
    process, _ = desk.start(corvane, path)
    desk.settled()
    desk.type("a")
    place = [left + at * (right - left) // 1000 for at in plan.events(1, 1, 1)]
    stem, end, top = place[0] + 112, plan.y(1, 3) - 300, plan.y(1, 9)
    moves = [
        ("hairpin", "", "", (hairpin[2] - 20, wedge[1], hairpin[2] + 1080, wedge[1] + 40)),
        ("opening", "", "", (hairpin[2] + 1075, hairpin[1] + 8, hairpin[2] + 1075, hairpin[1] - 72)),
        ("beam", "", "", (beam_x, beam_y, beam_x, beam_y - 200)),
        ("dynamic", "", "", (x, y, x + 800, y + 300)),
        ("head", "", "", (place[1] + 50, plan.y(1, 4), place[1] + 50, plan.y(1, 11))),
        ("stem", "u", "command 33045", (stem, end, stem, end - 250)),
        ("barline", "ub", "command 33048", (right, top, right + 500, top)),
    ]
    for name, keys, _, move in moves:
        desk.type(keys)
        desk.drag_page(*move, lambda name=name: desk.picture(name))
        desk.settled()
    desk.key("ctrl+z", "ctrl+shift+z")
    desk.settled()
    desk.picture("dragged")
    desk.key("ctrl+s")
    steps = [step for _, _, shown, move in moves for step in (shown, f"drag {' '.join(str(n) for n in move)}") if step]
    told, untouched = (program.script(*plan.steps, *more, "dump geometry") for more in (steps, []))
    expect(not is_near(told, untouched), "the script drags nothing")
    wait_for(lambda: is_near(program.script(f'open "{path}"', "dump geometry"), told),
             "the score by hand to be as by script")
    expect("sound" in program.run("check", path), "the saved score is not sound")
    desk.key("ctrl+q")
    wait_for(lambda: process.poll() is not None, "the program's end")


if __name__ == "__main__":
    sys.exit(take(journey))
