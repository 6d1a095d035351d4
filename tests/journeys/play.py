"""A score plays through a real MIDI system: the cursor moves, the page turns, the mixer and the tempo act at once,
and whatever ends the play, no note hangs."""
import signal
import sys
import time

from desk import expect, wait_for
from entry import Program
from midi import Monitor, take_with_midi

STEPS_OF_A_MEASURE = 4


def layout(program, steps, page):
    """Measures and staves of the first system of a page: lists of number, left, note area and right; of number, top,
    line distance and lines."""
    measures, staves = [], []
    for line in program.script(*steps, f"page {page}", "dump layout").splitlines():
        word, *numbers = line.split()
        if word == "measure":
            measures.append([int(n) for n in numbers[1:]])
        elif word == "staff":
            staves.append([int(n) for n in numbers[1:]])
    return measures, staves


def compose(program, path):
    """Two pages of three measures: quarters above, halves below, at 120, each staff on a channel of output 0."""
    steps = ["new D 3 1", "command 32790 count=1", "command 32778 measure=1 bpm=120"]
    for staff in (1, 2):
        steps.append(f"command 33050 staff={staff} port=0 channel={staff} program={staff}")
    for page in (1, 2):
        measures, staves = layout(program, steps, page)
        steps.append(f"page {page}")
        for _, _, area, right in measures:
            for staff, item, count, line in ((0, 7, 4, 3), (1, 5, 2, 5)):
                _, top, distance, lines = staves[staff]
                y = top + (lines - 1) * distance - (line - 1) * distance // 2
                steps.append(f"item 1 {item}")
                steps += [f"press {area + (right - area) * (i * 8 + 1) // (8 * count)} {y}" for i in range(count)]
    program.script(*steps, f"save {path}")
    notes = program.script(f"open {path}", "dump notes").splitlines()
    expect(len(notes) == 2 * 3 * (4 + 2), f"{len(notes)} notes are in the score")


def place(desk):
    """Measure and beat of the play that runs; zeros while none does."""
    words = desk.words("play")
    return (int(words[0][0]), int(words[0][1])) if words else (0, 0)


def wait_for_measure(desk, number):
    wait_for(lambda: place(desk)[0] >= number, f"measure {number}")


def expect_silence(desk, monitor, after):
    wait_for(lambda: not desk.words("play"), f"the end of play: {after}")
    wait_for(lambda: not monitor.sounding(), f"silence: {after}")
    before = len(monitor.messages())
    time.sleep(0.4)
    late = [m for m in monitor.messages()[before:] if m[1] & 0xF0 == 0x90 and m[3]]
    expect(not late, f"notes still come: {after}")


def messages_due(program, path):
    """What a play sends to output 0, in its order."""
    lines = [[int(word) for word in line.split()] for line in program.run("play", "--dry", path).splitlines()]
    return [tuple(line[2:]) for line in lines if line[1] == 0]


def watch(desk, monitor, due):
    """The cursor goes from beat to beat, and the page turns as its last measure begins; every message arrives once, in
    its order."""
    desk.key("space")
    wait_for_measure(desk, 1)
    seen = []
    while place(desk)[0] < 3:
        cursor = desk.words("cursor")
        if cursor and (not seen or cursor[0] != seen[-1]):
            seen.append(cursor[0])
        if len(seen) == 3:
            desk.picture("2-cursor")
        time.sleep(0.02)
    places = [int(x) for x, _ in seen]
    expect(len(places) >= 3 and places == sorted(places), f"the cursor went {places}")
    wait_for(lambda: desk.words("page")[0] == ["2"], "the page turn")
    desk.picture("3-page-turned")
    wait_for_measure(desk, 4)
    wait_for(lambda: desk.words("cursor"), "the cursor on the new page")
    desk.picture("4-second-page")
    expect(monitor.starts(1) and monitor.starts(2), "a staff is not heard")
    expect_silence(desk, monitor, "the end of the score")
    came = [message[1:] for message in monitor.messages()]
    expect(came[:len(due)] == due, f"of {len(due)} messages others arrived, or in another order")
    expect(all(status & 0xF0 == 0xB0 for status, _, _ in came[len(due):]), f"{came[len(due):]} came behind the end")
    quarters = [frame for frame, _ in monitor.starts(1)]
    halves = [frame for frame, _ in monitor.starts(2)]
    expect((len(quarters), len(halves)) == (24, 12), f"{len(quarters)} and {len(halves)} notes arrived")
    return (quarters[-1] - quarters[0]) / 23  # frames of a beat, as this machine passes them


