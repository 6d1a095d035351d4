// Directions, lengths and flags of stems.
#include <algorithm>

#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/HeadShapes.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/SymbolNames.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr int kFirstDownLine = 6;
constexpr int32_t kDefaultLength = 300;
// A grace note's stem in percent of a note's.
constexpr int32_t kGraceStem = 74;
// What tails of 32nds and shorter need beyond the preferred length, hundredths of a line distance a tail.
constexpr int32_t kLongTail = 70;

bool IsStemless(uint8_t value) { return value == 1 || value == kDoubleWhole; }
bool HasFlag(uint8_t value) { return value >= 8 && value != kDoubleWhole; }

uint8_t ValueOf(const Stem* stem) {
    const ChordSymbol* chordSymbol = ChordSymbolPar(stem);
    CORVANE_ASSERT_AS(chordSymbol, "chSym");
    return chordSymbol->_value;
}

bool IsAlone(const Voice* voice) {
    for (const Voice* other : measureStaffVoices.Of(MeasureStaffPar(voice)))
        if (other != voice && !voiceSymbols.IsEmpty(other)) return false;
    return true;
}

StemDirection Code(bool up, uint8_t value) {
    if (IsStemless(value)) return up ? StemDirection::HiddenUp : StemDirection::HiddenDown;
    return up ? StemDirection::Up : StemDirection::Down;
}

// Tails of 32nds and shorter make a stem longer; one far outside the staff reaches the middle line.
int32_t PreferredLength(const Stem* stem, const GenericNote* outer) {
    const auto* preferences = Preferences<StangPref>(DocumentPar(stem));
    int32_t length = preferences ? preferences->_stemLength.Get() : kDefaultLength;
    const uint8_t value = ValueOf(stem);
    for (int tail = 32; HasFlag(value) && tail <= value; tail *= 2) length += kLongTail;
    if (IsGrace(stem)) return length * kGraceStem / 100;
    return std::max(length, LengthToMiddleLine(outer, IsUp(stem->_direction)));
}

// Where a chord's stem points without a word of the person.
bool PointsUpByRule(const Chords* chord) {
    const Stem* stem = StemOf(chord);
    if (IsMultiStaff(stem)) return true;
    const Voice* voice = VoicePar(chord);
    if (StemsAreForced(voice)) return ForcedStemsUp(voice);
    const int middle = (stemNotes.First(stem)->_line + stemNotes.Last(stem)->_line) / 2;
    return IsGrace(chord) || middle < kFirstDownLine;
}

}  // namespace

bool StemsAreForced(const Voice* voice) {
    const auto* preferences = Preferences<VoicePref>(DocumentPar(voice));
    return (preferences && !preferences->_automaticStems) || !IsAlone(voice);
}

bool ForcedStemsUp(const Voice* voice) {
    const auto* preferences = Preferences<VoicePref>(DocumentPar(voice));
    return preferences ? preferences->ForcedUp(voice->_number) : voice->_number % 2 != 0;
}

StemDirection DefaultStemDirection(const Voice* voice, uint8_t value, int line) {
    return Code(StemsAreForced(voice) ? ForcedStemsUp(voice) : line < kFirstDownLine, value);
}

int32_t LengthToMiddleLine(const GenericNote* note, bool up) {
    const int middle = StaffPar(note)->_lineCount;
    return (up ? middle - note->_line : note->_line - middle) * 50;
}

void SetDefaultStemLength(Stem* stem) {
    const GenericNote* outer = NoteOuter(stem);
    if (!outer || IsLengthTold(stem)) return;
    int32_t length = PreferredLength(stem, outer);
    // Over several staves a length counts from the bottom line of the outer head's staff.
    if (IsMultiStaff(stem)) length += (outer->_line - 1) * (IsUp(stem->_direction) ? 50 : -50);
    stem->_length = length;
}

void Say(Stem* stem, uint8_t what, bool said) {
    const auto words = static_cast<uint8_t>(said ? stem->_said | what : stem->_said & ~what);
    if (stem->_said != words) stem->_said = words;
}

void RestemChord(Chords* chord) {
    Stem* stem = StemOf(chord);
    if (stemNotes.IsEmpty(stem)) return;
    PointStem(stem, IsPointed(stem) ? IsUp(stem->_direction) : PointsUpByRule(chord));
    SetDefaultStemLength(stem);
}

void PointChord(Chords* chord, bool up) {
    Stem* stem = StemOf(chord);
    if (stemNotes.IsEmpty(stem)) return;
    Say(stem, kSaidDirection, PointsUpByRule(chord) != up);
    PointStem(stem, up);
    SetDefaultStemLength(stem);
}

void RestemVoice(Voice* voice) {
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice))
        if (auto* chord = As<Chords>(symbol); chord && !BeamOf(StemOf(chord))) RestemChord(chord);
    RefitBeamsOf(voice);
}

void ChangeStemDirection(Stem* stem, StemDirection direction) {
    SetDirection(stem, direction);
    Document* document = DocumentPar(stem);
    for (BeamSymbolAttribute* attribute : beamSymbolAttributes.Of(stem))
        if (auto* flag = As<Flag>(attribute))
            ChangeSymbol(document, flag->_symbol, FlagName(ValueOf(stem), IsUp(direction), IsGrace(stem)));
}

void PointStem(Stem* stem, bool up) {
    if (IsVisible(stem->_direction)) return ChangeStemDirection(stem, Code(up, ValueOf(stem)));
    ChangeStemDirection(stem, up ? StemDirection::HiddenUp : StemDirection::HiddenDown);
}

void ChangeValue(ChordSymbol* column, uint8_t value) {
    const bool hadStem = !IsStemless(column->_value);
    Document* document = DocumentPar(column);
    column->_value = value;
    for (Stem* stem : chordSymbolStems.Of(column)) {
        const bool grace = IsGrace(stem), shown = !hadStem || IsVisible(stem->_direction);
        RemoveFlag(stem);
        for (GenericNote* note : stemNotes.Of(stem))
            if (ShowsValue(note)) ChangeSymbol(document, note->_symbol, HeadNameOf(value, grace));
        ChangeStemDirection(stem, Code(IsUp(stem->_direction), shown ? value : kDoubleWhole));
        AttachFlag(stem, value);
    }
}

Flag* AttachFlag(Stem* stem, uint8_t value) {
    if (!HasFlag(value)) return nullptr;
    auto* flag = Make<Flag>();
    beamSymbolAttributes.Add(stem, flag);
    flag->_symbol = LookupSymbol(DocumentPar(stem), FlagName(value, IsUp(stem->_direction), IsGrace(stem)));
    return flag;
}

void RemoveFlag(Stem* stem) {
    Flag* flag = FlagOf(stem);
    if (!flag) return;
    DropSymbol(DocumentPar(stem), flag->_symbol);
    beamSymbolAttributes.Remove(flag);
    Release(flag);
}

}  // namespace corvane
