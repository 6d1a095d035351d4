"""From a new score to a saved file by keys alone: a melody with a chord, dots and accidentals, changed, played and saved."""
import os
import re
import sys

from desk import expect, take, wait_for
from entry import Program


KEYS = ["72", "50", "74", "65", "67", "71", "71"]  # both voices' first notes, then as time goes


def new_score(desk):
    desk.key("ctrl+n")
    desk.dialog("New Score.*")
    desk.key("Return")
    desk.focus()
    desk.settled()


def write(desk):
    """C D E G, the last with a further head; a half note with a dot, a rest; a whole note below."""
    desk.key("3", "Right")  # a quarter, at the first place, on the middle line
    desk.key(*["Down"] * 6)  # C below the staff is six steps below
    for steps_up in (1, 1, 2):
        desk.key("Return", "Right", *["Up"] * steps_up)
    desk.picture("1-pencil")
    desk.key("Return", "Up", "Up", "Return")
    desk.key("Right", "2", "Return", "d", "Return")  # a half in the next measure, then its dot
    desk.key("3", "r", "Right", "Return")
    desk.key("Alt_L+Down", "Left", "r", "1", "Return")
    desk.picture("2-written")


def change(desk):
    """The first two notes an octave up, a step down and up again; the third note sharp."""
    desk.key("a", "ctrl+Left")
    desk.key("Alt_L+Up", "ctrl+Left", "shift+Right")
    desk.picture("3-selected")
    desk.key("ctrl+Up", "Down", "Up")
    desk.key("Right")
    desk.key("alt+n", "v", "s")  # the menu: Sharp
    desk.settled()
    desk.picture("4-changed")
    desk.key("ctrl+z", "ctrl+shift+z")


def save(desk, path):
    desk.key("ctrl+s")
    desk.dialog("Save as.*")
    desk.key("ctrl+a")
    desk.type(path)
    desk.key("Return")
    wait_for(lambda: os.path.exists(path), "the score to be saved")
    desk.focus()


def notes_of(program, path):
    """What sounds, and how many chords and rests there are."""
    told = program.script(f'open "{path}"', "dump notes")
    tree = program.script(f'open "{path}"', "dump tree")
    return told, len(re.findall(r"^ *Chord ", tree, re.M)), len(re.findall(r"^ *Pause ", tree, re.M))


def journey(desk, corvane):
    program = Program(corvane, desk.env)
    process, _ = desk.start(corvane)
    desk.settled()
    new_score(desk)
    write(desk)
    change(desk)
    path = desk.path("keys.cvm")
    save(desk, path)
    notes, chords, rests = notes_of(program, path)
    expect((chords, rests) == (6, 1), f"{chords} chords and {rests} rests")
    expect([line.split()[8] for line in notes.splitlines()] == KEYS, f"other notes were written:\n{notes}")
    expect("sound" in program.run("check", path), "the saved score is not sound")
    desk.quit(process)


if __name__ == "__main__":
    sys.exit(take(journey))
