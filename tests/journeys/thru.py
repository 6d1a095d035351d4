"""A keyboard that another program plays sounds through Corvane, beside a score that plays too, and no key hangs when thru
is turned off or the program ends."""
import sys
import time

from desk import expect, wait_for
from entry import Program
from midi import Monitor, take_with_midi

KEY, CHANNEL = 100, 3  # no key of the score's
PERIOD_OF_KEYS, HELD = 24000, 20000  # frames


def keys(monitor, since=0):
    return [key for _, key in monitor.starts(CHANNEL, since) if key == KEY]


def held(monitor):
    return (CHANNEL - 1, KEY) in monitor.sounding()


def expect_quiet(monitor, after):
    wait_for(lambda: not held(monitor), f"the end of the key: {after}")
    before = len(monitor.messages())
    time.sleep(1.2)  # two strokes of the key
    expect(not keys(monitor, before), f"the key is still heard: {after}")


def choose_keyboard(desk):
    desk.key("alt+m", "r")
    desk.dialog("Accompany - Record Setup.*")
    desk.key("alt+r", "Down")
    desk.picture("1-setup")
    desk.key("Return")
    desk.focus()


def toggle(desk):
    desk.key("alt+m", "t")


def journey(desk, corvane):
    monitor = Monitor(desk)
    desk.spawn(["jack_midiseq", "keys", str(PERIOD_OF_KEYS), "0", str(KEY), str(HELD)])
    wait_for(lambda: "keys:" in desk.run("jack_lsp"), "the keyboard")
    path = desk.path("thru.cvm")
    steps = ["new D 4 1", f"command 33050 staff=1 port=0 channel={CHANNEL}"]
    places = Program(corvane, desk.env).script(*steps, "dump layout").splitlines()
    measure = next(line.split() for line in places if line.startswith("measure"))
    staff = next(line.split() for line in places if line.startswith("staff"))
    Program(corvane, desk.env).script(*steps, "item 1 5", f"press {int(measure[5]) - 90} {staff[3]}", f"save {path}")

    process, _ = desk.start(corvane, path)
    desk.settled()
    expect(not monitor.messages(), "something is sent before a keyboard is chosen")
    choose_keyboard(desk)
    wait_for(lambda: len(keys(monitor)) >= 2, "the key")
    before = len(monitor.messages())
    desk.key("space")
    wait_for(lambda: [key for _, key in monitor.starts(CHANNEL, before) if key != KEY], "a note of the score")
    wait_for(lambda: not desk.words("play"), "the end of play")
    before = len(monitor.messages())
    wait_for(lambda: len(keys(monitor, before)) >= 2, "the key behind the play")

    wait_for(lambda: held(monitor), "a key that is held")
    toggle(desk)
    expect_quiet(monitor, "thru turned off")
    desk.key("alt+m")
    desk.picture("2-menu")
    desk.key("Escape", "Escape")
    toggle(desk)
    before = len(monitor.messages())
    wait_for(lambda: keys(monitor, before) and held(monitor), "the key, thru turned on again")
    desk.quit(process)
    expect_quiet(monitor, "the program's end")

    process, _ = desk.start(corvane, path)
    wait_for(lambda: held(monitor), "the key of the next start: the choice was kept")
    process.terminate()
    desk.gone(process)
    expect_quiet(monitor, "a program that is told to end")


if __name__ == "__main__":
    sys.exit(take_with_midi(journey))
