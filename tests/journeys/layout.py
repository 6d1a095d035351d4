"""Spacing, paper, margins, staves and room for names by menus and dialogs, as a script makes them."""
import sys

from commands import compose
from desk import expect, take, wait_for
from entry import Program

# What a hand does in the menus, and the step that says the same.
BY_HAND = [
    ("spacing", "Spacing", "ctrl+j", [("alt+s", "Engraver"), ("alt+f", "1"), ("alt+t", "2")],
     "command 32807 mode=engraver from=1 to=2"),
    ("gaps", "Spacing Options", "alt+s l i", [("alt+t", "300"), ("alt+c", "150")], "command 32786 first=300 key=150"),
    ("staff", "Staff Settings", "alt+s l g", [("alt+s", "80"), ("alt+d", "700")],
     "command 32777 from=1 size=80 lines=5 distance=700"),
    ("margins", "Modify Page", "alt+s l f", [("alt+l", "1000"), ("alt+b", "1200")],
     "command 32776 left=1000 bottom=1200"),
    ("paper", "Page Setup", "alt+f u", [("alt+p", "A4")], "command 57606 height=16779 width=11864"),
    ("names", "Instrument Name Options", "alt+s l u", [("alt+r", "900")], "command 32787 indent=900"),
]


def fill(desk, fields):
    for field, text in fields:
        desk.key(field)
        if text.isdigit():
            desk.key("ctrl+a")
        desk.type(text)


def too_small(desk):
    """A paper below the least leaves the dialog open with a message."""
    desk.key("alt+f", "u")
    desk.dialog("Page Setup.*")
    desk.key("alt+p")
    desk.type("Custom")
    desk.key("alt+h", "ctrl+a")
    desk.type("5000")
    desk.key("Return")
    desk.dialog("Corvane")
    desk.picture("refused")
    desk.key("Return")
    desk.dialog("Page Setup.*")
    desk.key("Escape")
    desk.focus()


def saved_as(desk, program, path, steps):
    """Saves, and finds in the file what the steps make."""
    desk.settled()
    desk.key("ctrl+s")
    for what in ("layout", "geometry"):
        told = program.script(*steps, f"dump {what}")
        wait_for(lambda: program.script(f'open "{path}"', f"dump {what}") == told, f"the {what} by hand to be as by script")


def journey(desk, corvane):
    program = Program(corvane, desk.env)
    plan = compose(program)
    path = desk.path("score.cvm")
    program.script(*plan.steps, f'save "{path}"')
    process, _ = desk.start(corvane, path)
    desk.settled()
    for name, title, keys, fields, _ in BY_HAND:
        desk.by_dialog(name, title, keys, fill=lambda: fill(desk, fields))
    too_small(desk)
    desk.picture("all")
    steps = [step for *_, step in BY_HAND]
    saved_as(desk, program, path, [*plan.steps, *steps])
    expect("sound" in program.run("check", path), "the saved score is not sound")
    desk.key("ctrl+z")
    saved_as(desk, program, path, [*plan.steps, *steps[:-1]])
    desk.quit(process)


if __name__ == "__main__":
    sys.exit(take(journey))
