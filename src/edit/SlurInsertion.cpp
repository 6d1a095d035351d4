// Slurs between events of one voice.
#include <algorithm>
#include <map>
#include <utility>

#include "edit/Insertion.h"
#include "edit/SpannerSteps.h"
#include "edit/Spanners.h"
#include "layout/SlurShape.h"
#include "layout/SpannerMarks.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

bool IsBehind(const VoiceSymbol* a, const VoiceSymbol* b) {
    const Measure *first = MeasurePar(b), *second = MeasurePar(a);
    if (first != second) return second->_number > first->_number;
    for (const VoiceSymbol* symbol = voiceSymbols.Next(b); symbol; symbol = voiceSymbols.Next(symbol))
        if (symbol == a) return true;
    return false;
}

Status Check(const VoiceSymbol* first, const VoiceSymbol* last) {
    if (DocStaffPar(first) != DocStaffPar(last) || VoicePar(first)->_number != VoicePar(last)->_number)
        return {Fault::Refused, "A slur joins notes of one voice on one staff"};
    if (!IsBehind(last, first)) return {Fault::Refused, "A slur needs two notes"};
    return Status::Ok();
}

MarkSlur* SlurBetween(const VoiceSymbol* first, const VoiceSymbol* last) {
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(MeasureStaffPar(first)))
        if (auto* mark = As<MarkSlur>(symbol)) {
            const Slur* slur = slurMarks.ParentOf(mark);
            if (FirstEventOf(slur) == first && LastEventOf(slur) == last) return mark;
        }
    return nullptr;
}

// Within the caller's step.
void SetSlur(WindowTarn& window, VoiceSymbol* first, VoiceSymbol* last, SlurSide side) {
    if (MarkSlur* there = SlurBetween(first, last)) return DeleteSpanner(window, there);
    auto* slur = Make<Slur>();
    slur->_first = first;
    slur->_last = last;
    slur->_side = static_cast<int32_t>(side);
    MakeMarks<MarkSlur>(slurMarks, slur, MeasureStaffPar(first), MeasureStaffPar(last));
    SettleMarks(slurMarks.First(slur));
    FileMarks(window, slurMarks.First(slur));
}

VoiceSymbol* EventOfStaffAt(WindowTarn& window, Point p, int voice) {
    const DrawPatch patch = EventUnder(window, p);
    if (!patch) return nullptr;
    if (auto* pause = patch.Record<Pause>()) return pause;
    auto* column = patch.Record<ChordSymbol>();
    if (!column) return nullptr;
    for (Chords* chord : chordSymbolChords.Of(column))
        if (VoicePar(chord)->_number == voice) return chord;
    return chordSymbolChords.First(column);
}

}  // namespace

Status InsertSlur(WindowTarn& window, VoiceSymbol* first, VoiceSymbol* last, SlurSide side) {
    if (const Status status = Check(first, last); !status) return status;
    const EditStep step(window);
    SetSlur(window, first, last, side);
    return Status::Ok();
}

Status InsertSlurs(WindowTarn& window, const std::vector<VoiceSymbol*>& symbols, SlurSide side) {
    std::map<std::pair<const DocStaff*, int>, std::pair<VoiceSymbol*, VoiceSymbol*>> ends;
    for (VoiceSymbol* symbol : symbols) {
        if (As<Pause>(symbol)) continue;
        const auto voice = std::pair<const DocStaff*, int>(DocStaffPar(symbol), VoicePar(symbol)->_number);
        const auto [found, isNew] = ends.try_emplace(voice, symbol, symbol);
        if (!isNew) found->second.second = symbol;
    }
    std::erase_if(ends, [](const auto& each) { return each.second.first == each.second.second; });
    if (ends.empty()) return {Fault::Refused, "Select at least two notes of a voice"};
    const EditStep step(window);
    for (const auto& [voice, pair] : ends) SetSlur(window, pair.first, pair.second, side);
    return Status::Ok();
}

void SlurStroke(WindowTarn& window, const PaletteItem&, Point from, Point to, int voice) {
    VoiceSymbol* first = EventOfStaffAt(window, from, voice);
    if (!first) return window.Shell().Tell("Draw a slur from a note to a later one.");
    VoiceSymbol* last = EventOfStaffAt(window, to, VoicePar(first)->_number);
    if (last && IsBehind(first, last)) std::swap(first, last);
    if (!last || last == first) last = voiceSymbols.Next(first);
    const Status status =
        last ? InsertSlur(window, first, last) : Status{Fault::Refused, "Draw the slur to a later note."};
    if (!status) window.Shell().Tell(status.message());
}

void DeleteSlursAt(WindowTarn& window, const VoiceSymbol* symbol) {
    const MeasureStaff* crossing = MeasureStaffPar(symbol);
    const auto endsThere = [&](StaffMeasureSymbol* each) {
        const auto* mark = As<MarkSlur>(each);
        const Slur* slur = mark ? slurMarks.ParentOf(mark) : nullptr;
        return slur && (slur->_first.Get() == symbol || slur->_last.Get() == symbol);
    };
    for (bool found = true; found;) {
        found = false;
        for (StaffMeasureSymbol* each : staffSymbols.Of(crossing))
            if (endsThere(each)) {
                DeleteSpanner(window, each);
                found = true;
                break;
            }
    }
}

}  // namespace corvane
