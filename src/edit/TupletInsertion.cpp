// Tuplets: which events make one up, and what becomes of their time.
#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "edit/MeasureRedraw.h"
#include "edit/Spanners.h"
#include "edit/ToolState.h"
#include "layout/Beaming.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

using Group = std::vector<VoiceSymbol*>;
constexpr double kEpsilon = 0.001;  // thousandths of a whole note
constexpr int kMostParts = 99;

VoiceSymbol* NextEvent(const VoiceSymbol* symbol) {
    VoiceSymbol* next = voiceSymbols.Next(symbol);
    while (next && IsGrace(next)) next = voiceSymbols.Next(next);
    return next;
}

// Events of one voice that follow each other; grace chords stand between.
std::vector<Group> RunsOf(const std::vector<VoiceSymbol*>& symbols) {
    std::vector<Group> runs;
    for (VoiceSymbol* symbol : symbols) {
        if (IsGrace(symbol)) continue;
        if (runs.empty() || NextEvent(runs.back().back()) != symbol) runs.emplace_back();
        runs.back().push_back(symbol);
    }
    return runs;
}

double LengthOf(const Group& group) {
    double sum = 0;
    for (const VoiceSymbol* symbol : group) sum += Duration(symbol);
    return sum;
}

// Cuts a run into groups of `length`; none where an event lies across a cut, or would stand alone.
std::vector<Group> Cut(const Group& run, double length) {
    std::vector<Group> groups;
    double filled = length;
    for (VoiceSymbol* symbol : run) {
        if (filled > length - kEpsilon) {
            groups.emplace_back();
            filled = 0;
        }
        groups.back().push_back(symbol);
        filled += Duration(symbol);
        if (filled > length + kEpsilon) return {};
    }
    if (filled < length - kEpsilon) return {};
    for (const Group& group : groups)
        if (group.size() < 2) return {};
    return groups;
}

// The part is the shortest value that makes the groups come out even.
std::vector<Group> GroupsOf(const Group& run, int count) {
    const double whole = LengthOf(run);
    double part = whole;
    for (const VoiceSymbol* symbol : run)
        part = std::min(part, BaseFraction(ValueOf(symbol)) * TupletRatio(symbol));
    for (; part * count < whole + kEpsilon; part *= 2)
        if (std::vector<Group> groups = Cut(run, part * count); !groups.empty()) return groups;
    return {};
}

std::vector<Irregular*> TupletsOf(const VoiceSymbol* symbol) {
    std::vector<Irregular*> tuplets;
    for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
        if (const auto* mark = As<MarkIrreg>(attribute))
            if (Irregular* irregular = irregularMarks.ParentOf(mark)) tuplets.push_back(irregular);
    return tuplets;
}

Group EventsOf(const Irregular* irregular) {
    Group events;
    for (const MarkIrreg* mark : irregularMarks.Of(irregular))
        events.push_back(voiceSymbolAttributes.ParentOf(mark));
    return events;
}

// The tuplet of just these events; null for none.
Irregular* TupletOver(const Group& group) {
    for (Irregular* irregular : TupletsOf(group.front()))
        if (EventsOf(irregular) == group) return irregular;
    return nullptr;
}

// A tuplet that shares some events with the group, while each has others.
bool Overlaps(const Group& group) {
    const auto has = [](const Group& events, const VoiceSymbol* symbol) {
        return std::find(events.begin(), events.end(), symbol) != events.end();
    };
    for (const VoiceSymbol* symbol : group)
        for (const Irregular* irregular : TupletsOf(symbol)) {
            const Group events = EventsOf(irregular);
            const bool within =
                std::all_of(group.begin(), group.end(), [&](auto* s) { return has(events, s); });
            const bool around =
                std::all_of(events.begin(), events.end(), [&](auto* s) { return has(group, s); });
            if (!within && !around) return true;
        }
    return false;
}

void Take(Irregular* irregular, const TupletValue& value) {
    irregular->_count = static_cast<int16_t>(value.count);
    irregular->_inTimeOf = static_cast<int16_t>(value.inTimeOf);
    irregular->_figure = value.figure;
    irregular->_bracket = value.bracket;
}

