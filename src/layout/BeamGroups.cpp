#include "layout/BeamGroups.h"

#include <algorithm>
#include <iterator>

#include "base/Assert.h"
#include "base/Rounding.h"
#include "layout/Beaming.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

// The group, from 0, of each beat of a pattern; beats repeat after its length.
int GroupByPattern(int beat, int first, int length) {
    const int bar = (beat - 1) / length, place = (beat - 1) % length;
    return 2 * bar + (place < first ? 0 : 1);
}

// Group numbers of beats by the choices of the dialog; -1 where all beats are one group.
int BinaryGroup(BinaryGroups choice, int beat) {
    if (choice == BinaryGroups::All) return -1;
    return choice == BinaryGroups::TwoBeats ? (beat - 1) / 2 : beat;
}
int TernaryGroup(TernaryGroups choice, int beat) { return choice == TernaryGroups::All ? -1 : beat; }
int CompositeGroup(CompositeGroups choice, int beat) {
    if (choice == CompositeGroups::All) return -1;
    return (beat - 1) / (choice == CompositeGroups::TwoBeats ? 2 : 3);
}
int FiveGroup(FiveGroups choice, int beat) {
    return choice == FiveGroups::All ? -1 : GroupByPattern(beat, choice == FiveGroups::TwoThree ? 2 : 3, 5);
}
int SevenGroup(SevenGroups choice, int beat) {
    return choice == SevenGroups::All ? -1
                                      : GroupByPattern(beat, choice == SevenGroups::FourThree ? 4 : 3, 7);
}

// False for a meter whose beats never connect.
bool GroupOf(const NotePref& pref, int numerator, int beat, int& group) {
    if (numerator % 6 == 0)
        group = CompositeGroup(pref._composite, beat);
    else if (numerator % 3 == 0)
        group = TernaryGroup(pref._ternary, beat);
    else if (numerator % 2 == 0)
        group = BinaryGroup(pref._binary, beat);
    else if (numerator == 5)
        group = FiveGroup(pref._five, beat);
    else if (numerator == 7)
        group = SevenGroup(pref._seven, beat);
    else
        return false;
    return true;
}

// An event with its place in time.
struct Timed {
    VoiceSymbol* symbol;
    int beat;  // from 1
};

// A sum of thirds may fall short of the beat that it reaches.
constexpr double kBeatTolerance = 1e-9;

bool IsStem(const BeamMember& member) { return As<Stem>(member.symbol) != nullptr; }

bool WantsToBeAlone(VoiceSymbol* symbol) {
    const auto* stem = As<Stem>(BeamSymbolOf(symbol));
    return stem && (stem->_said & kSaidAlone);
}

// Rests complete the part of a group in which a note stands; parts of rests alone fall off at both ends.
BeamGroup WithoutEmptyEnds(const BeamGroup& group) {
    auto first = std::find_if(group.begin(), group.end(), IsStem);
    auto end = std::find_if(group.rbegin(), group.rend(), IsStem).base();
    if (first == group.end()) return {};
    while (first != group.begin() && std::prev(first)->connection == kFullConnection) --first;
    while (end != group.end() && std::prev(end)->connection == kFullConnection) ++end;
    BeamGroup kept(first, end);
    kept.back().connection = kNotConnected;
    return kept;
}

// Collects the groups of one voice by its meter.
class Grouping {
public:
    explicit Grouping(const Voice* voice) : _document(DocumentPar(voice)), _measure(MeasurePar(voice)) {
        const auto* pref = Preferences<NotePref>(_document);
        _withRests = pref && pref->_completion == Completion::Complete;
    }

    std::vector<BeamGroup> Of(const Voice* voice) {
        std::vector<Timed> row;
        double sum = 0;
        const int denominator = EffectiveDenominator(_measure->_den);
        BeamGroup graces;
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            if (IsGrace(symbol)) {
                Take(graces, symbol, kFullConnection);
                continue;
            }
            Close(graces);
            row.push_back({symbol, Truncate(denominator * sum * 0.001 + kBeatTolerance) + 1});
            sum += Duration(symbol);
        }
        Close(graces);
        TakeRow(row);
        return std::move(_groups);
    }

