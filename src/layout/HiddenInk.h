// What a person has hidden, and what goes with it: a head takes its accidental along, all heads of a chord
// its dots, both heads of a tie the tie, a stem its flags and slash, all stems under a beam the beam. Signs
// that stand on notes stay. Nothing of it changes a place or a sound.
#pragma once

#include "model/Relations.h"

namespace corvane {

bool IsHidden(const GenericNote* note);
bool IsHidden(const Accident* accident);
bool IsHidden(const Chords* chord);  // all its heads
bool IsHidden(const MarkValue* mark);
// Of a value without a stem, none is hidden.
bool IsHidden(const Stem* stem);
bool IsHidden(const Beam* beam);
bool IsHidden(const Pause* pause);
// Its figure and bracket.
bool IsHidden(const Irregular* tuplet);

void Hide(GenericNote* note, bool hidden);
void Hide(Stem* stem, bool hidden);
void Hide(Pause* pause, bool hidden);
void Hide(Irregular* tuplet, bool hidden);

// How a tuplet's bracket is drawn, hidden or not.
TupletBracket BracketOf(const Irregular* tuplet);

}  // namespace corvane