void MakeTuplet(const Group& group, const TupletValue& value) {
    auto* irregular = Make<Irregular>();
    Take(irregular, value);
    for (VoiceSymbol* symbol : group) {
        auto* mark = Make<MarkIrreg>();
        voiceSymbolAttributes.Add(symbol, mark);
        irregularMarks.Add(irregular, mark);
    }
}

void ReleaseTuplet(Irregular* irregular) {
    while (MarkIrreg* mark = irregularMarks.First(irregular)) {
        irregularMarks.Remove(mark);
        voiceSymbolAttributes.Remove(mark);
        Release(mark);
    }
    Release(irregular);
}

// After the durations of a voice's events have changed.
void RetimeVoice(Voice* voice) {
    RebuildVoiceEvents(voice);
    if (Switches().autoSpace) SpaceVoice(voice);
    if (Switches().autoBeam) BeamVoice(voice);
}

bool IsSo(const Irregular* irregular, const TupletValue& value) {
    return irregular->_count == value.count && irregular->_inTimeOf == value.inTimeOf;
}

Status Refused(const std::string& why) { return {Fault::Refused, why}; }

Status Check(const std::vector<Group>& groups, size_t events, const TupletValue& value) {
    if (groups.empty() || events < 2)
        return Refused("The selected notes do not make up groups of " + std::to_string(value.count) +
                       " equal parts");
    for (const Group& group : groups)
        if (!TupletOver(group) && Overlaps(group)) return Refused("Tuplets cannot overlap each other");
    return Status::Ok();
}

}  // namespace

TupletValue UsualTuplet(const Document* document) {
    TupletValue value;
    const auto* preferences = Preferences<IrregPref>(document);
    if (!preferences) return value;
    value.count = std::clamp<int>(preferences->_count, 2, kMostParts);
    value.inTimeOf = std::clamp<int>(preferences->_inTimeOf, 1, kMostParts);
    value.figure = static_cast<TupletFigure>(std::min<uint8_t>(preferences->_figure, 3));
    value.bracket = static_cast<TupletBracket>(std::min<uint8_t>(preferences->_bracket, 2));
    return value;
}

Status MakeTuplets(WindowTarn& window, const std::vector<VoiceSymbol*>& symbols, const TupletValue& value) {
    if (value.count < 2 || value.count > kMostParts || value.inTimeOf < 1 || value.inTimeOf > kMostParts)
        return Refused("A tuplet has 2 to 99 parts in the time of 1 to 99");
    if (symbols.empty()) return Refused("Select the notes of the tuplet first");
    std::vector<Group> groups;
    for (const Group& run : RunsOf(symbols)) {
        const std::vector<Group> its = GroupsOf(run, value.count);
        if (const Status status = Check(its, run.size(), value); !status) return status;
        groups.insert(groups.end(), its.begin(), its.end());
    }
    if (groups.empty()) return Refused("Grace notes make up no tuplet");
    const bool dissolve = std::all_of(groups.begin(), groups.end(), [&](const Group& group) {
        const Irregular* there = TupletOver(group);
        return there && IsSo(there, value);
    });
    const EditStep step(window);
    for (const Group& group : groups) {
        Voice* voice = VoicePar(group.front());
        const MeasureRedraw redraw(window, MeasureStaffPar(voice));
        Irregular* there = TupletOver(group);
        if (dissolve)
            ReleaseTuplet(there);
        else if (there)
            Take(there, value);
        else
            MakeTuplet(group, value);
        RetimeVoice(voice);
    }
    return Status::Ok();
}

void DeleteIrregular(WindowTarn& window, Irregular* irregular) {
    const MarkIrreg* first = irregularMarks.First(irregular);
    Voice* voice = first ? VoicePar(voiceSymbolAttributes.ParentOf(first)) : nullptr;
    CORVANE_ASSERT(voice);
    const MeasureRedraw redraw(window, MeasureStaffPar(voice));
    ReleaseTuplet(irregular);
    RetimeVoice(voice);
}

}  // namespace corvane
