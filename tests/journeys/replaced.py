"""What a save replaces is not lost: the file as it was, and what another program wrote meanwhile, open from the menu."""
import os
import re
import shutil
import sys

from desk import expect, take, wait_for
from entry import Plan, Program


def staves(program, path):
    return sum(line.startswith("staff 1 ") for line in program.script(f'open "{path}"', "dump layout").splitlines())


def save(desk, path):
    before = os.stat(path)
    desk.key("ctrl+s")
    wait_for(lambda: os.stat(path).st_ino != before.st_ino, "the save")


def edit(desk, plan, line):
    plan.append(1, 1, line)
    plan.play_on(desk, len(plan.steps) - 1)


def open_newest_backup(desk):
    desk.key("alt+f")
    desk.key("b")
    desk.dialog("Open Backup.*")
    desk.picture("2-backups")
    desk.key("alt+o")
    desk.focus()
    wait_for(lambda: re.match(r"score\.cvm \(\d{4}-.*\)", desk.title()), "the backup's own window")
    desk.settled()


def journey(desk, corvane):
    program = Program(corvane, desk.env)
    plan = Plan(program)
    path, theirs = desk.path("score.cvm"), desk.path("theirs.cvm")
    program.run("new", path)
    program.run("new", theirs, "--staves", "SSS")
    process, _ = desk.start(corvane, path)
    desk.settled()
    desk.key("3")
    edit(desk, plan, 3)
    save(desk, path)
    shutil.copy(theirs, path)
    edit(desk, plan, 5)
    save(desk, path)
    desk.dialog("Corvane")
    desk.picture("1-told")
    desk.key("Return")
    desk.focus()
    expect(staves(program, path) == 2, "the save is not the score that was edited")
    open_newest_backup(desk)
    copy = desk.path("copy.cvm")
    desk.key("ctrl+s")
    desk.dialog("Save as.*")
    desk.key("ctrl+a")
    desk.type(copy)
    desk.key("Return")
    wait_for(lambda: os.path.exists(copy), "the backup to be saved as a file of its own")
    expect(staves(program, copy) == 3, "the backup is not what the other program wrote")
    process.terminate()
    desk.gone(process)


if __name__ == "__main__":
    sys.exit(take(journey))
