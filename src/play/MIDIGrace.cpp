#include "play/MIDIGrace.h"

#include <algorithm>
#include <cmath>

#include "base/Rounding.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

// How the score wants grace notes played; what a new score says where it has no word on it.
struct GraceSettings {
    bool beforeBeat = false;
    int percentAssigned = 80, percentCut = 50;
};

GraceSettings SettingsOf(const Document* document) {
    const auto* preferences =
        document ? static_cast<GracePref*>(FindPreferences(document, "GracePref")) : nullptr;
    if (!preferences) return {};
    return {preferences->_mode == GracePref::kPrecedingNote, preferences->_percentAssigned,
            preferences->_percentCut};
}

GraceChord* AsGrace(VoiceSymbol* symbol) { return As<GraceChord>(symbol); }

// The chord beside a group, null for a rest or the end of the voice.
Chords* AsNeighbour(VoiceSymbol* symbol) { return symbol && !IsGrace(symbol) ? As<Chords>(symbol) : nullptr; }

struct Group {
    GraceChord *first, *last;

    explicit Group(GraceChord* member) : first(member), last(member) {
        CORVANE_ASSERT_AS(member, "graceChord");
        while (GraceChord* g = AsGrace(voiceSymbols.Next(last))) last = g;
        // Only forward: a look back is linear in the voice.
        GraceChord* begin = nullptr;
        for (VoiceSymbol* symbol : voiceSymbols.Of(VoicePar(member))) {
            GraceChord* g = AsGrace(symbol);
            begin = !g ? nullptr : begin ? begin : g;
            if (symbol == member) break;
        }
        first = begin;
    }

    template <class Do>
    void ForEach(Do&& act) const {
        for (VoiceSymbol* symbol = first;; symbol = voiceSymbols.Next(symbol)) {
            act(AsGrace(symbol));
            if (symbol == last) return;
        }
    }

    Chords* Before() const { return AsNeighbour(voiceSymbols.Prev(first)); }
    Chords* Behind() const { return AsNeighbour(voiceSymbols.Next(last)); }
    bool TakesFromBefore() const { return first->_beforeBeat; }
    Chords* Cut() const { return TakesFromBefore() ? Before() : Behind(); }
};

// Whole notes.
double WholeNotes(const VoiceSymbol* symbol) { return Duration(symbol) * 0.001; }

// Place of a time counted in whole notes from the start of the measure.
TimePlace PlaceAt(const Measure* measure, double time) {
    const double beats = measure->_den * time;
    return {Truncate(beats + 1.0), Truncate((beats - std::trunc(beats)) * kClocksPerBeat)};
}

// What a group takes, and from whom.
struct Theft {
    Chords* from;
    double total, stolen, start;  // whole notes
};

Theft TheftOf(const Group& group) {
    Theft theft{group.Cut(), 0, 0, 0};
    if (!theft.from) return theft;
    group.ForEach([&](const GraceChord* g) { theft.total += WholeNotes(g); });
    const double most = WholeNotes(theft.from);  // also where a file asks for more
    theft.stolen = std::clamp(
        std::min(group.first->_percentCut * most * 0.01, group.first->_percentAssigned * theft.total * 0.01),
        0.0, most);
    theft.start = OnsetOf(group.first) * 0.001 - (group.TakesFromBefore() ? theft.stolen : 0);
    return theft;
}

// The chord that a group takes from gives way.
void ApplyCut(const Group& group) {
    const Theft theft = TheftOf(group);
    if (!theft.from) return;
    const Measure* measure = MeasurePar(theft.from);
    const bool before = group.TakesFromBefore();
    const TimePlace place = PlaceAt(measure, before ? theft.start : theft.start + theft.stolen);
    for (GenericNote* note : chordNotes.Of(theft.from)) {
        SoundEvent* event = nullptr;
        if (before)
            event = NoteOffOf(note);
        else
            event = NoteOnOf(note);
        if (event) MoveEvent(event, place);
    }
}

void AddEvents(const Group& group) {
    const Theft theft = TheftOf(group);
    if (!theft.from || theft.stolen <= 0) return;
    const Measure* measure = MeasurePar(group.first);
    double time = theft.start;
    group.ForEach([&](GraceChord* g) {
        const double end = time + WholeNotes(g) * theft.stolen / theft.total;
        for (GenericNote* note : chordNotes.Of(g)) {
            CORVANE_ASSERT_AS(As<Grace>(note), "dynamic_cast<Grace*>((GenericNote*)noteCrd)");
            MakeNoteOn(note, PlaceAt(measure, time));
            MakeNoteOff(note, PlaceAt(measure, end));
        }
        time = end;
    });
    ApplyCut(group);
}

// Lets a neighbour sound in full, but for what a group beyond it takes.
void RenewNeighbour(Chords* chord, VoiceSymbol* beyond, bool beyondIsBefore) {
    if (!chord) return;
    RenewChordEvents(chord);
    GraceChord* g = AsGrace(beyond);
    if (g && static_cast<bool>(g->_beforeBeat) != beyondIsBefore) ApplyCut(Group(g));
}

void CopySettings(const Group& group) {
    const GraceSettings settings = SettingsOf(DocumentPar(group.first));
    group.ForEach([&](GraceChord* g) {
        g->_beforeBeat = settings.beforeBeat;
        g->_percentAssigned = static_cast<int16_t>(settings.percentAssigned);
        g->_percentCut = static_cast<int16_t>(settings.percentCut);
    });
}

void RemoveEvents(const Group& group) {
    group.ForEach([](const GraceChord* g) {
        for (GenericNote* note : chordNotes.Of(g)) RemoveNoteEvents(note);
    });
    if (Chords* chord = group.Before()) RenewNeighbour(chord, voiceSymbols.Prev(chord), true);
    if (Chords* chord = group.Behind()) RenewNeighbour(chord, voiceSymbols.Next(chord), false);
}

}  // namespace

void MakeGraceEvents(GraceChord* member) {
    const Group group(member);
    CopySettings(group);
    RemoveEvents(group);
    AddEvents(group);
}

void RemoveGraceEvents(GraceChord* member) { RemoveEvents(Group(member)); }

void AddAllGraceEvents(Voice* voice) {
    const VoiceSymbol* before = nullptr;
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        GraceChord* g = AsGrace(symbol);
        if (g && !(before && IsGrace(before))) AddEvents(Group(g));
        before = symbol;
    }
}

}  // namespace corvane
