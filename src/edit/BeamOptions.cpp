#include "edit/BeamOptions.h"

#include <optional>

#include "edit/SystemRedraw.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/NotePitches.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

template <class Visit>
void ForEachCrossing(const Document* document, Visit visit) {
    for (const DocStaff* docStaff : documentDocStaffs.Of(document))
        for (MeasureStaff* crossing : docStaffMeasureStaffs.Of(docStaff))
            if (crossing->_staff) visit(crossing);
}

template <class Visit>
void ForEachVoice(const Document* document, Visit visit) {
    ForEachCrossing(document, [&](const MeasureStaff* crossing) {
        for (Voice* voice : measureStaffVoices.Of(crossing)) visit(voice);
    });
}

// One step in which anything of the score's notes may change.
template <class Change>
Status ChangeScore(WindowTarn& window, Change change) {
    Measure *first = FirstMeasure(window.GetDocument()), *last = LastMeasure(window.GetDocument());
    const EditStep step(window);
    std::optional<SystemRedraw> redraw;
    if (first) redraw.emplace(window, first, last);
    change();
    return Status::Ok();
}

bool HasBeam(const Document* document) {
    bool any = false;
    ForEachVoice(document, [&](const Voice* voice) {
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) any = any || BeamOf(BeamSymbolOf(symbol));
    });
    return any;
}

}  // namespace

Status ChooseBeams(WindowTarn& window, bool anew, const std::function<void(NotePref&)>& choose) {
    const Document* document = window.GetDocument();
    return ChangeScore(window, [&] {
        choose(*Preferences<NotePref>(window.GetDocument()));
        if (anew) ForEachVoice(document, [](Voice* voice) { BeamVoice(voice); });
    });
}

Status ChooseDistances(WindowTarn& window, const std::function<void(NotePref&, StangPref&)>& choose) {
    Document* document = window.GetDocument();
    return ChangeScore(window, [&] {
        auto& notes = *Preferences<NotePref>(document);
        auto& stems = *Preferences<StangPref>(document);
        const int32_t length = stems._stemLength;
        const uint8_t scope = notes._accidentalScope;
        choose(notes, stems);
        const bool restem = stems._stemLength != length;
        ForEachVoice(document, [&](Voice* voice) { restem ? RestemVoice(voice) : RefitBeamsOf(voice); });
        if (notes._accidentalScope != scope) ForEachCrossing(document, RedoAccidentals);
    });
}

Status ChooseStems(WindowTarn& window, const std::function<void(VoicePref&)>& choose) {
    Document* document = window.GetDocument();
    return ChangeScore(window, [&] {
        choose(*Preferences<VoicePref>(document));
        ForEachVoice(document, RestemVoice);
    });
}

Status ChooseLooks(WindowTarn& window, const std::function<void(Document*)>& choose) {
    return ChangeScore(window, [&] { choose(window.GetDocument()); });
}

void RefitAllBeams(WindowTarn& window) {
    const Document* document = window.GetDocument();
    if (HasBeam(document)) (void)ChangeScore(window, [&] { ForEachVoice(document, RefitBeamsOf); });
}

}  // namespace corvane
