#include "edit/BeamOptions.h"

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
    ChangeScore(window, [&] {
        choose(*Preferences<NotePref>(window.GetDocument()));
        if (anew) ForEachVoice(document, [](Voice* voice) { BeamVoice(voice); });
    });
    return Status::Ok();
}

Status ChooseDistances(WindowTarn& window, const std::function<void(NotePref&, StangPref&)>& choose) {
    Document* document = window.GetDocument();
    ChangeScore(window, [&] {
        auto& notes = *Preferences<NotePref>(document);
        auto& stems = *Preferences<StangPref>(document);
        const int32_t length = stems._stemLength;
        const uint8_t scope = notes._accidentalScope;
        choose(notes, stems);
        const bool restem = stems._stemLength != length;
        ForEachVoice(document, [&](Voice* voice) { restem ? RestemVoice(voice) : RefitBeamsOf(voice); });
        if (notes._accidentalScope != scope) ForEachCrossing(document, RedoAccidentals);
    });
    return Status::Ok();
}

Status ChooseStems(WindowTarn& window, const std::function<void(VoicePref&)>& choose) {
    Document* document = window.GetDocument();
    ChangeScore(window, [&] {
        choose(*Preferences<VoicePref>(document));
        ForEachVoice(document, RestemVoice);
    });
    return Status::Ok();
}

Status ChooseLooks(WindowTarn& window, const std::function<void(Document*)>& choose) {
    ChangeScore(window, [&] { choose(window.GetDocument()); });
    return Status::Ok();
}

void RefitAllBeams(WindowTarn& window) {
    const Document* document = window.GetDocument();
    if (HasBeam(document)) ChangeScore(window, [&] { ForEachVoice(document, RefitBeamsOf); });
}

}  // namespace corvane
