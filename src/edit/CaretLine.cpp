#include "edit/CaretLine.h"

#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int32_t kGap = 30;

// With the accidentals beside the heads.
Rect InkOf(const VoiceSymbol* event) {
    const auto* chord = As<Chords>(event);
    if (!chord) return RectOf(As<Pause>(event));
    Rect ink = RectOf(ChordSymbolPar(chord));
    for (const GenericNote* note : chordNotes.Of(chord))
        if (const Accident* accident = AccidentOf(note)) ink = Union(ink, RectOf(accident));
    return ink;
}

}  // namespace

int32_t CaretLineX(const Caret& caret) {
    const MeasureStaff* crossing = MeasureStaffAt(caret.measure, caret.staff);
    if (!crossing || !crossing->_staff.Get()) return caret.x;
    const int32_t offset = FrameOf(caret.measure).PerMilleOfX(caret.x);
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        for (const VoiceSymbol* event : voiceSymbols.Of(voice)) {
            const Rect ink = InkOf(event);
            if (caret.x < ink.left - kGap || caret.x > ink.right + kGap) continue;
            return XOf(event) <= offset ? ink.right + kGap : ink.left - kGap;
        }
    return caret.x;
}

}  // namespace corvane
