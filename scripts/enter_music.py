#!/usr/bin/env python3
"""Writes the script that enters a piece of music by pressing its notes onto the first page.

    enter_music.py CORVANE PIECE SCRIPT

PIECE is a text, one statement a line:

    # ...                   goes to the head of the script
    new STAVES N SYSTEMS    the empty score, N measures a system
    do STEP, end STEP       a step of the script, before and behind all notes
    key FIFTHS              the key that notes are spelt in
    bottom NOTE...          the note on the bottom line of each staff
    part STAFF VOICE        what follows goes there, from the first measure on
    | EVENTS                its next measure
    words SYLLABLES         sung to its notes, "-" at the end joins, "_" skips a note

Events: r16 a rest, c4/16 a note (c4 is middle c; the duration stays until the next), c4+e4+g4/4 a chord, c#4 and cb4
what sounds, a dot behind the duration, ~ a tie to the next event, !G.I the palette item I of group G on the event.
"""
import re
import subprocess
import sys

STEPS = "cdefgab"
SHARPS = "fcgdaeb"
ITEM = {1: 3, 2: 5, 4: 7, 8: 9, 16: 11, 32: 13, 64: 15}
SIGN = {1: 23, -1: 24, 2: 25, 0: 26, -2: 27}
EVENT = re.compile(r"(r|[a-g][#b]*\d(?:\+[a-g][#b]*\d)*)(?:/?(\d+)(\.*))?(~?)((?:!\d+\.\d+)*)$")


def key_of(fifths):
    return {s: 1 for s in SHARPS[:max(fifths, 0)]} | {s: -1 for s in SHARPS[::-1][:max(-fifths, 0)]}


class Note:
    def __init__(self, text):
        self.step, signs, octave = re.match(r"([a-g])([#b]*)(\d)", text).groups()
        self.alter = signs.count("#") - signs.count("b")
        self.place = STEPS.index(self.step) + 7 * int(octave)


class Event:
    def __init__(self, text, last):
        found = EVENT.match(text)
        if not found:
            sys.exit(f"no event: {text}")
        what, value, dots, tie, signs = found.groups()
        self.value, self.dots = (int(value), len(dots)) if value else last
        self.notes = [] if what == "r" else [Note(n) for n in what.split("+")]
        self.tie, self.tied = bool(tie), False
        self.signs = [s.replace(".", " ") for s in signs.split("!") if s]


class Piece:
    def __init__(self, path):
        self.head, self.before, self.after, self.parts, self.bottoms, self.key = [], [], [], [], {}, {}
        last = (4, 0)
        with open(path, encoding="utf-8") as lines:
            for word, _, rest in (line.strip().partition(" ") for line in lines):
                if word == "#":
                    self.head.append(f"# {rest}")
                elif word in ("new", "do"):
                    self.before.append(rest if word == "do" else f"new {rest}")
                elif word == "end":
                    self.after.append(rest)
                elif word == "key":
                    self.key = key_of(int(rest))
                elif word == "bottom":
                    self.bottoms = {i + 1: Note(n).place for i, n in enumerate(rest.split())}
                elif word == "part":
                    staff, voice = (int(n) for n in rest.split())
                    self.parts.append(Part(staff, voice))
                elif word == "words":
                    self.parts[-1].words += rest.split()
                elif word == "|":
                    last = self.parts[-1].add(rest, last)


class Part:
    def __init__(self, staff, voice):
        self.staff, self.voice, self.measures, self.words, self.tie = staff, voice, [], [], False

    def add(self, text, last):
        self.measures.append([])
        for word in text.split():
            event = Event(word, last)
            last = event.value, event.dots
            event.tied, self.tie = self.tie, event.tie
            self.measures[-1].append(event)
        return last