def mix(desk, monitor, beat):
    """Mute, solo and tempo while it plays."""
    desk.key("ctrl+Home")
    desk.key("space")
    wait_for_measure(desk, 1)
    desk.press_widget("mixer 2 on")
    begin = len(monitor.messages())
    desk.picture("5-muted")
    wait_for_measure(desk, 2)
    expect(monitor.starts(1, begin) and not monitor.starts(2, begin), "the mute is not heard at once")
    desk.press_widget("mixer 2 solo")
    begin = len(monitor.messages())
    wait_for_measure(desk, 3)
    expect(monitor.starts(2, begin) and not monitor.starts(1, begin), "the solo is not heard at once")
    desk.press_widget("mixer 2 solo")
    x, y, width, height = desk.area("tempo")
    for _ in range(3):
        desk.press(x + width - 12, y + height // 2)
    begin = len(monitor.messages())
    wait_for_measure(desk, 4)
    desk.picture("6-faster")
    wait_for(lambda: len(monitor.starts(1, begin)) >= 4, "notes after the change of tempo")
    frames = [frame for frame, _ in monitor.starts(1, begin)]
    now = (frames[-1] - frames[0]) / (len(frames) - 1)
    expect(now < 0.75 * beat, f"a beat takes {now} frames, before {beat}")
    desk.key("space")
    expect_silence(desk, monitor, "stop")


def seek_and_panic(desk, monitor):
    desk.press_widget("limits")
    desk.key("space")
    wait_for_measure(desk, 1)
    x, y, width, height = desk.area("fromMeasure")
    desk.press(x + width // 4, y + height // 2)
    desk.key("ctrl+a", "5", "Return")
    wait_for_measure(desk, 5)
    expect(len(monitor.sounding()) <= 2, "notes hang behind a jump")
    desk.key("ctrl+f")
    expect_silence(desk, monitor, "panic")


def end_while_playing(desk, monitor, process, how):
    desk.focus()
    desk.press_widget("play")
    wait_for(monitor.sounding, "a note")
    how(process)
    if wait_for(lambda: process.poll() is not None or desk.active_window() == "Corvane", "the program's end"):
        if process.poll() is None:
            desk.key("alt+n")  # the mixer's changes are not wanted
    desk.gone(process)
    wait_for(lambda: not monitor.sounding(), "silence behind the program's end")


def journey(desk, corvane):
    monitor = Monitor(desk)
    program = Program(corvane, desk.env)
    path = desk.path("play.cvm")
    compose(program, path)
    process, _ = desk.start(corvane, path)
    desk.settled()
    desk.key("alt+m", "m")
    wait_for(lambda: any(w[4:] == ["mixer"] for w in desk.words("widget")), "the mixer")
    desk.settled()
    desk.picture("1-mixer")
    mix(desk, monitor, watch(desk, monitor, messages_due(program, path)))
    seek_and_panic(desk, monitor)
    end_while_playing(desk, monitor, process, lambda _: desk.key("ctrl+q"))
    for end in (signal.SIGTERM, signal.SIGINT):
        process, _ = desk.start(corvane, path)
        desk.settled()
        end_while_playing(desk, monitor, process, lambda p, end=end: p.send_signal(end))


if __name__ == "__main__":
    sys.exit(take_with_midi(journey))
