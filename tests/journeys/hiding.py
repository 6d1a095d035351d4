"""Articulations, reminders and what is hidden by menus and dialogs; on paper and after a new start as chosen."""
import filecmp
import subprocess
import sys

from commands import compose
from desk import expect, take, wait_for
from entry import Program

STEPS = [
    "command 32818 from=1 to=2 sign=Accent",
    "command 32814 from=1 to=2 show=always",
    "command 33084 from=1 to=2",
]


def page(desk, name):
    """The pixels of the page's upper part."""
    left, top, _ = (round(float(word)) for word in desk.words("view")[0])
    crop = ["convert", desk.picture(name), "-crop", f"700x500+{left}+{top}", "rgb:-"]
    return subprocess.run(crop, capture_output=True, check=True).stdout


def by_hand(desk):
    desk.key("ctrl+shift+a")
    desk.by_dialog("articulations", "Apply Articulations", "alt+n y", "alt+a Home Down")
    desk.by_dialog("accidentals", "Accidentals Options", "ctrl+a", "alt+a End")
    desk.key("alt+u")
    desk.settled()
    desk.picture("hidden")
    desk.by_dialog("options", "Show-Hide Options", "alt+v h o", "alt+s Down")
    desk.key("alt+v", "g")
    desk.key("Escape")
    desk.settled()


def journey(desk, corvane):
    program = Program(corvane, desk.env)
    plan = compose(program)
    path, bare, hidden = desk.path("score.cvm"), desk.path("bare.png"), desk.path("hidden.png")
    program.script(*plan.steps, f'save "{path}"')
    process, _ = desk.start(corvane, path)
    desk.settled()
    before = page(desk, "before")
    by_hand(desk)
    grey = page(desk, "grey")
    expect(grey != before, "nothing is seen of the edits")
    desk.key("ctrl+s")
    told = program.script(*plan.steps, *STEPS, "dump geometry")
    wait_for(lambda: program.script(f'open "{path}"', "dump geometry") == told, "the score by hand to be as by script")
    expect("sound" in program.run("check", path), "the saved score is not sound")
    program.run("convert", path, hidden)
    program.script(*plan.steps, *STEPS[:2], f'export "{bare}"')
    expect(not filecmp.cmp(bare, hidden, shallow=False), "paper shows the hidden stems")
    desk.key("ctrl+q")
    wait_for(lambda: process.poll() is not None, "the program's end")
    process, _ = desk.start(corvane, path)
    desk.settled()
    expect(page(desk, "again") == grey, "grey stems and margins are forgotten with the program's end")
    desk.key("ctrl+q")
    wait_for(lambda: process.poll() is not None, "the program's second end")


if __name__ == "__main__":
    sys.exit(take(journey))