private:
    void TakeRow(const std::vector<Timed>& row) {
        BeamGroup group;
        for (size_t i = 0; i < row.size(); ++i)
            Take(group, row[i].symbol,
                 group.empty() ? kNotConnected : Connection(row[i - 1].beat, row[i].beat));
        Close(group);
    }

    int Connection(int before, int beat) const {
        return beat == before ? kFullConnection : BeatConnection(_document, beat, before, _measure->_num);
    }

    // Goes on with a group, or ends it where the event does not connect.
    void Take(BeamGroup& group, VoiceSymbol* symbol, int connection) {
        const bool takes =
            CanBeam(symbol) && !IsFixed(BeamOf(BeamSymbolOf(symbol))) && (_withRests || !As<Pause>(symbol));
        const bool alone = takes && WantsToBeAlone(symbol);
        if (!takes || alone || connection == kNotConnected) Close(group);
        if (!takes) return;
        if (!group.empty()) group.back().connection = connection;
        group.push_back({BeamSymbolOf(symbol), ValueOf(symbol), kNotConnected});
        if (alone) Close(group);
    }

    void Close(BeamGroup& group) {
        if (BeamGroup kept = WithoutEmptyEnds(group); !kept.empty()) _groups.push_back(std::move(kept));
        group.clear();
    }

    const Document* _document;
    const Measure* _measure;
    bool _withRests;
    std::vector<BeamGroup> _groups;
};

// Collects runs of chosen events, main ones and grace chords apart.
class Runs {
public:
    void Take(VoiceSymbol* symbol, bool chosen) {
        if (!IsGrace(symbol)) Close(_graces);
        BeamGroup& run = IsGrace(symbol) ? _graces : _mains;
        if (!chosen || !CanBeam(symbol)) return Close(run);
        if (!run.empty()) run.back().connection = kFullConnection;
        run.push_back({BeamSymbolOf(symbol), ValueOf(symbol), kNotConnected});
    }
    std::vector<BeamGroup> Done() {
        Close(_graces);
        Close(_mains);
        return std::move(_runs);
    }

private:
    void Close(BeamGroup& run) {
        const auto first = std::find_if(run.begin(), run.end(), IsStem);
        const auto end = std::find_if(run.rbegin(), run.rend(), IsStem).base();
        if (first != run.end()) _runs.emplace_back(first, end);
        if (first != run.end()) _runs.back().back().connection = kNotConnected;
        run.clear();
    }

    BeamGroup _mains, _graces;
    std::vector<BeamGroup> _runs;
};

template <class Step>
VoiceSymbol* NeighbourUnderBeam(const VoiceSymbol* symbol, Step step) {
    VoiceSymbol* other = step(symbol);
    if (IsGrace(symbol)) return other && IsGrace(other) ? other : nullptr;
    while (other && IsGrace(other)) other = step(other);
    return other;
}

}  // namespace

VoiceSymbol* NextUnderBeam(const VoiceSymbol* symbol) {
    return NeighbourUnderBeam(symbol, [](const VoiceSymbol* s) { return voiceSymbols.Next(s); });
}

VoiceSymbol* PrevUnderBeam(const VoiceSymbol* symbol) {
    return NeighbourUnderBeam(symbol, [](const VoiceSymbol* s) { return voiceSymbols.Prev(s); });
}

VoiceSymbol* EventAt(const BeamSymbol* symbol, const Voice* voice) {
    if (const auto* pause = As<Pause>(symbol)) return const_cast<Pause*>(pause);
    for (const GenericNote* note : stemNotes.Of(As<Stem>(symbol)))
        if (VoicePar(note) == voice) return ChordPar(note);
    return nullptr;
}

bool CanBeam(VoiceSymbol* symbol) {
    const uint8_t value = ValueOf(symbol);
    if (value < 8 || value == kDoubleWhole) return false;
    const auto* stem = As<Stem>(BeamSymbolOf(symbol));
    return !stem || !IsMultiStaff(stem);
}

bool IsFixed(const Beam* beam) { return beam && (beam->_kept == 1 || As<CrossBeam>(beam)); }

BeamSymbol* BeamSymbolOf(VoiceSymbol* symbol) {
    if (auto* pause = As<Pause>(symbol)) return pause;
    return StemOf(As<Chords>(symbol));
}

int BeatConnection(const Document* document, int beat, int before, int numerator) {
    CORVANE_ASSERT_AS(beat - before >= 1, "beatNumber - beatNumberPrec >= 1");
    const auto* pref = Preferences<NotePref>(document);
    int group = 0, groupBefore = 0;
    if (!pref || !GroupOf(*pref, numerator, beat, group)) return kNotConnected;
    GroupOf(*pref, numerator, before, groupBefore);
    if (group == groupBefore) return kFullConnection;
    switch (pref->_subGroups.Get()) {
        case SubGroups::ByEighthBeam:
            return kEighthLevel;
        case SubGroups::ByLargerValue:
            return kLargerValue;
        case SubGroups::NotConnected:
            return kNotConnected;
    }
    return kNotConnected;
}

std::vector<BeamGroup> BeamGroupsOf(const Voice* voice) { return Grouping(voice).Of(voice); }

std::vector<BeamGroup> BeamRunsOf(const Voice* voice, const ChosenEvents& chosen) {
    Runs runs;
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) runs.Take(symbol, chosen.count(symbol) != 0);
    return runs.Done();
}

}  // namespace corvane
