#include "edit/EventStops.h"

#include <algorithm>

#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {

std::vector<VoiceSymbol*> EventsFromLeft(const MeasureStaff* crossing, int voice) {
    std::vector<VoiceSymbol*> events;
    for (const Voice* own : measureStaffVoices.Of(crossing))
        if (!voice || own->_number == voice)
            for (VoiceSymbol* symbol : voiceSymbols.Of(own)) events.push_back(symbol);
    std::stable_sort(events.begin(), events.end(),
                     [](const VoiceSymbol* a, const VoiceSymbol* b) { return XOf(a) < XOf(b); });
    return events;
}

int32_t MiddleOf(const VoiceSymbol* event) {
    const auto* chord = As<Chords>(event);
    const Rect ink = chord ? RectOf(chordNotes.First(chord)) : RectOf(As<Pause>(event));
    return (ink.left + ink.right) / 2;
}

MeasureStaff* ShownBeside(const MeasureStaff* crossing, bool behind) {
    MeasureStaff* beside = behind ? NextOnStaff(crossing) : PrevOnStaff(crossing);
    while (beside && !beside->_staff.Get()) beside = behind ? NextOnStaff(beside) : PrevOnStaff(beside);
    return beside;
}

MeasureStaff* ShownAbove(const MeasureStaff* crossing, bool above) {
    const Measure* measure = MeasurePar(crossing);
    const DocStaff* staff = DocStaffPar(crossing);
    while ((staff = above ? documentDocStaffs.Prev(staff) : documentDocStaffs.Next(staff)))
        if (MeasureStaff* there = MeasureStaffAt(measure, staff); there && there->_staff.Get()) return there;
    return nullptr;
}

MeasureStaff* FirstShown(const Page* page) {
    for (const System* system : pageSystems.Of(page))
        for (const Measure* measure : systemMeasures.Of(system))
            for (MeasureStaff* crossing : measureStaffs.Of(measure))
                if (crossing->_staff.Get()) return crossing;
    return nullptr;
}

}  // namespace corvane
