#!/usr/bin/env python3
"""Imports MIDI files, exports them again, and tells what came back.

    scripts/midi_round_trip.py build/release/bin/corvane FILE.mid... [-- OPTIONS OF CONVERT]

A note has come back when one of its key and channel begins within 1/64 note of it; it has kept its length when that
differs by no more. Doublings within a track count once; the first track is the tempo map. Of tempos those at the start
of a measure are asked for, to the rounding of a whole metronome number; of meters all. Each note that is lost is counted
under the rule that loses it. Exits with 1 if anything is lost that no rule loses, or if a note comes twice. Needs mido.
"""
import bisect
import collections
import os
import subprocess
import sys
import tempfile

import mido

from midi_measures import Measures, meters_and_tempos

LEAD, TOLERANCE = 120, 1 / 64 + 1e-9
LEVELS = {"none": 1 / 128, "half": 1 / 2, "quarter": 1 / 4, **{str(n): 1 / n for n in (8, 16, 32, 64, 128)}}

FADED = "the last volume of its channel, which is its voice's, is too low for its velocity to sound"
STRUCK = "the grid brings two strokes of one key to one place: they are one note"
ENDLESS = "it begins and ends at one place of the grid, and nothing follows it"
UNKNOWN = "NO RULE"


def midi_notes(path, lead=0):
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


def last_volumes(path):
    """By track and channel, where one is told."""
    volumes = {}
    for number, track in enumerate(mido.MidiFile(path, clip=True).tracks[1:]):
        for event in track:
            if event.type == "control_change" and event.control == 7:
                volumes[number, event.channel] = event.value
    return volumes


def rule_that_loses(note, before, volumes, grid):
    number, channel, key, start, length = note
    if volumes.get((number, channel), 127) < 2:  # what is entered has velocity 64
        return FADED
    if any(other[:3] == note[:3] and 0 < abs(other[3] - start) <= grid for other in before):
        return STRUCK
    follows = any(other[:2] == (number, channel) and other[3] > start + grid for other in before)
    return ENDLESS if length <= grid and not follows else UNKNOWN


def tempo_map(before, after):
    """What the first tracks say alike: tempos asked for and come back, meters asked for and come back."""
    measures = Measures(before)
    meters, tempos = meters_and_tempos(after)
    wanted = measures.tempos_at_starts()
    back = sum(abs(tempos.get(start, -1) - microseconds) <= 1 for start, microseconds in wanted.items())
    shown = sum(meters.get(start) == meter for start, meter in measures.meters.items())
    return collections.Counter({"tempos": len(wanted), "tempos back": back, "meters": len(measures.meters),
                                "meters back": shown})


class Journey:
    """One file there and back."""

    def __init__(self, corvane, path, options):
        grid = LEVELS[options[options.index("--quantize") + 1]] if "--quantize" in options else 1 / 16
        self.refusal, self.lost = None, collections.Counter()
        with tempfile.TemporaryDirectory() as folder:
            out = os.path.join(folder, "out.mid")
            run = subprocess.run([corvane, "convert", *options, path, out], capture_output=True, text=True, check=False)
            if run.returncode:
                self.refusal = run.stderr.strip().split(": ")[-1]
                return
            before, after = midi_notes(path), midi_notes(out, LEAD)
            self.counts = tempo_map(path, out)
        pairs = matches(before, after)
        kept = sum(abs(a[4] - b[4]) <= TOLERANCE for a, b in pairs)
        self.counts.update({"in": len(before), "out": len(after), "back": len(pairs), "kept": kept})
        back, volumes = {note for note, _ in pairs}, last_volumes(path)
        for note in before:
            if note not in back:
                self.lost[rule_that_loses(note, before, volumes, grid)] += 1

    def row(self):
        if self.refusal:
            return [self.refusal]
        c = self.counts
        return [c["in"], c["out"], c["back"], c["kept"], f"{c['tempos back']}/{c['tempos']}",
                f"{c['meters back']}/{c['meters']}", "; ".join(f"{n} {rule.split(',')[0]}" for rule, n in self.lost.items())]


def tell(total, lost):
    back, kept = total["back"], total["kept"]
    print(f"{100 * back / total['in']:.2f}% back, {100 * kept / max(1, back):.2f}% of these as long as before")
    commanded = sum(lost.values()) - lost[UNKNOWN]
    print(f"{100 * back / max(1, total['in'] - commanded):.2f}% back of what no rule loses")
    for rule, count in lost.most_common():
        print(f"lost: {count}: {rule}")


def main():
    words = sys.argv[1:]
    cut = words.index("--") if "--" in words else len(words)
    corvane, files, options = words[0], words[1:cut], words[cut + 1:]
    total, lost = collections.Counter(), collections.Counter()
    print("file", "in", "out", "back", "kept their length", "tempos", "meters", "lost", sep="\t")
    for path in files:
        journey = Journey(corvane, path, options)
        print(os.path.basename(path), *journey.row(), sep="\t")
        if not journey.refusal:
            total.update(journey.counts)
            lost.update(journey.lost)
    if total["in"]:
        print("all", total["in"], total["out"], total["back"], total["kept"], f"{total['tempos back']}/{total['tempos']}",
              f"{total['meters back']}/{total['meters']}", sep="\t")
        tell(total, lost)
    failed = lost[UNKNOWN] or total["out"] > total["back"] or total["tempos back"] < total["tempos"] or \
        total["meters back"] < total["meters"]
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