class Writer:
    """The steps so far, and where things stand after them."""

    def __init__(self, program, piece):
        self.program, self.piece = program, piece
        self.steps = [*piece.head, *piece.before, "tool pencil"]
        self.item = self.voice = None

    def run(self, dump):
        done = subprocess.run([self.program, "script", "-"], input="\n".join([*self.steps, dump]) + "\n",
                              capture_output=True, text=True, check=False)
        if done.returncode:
            sys.exit(done.stderr)
        return done.stdout.splitlines()

    def look(self):
        """Note areas of the measures, staves of the systems, places of the events in per mille."""
        self.areas, self.staves, self.places, here = [], {}, {}, [0, 0, 0]
        for word, *rest in (line.split() for line in self.run("dump layout")):
            numbers = [int(n) for n in rest]
            if word == "measure":
                self.areas.append((numbers[0], numbers[3], numbers[4]))
            elif word == "staff":
                self.staves[tuple(numbers[:2])] = numbers[2:]
        for line in self.run("dump tree"):
            if level := re.match(r" *(measure|staff|voice) (\d+)", line):
                here[("measure", "staff", "voice").index(level[1])] = int(level[2])
            elif event := re.match(r" *(?:Chord|Pause) .*?\bx (-?\d+)", line):
                self.places.setdefault(tuple(here), []).append(int(event[1]))

    def take(self, item, voice):
        if self.voice != voice:
            self.steps.append(f"voice {voice}")
        if self.item != item:
            self.steps.append(f"item {item}")
        self.item, self.voice = item, voice

    def press(self, x, measure, staff, note=None):
        top, distance, lines = self.staves[self.areas[measure][0], staff]
        steps = note.place - self.piece.bottoms[staff] if note else 4
        self.steps.append(f"press {x} {top + (lines - 1) * distance - steps * distance // 2}")

    def onto(self, number, measure, part, note):
        places = self.places.get((measure + 1, part.staff, part.voice), [])
        if len(places) != len(part.measures[measure]):
            sys.exit(f"measure {measure + 1}, staff {part.staff}, voice {part.voice}: {len(places)} events stand there")
        _, left, right = self.areas[measure]
        self.press(left + places[number] * (right - left) // 1000 + 50, measure, part.staff, note)

    def append(self, measure, part):
        _, left, right = self.areas[measure]
        for event in part.measures[measure]:
            self.take(f"1 {ITEM[event.value] + (not event.notes)}", part.voice)
            self.press(right - (right - left) // 60, measure, part.staff, event.notes[0] if event.notes else None)

    def adorn(self, measure, part):
        """Further notes of chords, dots, accidentals and signs, each at its event's place."""
        for number, event in enumerate(part.measures[measure]):
            first = event.notes[0] if event.notes else None
            wanted = [(f"1 {ITEM[event.value]}", note) for note in event.notes[1:]]
            if event.dots:
                wanted.append((f"1 {19 + event.dots}", first))
            wanted += [(f"1 {SIGN[note.alter]}", note) for note in event.notes
                       if not event.tied and note.alter != self.piece.key.get(note.step, 0)]
            wanted += [(sign, first) for sign in event.signs]
            for item, note in wanted:
                self.look()
                self.take(item, part.voice)
                self.onto(number, measure, part, note)

    def tie(self, part):
        for measure, events in enumerate(part.measures):
            for number, event in enumerate(events):
                for note in event.notes if event.tie else []:
                    self.take("1 19", part.voice)
                    self.onto(number, measure, part, note)

    def sing(self, part):
        words = list(part.words)
        for measure, events in enumerate(part.measures):
            for number, event in enumerate(events):
                if event.notes and not event.tied and words and (word := words.pop(0)) != "_":
                    self.take("8 2", part.voice)
                    self.onto(number, measure, part, event.notes[0])
                    self.steps.append(f'text "{word}"')

    def write(self):
        parts = self.piece.parts
        for measure in range(max(len(p.measures) for p in parts)):
            for part in (p for p in parts if measure < len(p.measures)):
                self.look()
                self.append(measure, part)
                self.adorn(measure, part)
        self.look()
        for part in parts:
            self.tie(part)
            self.sing(part)
        return [*self.steps, *self.piece.after]


if __name__ == "__main__":
    script = Writer(sys.argv[1], Piece(sys.argv[2])).write()
    with open(sys.argv[3], "w", encoding="utf-8") as out:
        out.write("\n".join(script) + "\n")
