"""A score is made, entered with mouse and keys, undone and redone, saved, reopened and printed."""
import os
import subprocess
import sys

from desk import expect, take, wait_for
from entry import Plan, Program

FIRST_PAINT = 1500  # milliseconds; a machine under load, many times what it takes at rest


def compose(program):
    """Both staves, two voices on each, values from whole to 16th, dots, accidentals, rests, a chord, ledger lines."""
    plan = Plan(program)
    plan.add("voice 1", "key 3")
    plan.append(1, 1, 6)
    plan.add("key D")
    plan.onto(1, 1, 1, 0, 6)
    plan.add("key 4")
    plan.append(1, 1, 7)
    plan.add("key 3")
    plan.append(1, 1, 8)
    plan.add("key R")
    plan.append(1, 1, 5)

    plan.add("item 1 5")  # a half note
    plan.append(2, 1, 3)
    plan.add("key 5")
    for line in (4, 5, 6, 7):
        plan.append(2, 1, line)
    plan.add("key 3")
    plan.append(2, 1, 9)
    plan.add("key S")
    plan.onto(2, 1, 1, 5, 9)

    plan.add("key 2")
    plan.append(3, 1, -1)
    plan.onto(3, 1, 1, 0, 1)
    plan.onto(3, 1, 1, 0, 3)
    plan.add("key R")
    plan.append(3, 1, 5)

    plan.add("key 1")
    plan.append(1, 2, 4)
    plan.add("key 2")
    plan.append(2, 2, 6)
    plan.add("key 3")
    plan.append(2, 2, 5)
    plan.add("key F")
    plan.onto(2, 2, 1, 1, 5)
    plan.add("key 4")
    plan.append(2, 2, 4)
    plan.add("key R")
    plan.append(2, 2, 5)

    plan.add("voice 2", "key 2")
    plan.append(1, 1, 1)
    plan.append(1, 1, 0)
    plan.add("item 1 26")  # a natural
    plan.onto(1, 1, 2, 1, 0)
    plan.add("key 3")
    for line in (1, 2, 3):
        plan.append(1, 2, line)
    plan.add("item 1 8")  # a quarter rest
    plan.append(1, 2, 3)
    return plan


def answer_box(desk, key):
    desk.dialog("Corvane.*")
    desk.key(key)
    desk.focus()


def save_as(desk, path):
    desk.dialog("Save as.*")
    desk.key("ctrl+a")
    desk.type(path)
    desk.key("Return")
    wait_for(lambda: os.path.exists(path), f"{path} to be saved")
    desk.focus()


def close_program(desk, process):
    desk.quit(process)
    expect(process.returncode == 0, f"the program ended with {process.returncode}")


def enter(desk, program, corvane, path):
    process, paint = desk.start(corvane)
    print(f"first paint after {paint:.0f} ms")
    expect(paint < FIRST_PAINT, "the first paint takes too long")
    desk.settled()
    desk.picture("1-new")
    plan = compose(program)
    done = plan.play_on(desk)
    desk.point_page(8800, 2100)
    desk.picture("2-entered")
    desk.settled()
    expect("[*]" in desk.title(), "the title knows nothing of the changes")

    plan.add("undo")
    done = plan.play_on(desk, done)
    desk.picture("3-undone")
    plan.add("redo", "key E")
    plan.onto(3, 1, 1, 0, 3)  # the eraser takes a note out of the chord, undo brings it back
    plan.add("undo")
    plan.play_on(desk, done)
    play_silently(desk)

    desk.key("ctrl+s")
    save_as(desk, path)
    desk.settled()
    expect(desk.title().startswith(os.path.basename(path)), f"the title is {desk.title()}")
    close_program(desk, process)
    return plan


def play_silently(desk):
    """Without a sound card one box tells so; the space bar then stops the play that goes on."""
    desk.key("space")
    answer_box(desk, "Return")
    desk.picture("4-playing")
    desk.key("space")


def reopen(desk, program, corvane, plan, path):
    by_script = program.script(*plan.steps, "dump notes")
    saved = program.script(f'open "{path}"', "dump notes")
    notes = saved.splitlines()
    print(f"{len(notes)} notes")
    expect(len(notes) >= 20, "too few notes have been entered")
    expect(by_script == saved, f"by hand and by script differ:\n{saved}\n{by_script}")
    expect("sound" in program.run("check", path), "the saved score is not sound")

    process, _ = desk.start(corvane, path)
    desk.settled()
    desk.picture("5-reopened")
    again = desk.path("again.cvm")
    desk.key("ctrl+shift+s")
    save_as(desk, again)
    with open(path, "rb") as first, open(again, "rb") as second:
        expect(first.read() == second.read(), "a save after a reload is another file")
    return process


def export(desk):
    path = desk.path("paper.pdf")
    desk.key("alt+f")
    desk.picture("6-file-menu")
    desk.key("e")
    desk.dialog("Export.*")
    desk.key("ctrl+a")
    desk.type(path)
    desk.key("Return")
    wait_for(lambda: os.path.exists(path), "the exported document")
    told = subprocess.run(["pdfinfo", path], capture_output=True, text=True, check=True).stdout
    expect("Pages:           1" in told and "612 x 792" in told, told)
    picture = os.path.join(desk.pictures, "7-paper")
    subprocess.run(["pdftoppm", "-png", "-r", "100", "-singlefile", path, picture], check=True)


def refuse(desk, process):
    """Unsaved changes are asked for; a file that is none is refused and nothing else happens."""
    desk.key("ctrl+n")
    desk.dialog("New Score.*")
    desk.picture("8-new-dialog")
    desk.key("Return")
    desk.focus()
    desk.settled()
    expect(desk.title().startswith("Untitled"), f"the title is {desk.title()}")
    desk.key("3")
    desk.press_page(5000, 2000)
    desk.key("ctrl+q")
    desk.dialog("Corvane.*")
    desk.picture("9-ask-to-save")
    desk.key("Escape")
    desk.focus()
    desk.key("ctrl+o")
    desk.dialog("Open.*")
    with open(desk.path("no-score.cvm"), "wb") as file:
        file.write(b"no score")
    desk.type(desk.path("no-score.cvm"))
    desk.key("Return")
    desk.dialog("Corvane.*")
    desk.picture("10-invalid-file")
    desk.key("Return")
    desk.focus()
    expect(process.poll() is None, "the program has gone")
    desk.key("ctrl+q")
    answer_box_no(desk)
    desk.gone(process)
    expect(process.returncode == 0, f"the program ended with {process.returncode}")


def answer_box_no(desk):
    desk.dialog("Corvane.*")
    desk.key("alt+n")


def journey(desk, corvane):
    program = Program(corvane, desk.env)
    path = desk.path("journey.cvm")
    plan = enter(desk, program, corvane, path)
    process = reopen(desk, program, corvane, plan, path)
    export(desk)
    refuse(desk, process)


if __name__ == "__main__":
    sys.exit(take(journey))
