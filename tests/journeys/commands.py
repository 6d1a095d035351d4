"""A key, a meter, a transposition and a measure by menus and dialogs, as a script makes them; taken back and made again."""
import os
import sys

from desk import expect, take, wait_for
from entry import Plan, Program

# What a hand does in the menus, and the step that says the same. The notes are selected before.
BY_HAND = [
    ("key", "Key Signature", "alt+s k", "alt+k d", "command 32781 fifths=2 from=1"),
    ("meter", "Time Signature", "alt+s t", "alt+n 3 alt+f ctrl+a 3", "command 32779 num=3 den=4 from=3"),
    ("pickup", "Time Signature", "alt+s t", "alt+n 1 alt+p Down alt+f ctrl+a 4",
     "command 32779 num=1 den=4 pickup=1 from=4"),
    ("grace", "Grace Notes Options", "ctrl+g", "alt+t Down alt+c ctrl+a 2 5", "command 33088 time=preceding cut=25"),
    ("transpose", "Transpose", "alt+n p", "alt+d Down alt+i Down Down", "command 32819 interval=-m3 from=1 to=2"),
    ("durations", "Change Durations", "alt+n d", "alt+t Down Down", "command 32817 by=half from=1 to=2"),
    ("beams", "Auto Beaming Options", "alt+n b o", "alt+b Down", "command 32810 binary=two apply=score"),
    ("distances", "Note-Beam-Accidental Options", "alt+n b n", "alt+m ctrl+a 3 5 0", "command 32820 distance=350"),
    ("measures", "Add Measures", "alt+s a m", "alt+n ctrl+a 2 alt+a ctrl+a 1", "command 32791 count=2 after=1"),
]


def compose(program):
    plan = Plan(program)
    plan.add("key 3")
    for line in (3, 4, 6, 5):
        plan.append(1, 1, line)
    plan.add("key 2")
    plan.append(2, 1, 8)
    plan.add("key S")
    plan.onto(2, 1, 1, 0, 8)
    return plan


def refused(desk):
    """A meter that no measure can have leaves the dialog open with a message; nothing changes."""
    desk.key("alt+s", "t")
    desk.dialog("Time Signature.*")
    desk.key("alt+n", "ctrl+a", "BackSpace", "Return")
    desk.dialog("Corvane")
    desk.picture("refused")
    desk.key("Return")
    desk.dialog("Time Signature.*")
    desk.key("Escape")
    wait_for(lambda: "score.cvm" in desk.active_window(), "the dialog to go")


def journey(desk, corvane):
    program = Program(corvane, desk.env)
    plan = compose(program)
    path = desk.path("score.cvm")
    program.script(*plan.steps, f'save "{path}"')
    process, _ = desk.start(corvane, path)
    desk.settled()
    for name, title, menu, keys, _ in BY_HAND:
        desk.key("ctrl+shift+a")
        desk.by_dialog(name, title, menu, keys)
        desk.key("ctrl+z", "ctrl+shift+z")
    refused(desk)
    desk.key("ctrl+shift+a", "ctrl+e", "ctrl+d")  # other spellings, stems down
    desk.settled()
    desk.picture("all")
    before = os.stat(path).st_mtime_ns
    desk.key("ctrl+s")
    wait_for(lambda: os.stat(path).st_mtime_ns != before, "the score to be saved")
    steps = [step for *_, step in BY_HAND]
    for what in ("notes", "tree", "layout"):
        saved = program.script(f'open "{path}"', f"dump {what}")
        told = program.script(*plan.steps, *steps, "command 57642", "command 33036", "command 32816", f"dump {what}")
        expect(saved == told, f"by hand and by script differ in {what}:\n{saved}\n{told}")
    expect(len(program.script(f'open "{path}"', "dump notes").splitlines()) == 5, "notes are missing")
    expect("sound" in program.run("check", path), "the saved score is not sound")
    desk.quit(process)


if __name__ == "__main__":
    sys.exit(take(journey))
