// Horizontal places of the events of a measure, in per mille of its note area.
#pragma once

#include "layout/ListaEventi.h"

namespace corvane {

// Where a whole rest stands that is alone in its voice, per mille of the note area.
inline constexpr int32_t kMiddleOfMeasure = 500;

// Width of a measure's header in page units: the widest sum, over its staves, of clef, key and time signature
// with their gaps.
int32_t NoteAreaLeft(const Measure* measure);

// The mathematical rule for one voice: every event strictly in proportion to its duration. Clefs among the
// events stay between the same ones; its beams are refitted. A stem that it shares with a voice of another
// staff is parted where the two do not begin together, else that voice's events follow it. True if some x
// changed.
bool SpaceVoice(Voice* voice);

// The engraver's rule for a whole measure: all staves share their time points, each as wide as the table in
// force tells or as what stands there needs, stretched or shrunk to fill the measure. Beams are refitted. A
// measure without events, or with a clef that nothing follows where clefs make room, stays as it is. True if
// some x changed.
bool SpaceMeasure(Measure* measure, const SpacingRoom& room);

// What an event counts of a whole note where voices are spaced by time; a grace chord counts nothing.
double FractionOf(const VoiceSymbol* symbol);
// What a measure can hold and what a voice fills of it, in whole notes. Denominators that are no power of two
// are rounded to the nearest one.
double MeasureFraction(const Measure* measure);
double VoiceFraction(const Voice* voice);
// More than the measure can hold, by more than 0.0001; `sum` is what the voice fills.
bool IsMeasureFull(const Voice* voice, double* sum = nullptr);
// An event of a value, without dots, would not make it so; null for a voice that is not there yet.
bool HasRoomFor(const Measure* measure, const Voice* voice, uint8_t value);

}  // namespace corvane
