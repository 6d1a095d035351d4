// What changes clefs, keys, meters, barlines, endings, tempo marks and repetition texts. Every Change... and
// Insert... is one undoable step of its own, refused before it begins with a sentence that says why; every
// Set... and Delete... belongs to the caller's step.
#pragma once

#include <string_view>

#include "edit/MeasureRange.h"
#include "edit/WindowTarn.h"
#include "model/Meters.h"

namespace corvane {

// ---- Clefs. The notes up to the next clef of the staff move, so that they sound as before; heads of later
// systems repeat the new clef up to there.

// Gives the head of a system another clef, or puts one into a measure at a place in per mille, where it
// governs the events right of it. A clef that stands between the same events is changed. False where that
// clef is in force already.
bool SetClefAtHead(WindowTarn& window, MeasureStaff* crossing, int code);
bool SetClefWithin(WindowTarn& window, MeasureStaff* crossing, int32_t place, int code);
void DeleteClaf(WindowTarn& window, MovingClaf* clef);
// Within its measure, as far as the clefs beside it, which must go on to govern something.
Status ChangeClafPlace(WindowTarn& window, MovingClaf* clef, int32_t place);

// ---- Keys and meters, over measures; without `last` up to the next change.

// Sharps less flats. Notes keep their alterations; which accidentals are shown is told anew.
Status ChangeKey(WindowTarn& window, MeasureRange range, int fifths);
Status ChangeMeter(WindowTarn& window, MeasureRange range, const Meter& meter);

// ---- Signs of measures.

enum class BarlineChange { Single, Double, Final, RepeatStart, RepeatEnd, Dashed, None };
// Of the measure's right edge, but for a repeat's start. `on` takes a repeat or a hidden barline back where
// it is false.
Status ChangeBarline(WindowTarn& window, Measure* measure, BarlineChange change, bool on = true);

// A bracket over measures; brackets that it meets go.
Status InsertEndings(WindowTarn& window, const MeasureRange& range, std::string_view text);
void DeleteEndings(WindowTarn& window, Endings* endings);
// Lifts the brackets over what has come to stand above the top staff of some measures, and their neighbours
// with them.
void RaiseEndings(WindowTarn& window, MeasureRange range, const Rect& ink);

struct TempoValue {
    static constexpr int kMostDots = 3, kMostBpm = 999;
    int beat = 1;
    int figure = 4;  // a note value: 1 to 128, 11
    int dots = 0;
    int bpm = 106;
};
// The tempo mark of a beat, made or changed.
Status InsertTempo(WindowTarn& window, Measure* measure, const TempoValue& value);
void DeleteTempo(WindowTarn& window, Time* mark);
// A mark of a beat without a figure or tempo yet; where it stands beside its beat, clear of what is there.
Time* MakeTempoMark(Measure* measure, int beat);
void PlaceTempoMark(Time* mark);

// One of RepetitionTexts; the same text again takes it away.
Status InsertCoda(WindowTarn& window, Measure* measure, std::string_view text);
void DeleteCoda(WindowTarn& window, Coda* coda);

void DeleteSimboliVari(WindowTarn& window, SimboliVari* sign);
void DeleteArpeggio(WindowTarn& window, Arpeggio* arpeggio);
void DeleteDinamiche(WindowTarn& window, Dinamiche* mark);
// The stem gets its usual length back.
void DeleteTremolo(WindowTarn& window, Tremolo* tremolo);

}  // namespace corvane
