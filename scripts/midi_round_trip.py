#!/usr/bin/env python3
"""Imports MIDI files, exports them again, and tells how many notes came back.

    scripts/midi_round_trip.py build/release/bin/corvane FILE.mid... [-- OPTIONS OF CONVERT]

A note has come back when one of its key and channel begins within 1/64 note of it; it has kept its length when that
differs by no more. Doublings within a track count once; the first track is the tempo map. Needs mido.
"""
import bisect
import collections
import os
import subprocess
import sys
import tempfile

import mido

LEAD, TOLERANCE = 120, 1 / 64 + 1e-9


def notes_of(path, lead=0):
    """(track, channel, key, beginning, length) of each note, in whole notes."""
    midi = mido.MidiFile(path, clip=True)
    whole = 4.0 * midi.ticks_per_beat
    notes = {}
    for number, track in enumerate(midi.tracks[1:]):
        now, sounding = 0, collections.defaultdict(list)

        def end(channel, key):
            start = sounding[channel, key].pop(0)
            note = (number, channel, key, (start - lead) / whole, (now - start) / whole)
            place = note[:3] + (round(note[3], 9),)
            if place not in notes or notes[place][4] < note[4]:
                notes[place] = note

        for event in track:
            now += event.time
            if event.type not in ("note_on", "note_off"):
                continue
            place = (event.channel, event.note)
            if event.type == "note_on" and event.velocity:
                sounding[place].append(now)
            elif sounding[place]:
                end(*place)
        for channel, key in [place for place, starts in sounding.items() for _ in starts]:
            end(channel, key)
    return sorted(notes.values(), key=lambda note: note[3])


def matches(before, after):
    """Pairs of notes, each of `after` in one at most."""
    places = collections.defaultdict(list)
    for i, note in enumerate(after):
        bisect.insort(places[note[1:3]], (note[3], i))
    used, pairs = set(), []
    for note in before:
        near = places[note[1:3]]
        first = bisect.bisect_left(near, (note[3] - TOLERANCE,))
        last = bisect.bisect_right(near, (note[3] + TOLERANCE, len(after)))
        free = [(abs(start - note[3]), abs(after[i][4] - note[4]), i) for start, i in near[first:last] if i not in used]
        if free:
            used.add(min(free)[2])
            pairs.append((note, after[min(free)[2]]))
    return pairs


def main():
    words = sys.argv[1:]
    cut = words.index("--") if "--" in words else len(words)
    corvane, files, options = words[0], words[1:cut], words[cut + 1:]
    total = collections.Counter()
    print("file\tin\tout\tback\tkept their length")
    for path in files:
        with tempfile.TemporaryDirectory() as folder:
            out = os.path.join(folder, "out.mid")
            run = subprocess.run([corvane, "convert", *options, path, out], capture_output=True, text=True)
            if run.returncode:
                print(os.path.basename(path), run.stderr.strip().split(": ")[-1], sep="\t")
                continue
            before, after = notes_of(path), notes_of(out, LEAD)
        pairs = matches(before, after)
        kept = sum(abs(a[4] - b[4]) <= TOLERANCE for a, b in pairs)
        print(os.path.basename(path), len(before), len(after), len(pairs), kept, sep="\t")
        total.update({"in": len(before), "out": len(after), "back": len(pairs), "kept": kept})
    if total["in"]:
        print("all", total["in"], total["out"], total["back"], total["kept"], sep="\t")
        print(f"{100 * total['back'] / total['in']:.2f}% back, {100 * total['kept'] / max(1, total['back']):.2f}% "
              "of these as long as before")


if __name__ == "__main__":
    sys.exit(main())
