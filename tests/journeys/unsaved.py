"""A program that is killed loses nothing: the next start offers the unsaved score, beside the file it was told to open."""
import os
import re
import signal
import sys
import time

from desk import expect, take, wait_for
from entry import Plan, Program


def compose(program):
    plan = Plan(program)
    plan.add("key 3")
    for line in (1, 5, 8):
        plan.append(1, 1, line)
    plan.add("key 4")
    plan.append(2, 2, 4)
    return plan


def kill(desk, corvane, plan):
    process, _ = desk.start(corvane)
    desk.settled()
    plan.play_on(desk)
    time.sleep(1.5)  # nothing is asked of the last second
    process.send_signal(signal.SIGKILL)
    process.wait()


def start_with_file(desk, program, corvane, plan):
    """Answers the notes of what was recovered."""
    other = desk.path("other.cvm")
    program.run("new", other, "--staves", "S")
    process, _ = desk.start(corvane, other)
    desk.dialog("Unsaved Scores.*")
    desk.picture("1-offered")
    desk.key("alt+o")
    desk.focus()
    desk.settled()
    expect(re.match(r"Untitled.*\[\*\]", desk.title()), f"the title is {desk.title()}")
    desk.picture("2-recovered")
    path = desk.path("recovered.cvm")
    desk.key("ctrl+s")
    desk.dialog("Save as.*")
    desk.key("ctrl+a")
    desk.type(path)
    desk.key("Return")
    wait_for(lambda: os.path.exists(path), "the recovered score to be saved")
    desk.focus()
    expect(program.script(f'open "{path}"', "dump notes") == program.script(*plan.steps, "dump notes"),
           "the recovered score has other notes")
    desk.key("ctrl+w")
    wait_for(lambda: desk.title().startswith("other.cvm"), "the file that was to be opened")
    end_quietly(desk, process)


def end_quietly(desk, process):
    """The system's wish to end is no question, and leaves nothing behind where nothing was changed."""
    process.send_signal(signal.SIGTERM)
    desk.gone(process)
    expect(process.returncode == 128 + signal.SIGTERM, f"the program ended with {process.returncode}")


def nothing_is_left(desk, corvane):
    process, _ = desk.start(corvane)
    time.sleep(1)
    expect("Untitled" in desk.active_window(), "something is offered again")
    end_quietly(desk, process)


def journey(desk, corvane):
    program = Program(corvane, desk.env)
    plan = compose(program)
    kill(desk, corvane, plan)
    start_with_file(desk, program, corvane, plan)
    nothing_is_left(desk, corvane)


if __name__ == "__main__":
    sys.exit(take(journey))
