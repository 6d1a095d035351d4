"""The measures of a MIDI file, as its first track tells them."""
from fractions import Fraction

import mido

LONGEST_DOUBLINGS, MOST_METRONOME, MOST_MICROSECONDS = 7, 32767, 0xFFFFFF


def first_track(path):
    """(place in whole notes, event) of the first track."""
    midi = mido.MidiFile(path, clip=True)
    now = 0
    for event in midi.tracks[0]:
        now += event.time
        yield Fraction(now, 4 * midi.ticks_per_beat), event


def meters_and_tempos(path):
    """By place: numerator and denominator, and microseconds to a quarter."""
    meters, tempos = {}, {}
    for place, event in first_track(path):
        if event.type == "time_signature":
            meters[place] = (event.numerator, event.denominator)
        elif event.type == "set_tempo":
            tempos[place] = event.tempo
    return meters, tempos


class Measures:
    """A meter holds from the start of the measure in which it is told; what comes last in a measure counts."""

    def __init__(self, path):
        self.starts = [Fraction(0)]
        self.meter = (4, 4)
        self.meters = {}  # told, by the start of their measure
        self._tempos = []
        for place, event in first_track(path):
            if event.type == "time_signature" and 0 < event.denominator <= 1 << LONGEST_DOUBLINGS and event.numerator:
                start = self._start_at(place)
                self.meter = self.meters[start] = (event.numerator, event.denominator)
            elif event.type == "set_tempo":
                self._tempos.append((place, self._start_at(place), self.meter, event.tempo))

    def _start_at(self, place):
        """Of the measure that holds a place; no measure behind it is known yet."""
        while self.starts[-1] + Fraction(*self.meter) <= place:
            self.starts.append(self.starts[-1] + Fraction(*self.meter))
        return self.starts[-1]

    def tempos_at_starts(self):
        """Microseconds by place, as a whole metronome number of the measure's beats tells them."""
        told = {}
        for place, start, (_, beats), microseconds in self._tempos:
            if place == start:
                metronome = min(beats * 60000000 // (4 * microseconds), MOST_METRONOME) if microseconds else 0
                told[place] = min(beats * 60000000 // (4 * metronome), MOST_MICROSECONDS) if metronome else 0
        return told
