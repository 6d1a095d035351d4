#include "edit/Respacing.h"

#include "layout/NotePitches.h"
#include "layout/Spacing.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {

void Respace(Voice* voice) {
    if (SpaceVoice(voice)) HearAsRead(MeasureStaffPar(voice));
}

void HearAsRead(MeasureStaff* crossing) {
    bool hasClef = false;
    for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
        hasClef |= As<MovingClaf>(symbol) != nullptr;
    if (!hasClef) return;
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
            if (const auto* chord = As<Chords>(symbol))
                for (GenericNote* note : chordNotes.Of(chord)) UpdateNoteHeight(note);
    RedoAccidentals(crossing);
}

}  // namespace corvane
