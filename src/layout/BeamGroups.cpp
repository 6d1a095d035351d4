#include "layout/BeamGroups.h"

#include "base/Assert.h"
#include "base/Rounding.h"
#include "layout/Beaming.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int kFull = 3, kEighthLevel = 1, kLargerValue = 2, kNone = 0;

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
    return choice == SevenGroups::All ? -1 : GroupByPattern(beat, choice == SevenGroups::FourThree ? 4 : 3, 7);
}

// False for a meter whose beats never connect.
bool GroupOf(const NotePref& pref, int numerator, int beat, int& group) {
    if (numerator % 6 == 0) group = CompositeGroup(pref._composite, beat);
    else if (numerator % 3 == 0) group = TernaryGroup(pref._ternary, beat);
    else if (numerator % 2 == 0) group = BinaryGroup(pref._binary, beat);
    else if (numerator == 5) group = FiveGroup(pref._five, beat);
    else if (numerator == 7) group = SevenGroup(pref._seven, beat);
    else return false;
    return true;
}

// An event with its place in time.
struct Timed {
    VoiceSymbol* symbol;
    int beat;  // from 1
};

bool CanBeam(const VoiceSymbol* symbol) {
    const uint8_t value = ValueOf(symbol);
    return value >= 8 && value != kDoubleWhole;
}

BeamSymbol* BeamSymbolOf(VoiceSymbol* symbol) {
    if (auto* pause = As<Pause>(symbol)) return pause;
    return StemOf(As<Chords>(symbol));
}

// Collects groups from a row of events.
class Grouping {
public:
    explicit Grouping(const Voice* voice)
        : _document(DocumentPar(voice)), _pref(Preferences<NotePref>(_document)), _measure(MeasurePar(voice)) {}

    std::vector<BeamGroup> Of(const Voice* voice) {
        std::vector<Timed> row;
        std::vector<VoiceSymbol*> graces;
        double sum = 0;
        const int denominator = EffectiveDenominator(_measure->_den);
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            if (IsGrace(symbol)) {
                graces.push_back(symbol);
                continue;
            }
            TakeGraces(graces);
            row.push_back({symbol, Truncate(denominator * sum * 0.001 + 1e-9) + 1});
            sum += Duration(symbol);
        }
        TakeGraces(graces);
        TakeRow(row);
        return std::move(_groups);
    }

private:
    // A run of short grace chords is a group of its own.
    void TakeGraces(std::vector<VoiceSymbol*>& graces) {
        BeamGroup group;
        for (VoiceSymbol* grace : graces) {
            if (!CanBeam(grace)) Close(group);
            else Append(group, grace, kFull);
        }
        Close(group);
        graces.clear();
    }

    void TakeRow(const std::vector<Timed>& row) {
        BeamGroup group;
        for (size_t i = 0; i < row.size(); ++i) {
            const VoiceSymbol* symbol = row[i].symbol;
            const bool rest = As<Pause>(symbol) != nullptr;
            if (!CanBeam(symbol) || (rest && !MayHoldRest(group, row, i))) {
                Close(group);
                continue;
            }
            const int code = group.empty() ? kNone : Connection(row[i - 1].beat, row[i].beat);
            if (code == kNone) Close(group);
            if (rest && group.empty()) continue;
            Append(group, row[i].symbol, code);
        }
        Close(group);
    }

    int Connection(int before, int beat) const {
        return beat == before ? kFull : BeatConnection(_document, beat, before, _measure->_num);
    }

    // A rest stays under a beam only between notes of its group, and only where groups are completed.
    bool MayHoldRest(const BeamGroup& group, const std::vector<Timed>& row, size_t i) const {
        if (group.empty() || !_pref || _pref->_completion != Completion::Complete) return false;
        for (size_t j = i + 1; j < row.size() && CanBeam(row[j].symbol); ++j) {
            if (Connection(row[j - 1].beat, row[j].beat) == kNone) return false;
            if (!As<Pause>(row[j].symbol)) return true;
        }
        return false;
    }

    static void Append(BeamGroup& group, VoiceSymbol* symbol, int code) {
        if (!group.empty()) group.back().connection = code;
        group.push_back({BeamSymbolOf(symbol), ValueOf(symbol), kNone});
    }
    void Close(BeamGroup& group) {
        if (!group.empty()) _groups.push_back(group);
        group.clear();
    }

    const Document* _document;
    const NotePref* _pref;
    const Measure* _measure;
    std::vector<BeamGroup> _groups;
};

}  // namespace

int BeatConnection(const Document* document, int beat, int before, int numerator) {
    CORVANE_ASSERT_AS(beat - before >= 1, "beatNumber - beatNumberPrec >= 1");
    const auto* pref = Preferences<NotePref>(document);
    int group = 0, groupBefore = 0;
    if (!pref || !GroupOf(*pref, numerator, beat, group)) return kNone;
    GroupOf(*pref, numerator, before, groupBefore);
    if (group == groupBefore) return kFull;
    switch (pref->_subGroups.Get()) {
        case SubGroups::ByEighthBeam: return kEighthLevel;
        case SubGroups::ByLargerValue: return kLargerValue;
        case SubGroups::NotConnected: return kNone;
    }
    return kNone;
}

std::vector<BeamGroup> BeamGroupsOf(const Voice* voice) { return Grouping(voice).Of(voice); }

}  // namespace corvane
