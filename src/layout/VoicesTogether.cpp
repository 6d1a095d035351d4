#include "layout/VoicesTogether.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "layout/SymbolInk.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int32_t kSamePlace = 3;  // per mille of the note area
constexpr int32_t kBetween = 10;   // hundredths of a line distance, between columns that cross
constexpr int kStemSteps = 7;      // that a stem reaches beyond its head
constexpr int kFilledFrom = 4;     // heads of quarters and shorter notes look alike

bool IsAlone(const MeasureStaff* crossing) {
    return measureStaffVoices.First(crossing) == measureStaffVoices.Last(crossing);
}

int KindOfHead(const Chords* chord) {
    const int value = ValueOf(chord);
    return value >= kFilledFrom && value != kDoubleWhole ? kFilledFrom : value;
}

struct Lines {
    int low = INT16_MAX, high = INT16_MIN;
    bool Any() const { return low <= high; }
};
Lines LinesOf(const Chords* chord, const Staff* staff) {
    Lines lines;
    for (const GenericNote* note : chordNotes.Of(chord))
        if (StaffPar(note) == staff) {
            lines.low = std::min<int>(lines.low, note->_line);
            lines.high = std::max<int>(lines.high, note->_line);
        }
    return lines;
}

// A chord among those at its place, and how far right of it it stands.
struct Standing {
    const Chords* chord;
    bool isUp;
    Lines lines;
    int32_t width, distance, shift = 0;

    Standing(const Chords* theChord, const Staff* staff)
        : chord(theChord),
          isUp(IsUp(StemOf(chord)->_direction)),
          lines(LinesOf(chord, staff)),
          width(HeadWidth(StemOf(chord))),
          distance(staff->_lineDistance) {}
    bool Covers(const Standing& other) const {
        return shift < other.shift + other.width && other.shift < shift + width;
    }
};

bool HaveASecond(const Chords* one, const Chords* other) {
    for (const GenericNote* a : chordNotes.Of(one))
        for (const GenericNote* b : chordNotes.Of(other))
            if (std::abs(a->_line - b->_line) == 1) return true;
    return false;
}

// Whether two chords cannot stand at one x, the first of them before the second. Stems that point the same
// way become one where they reach each other: then they must be of one value.
bool Collide(const Standing& before, const Standing& own) {
    const Lines &above = before.lines, &below = own.lines;
    if (before.isUp != own.isUp) {
        if (below.high < above.low - 1) return false;
        return below.high != above.low || !ShareHeads(before.chord, own.chord);
    }
    const int gap = std::max(above.low - below.high, below.low - above.high);
    const bool alike = ValueOf(before.chord) == ValueOf(own.chord) && ShareHeads(before.chord, own.chord);
    return alike ? HaveASecond(before.chord, own.chord) : gap <= kStemSteps;
}

// Further right than all before it that it collides with. It only ever moves on, each time to one of them or
// past it, so it comes to an end.
void PutBehind(std::vector<Standing>& row, size_t place) {
    Standing& own = row[place];
    for (bool moved = true; moved;) {
        moved = false;
        for (size_t i = 0; i < place; ++i) {
            const Standing& before = row[i];
            if (!own.Covers(before)) continue;
            const bool apart = before.isUp == own.isUp || own.lines.high > before.lines.low;
            const int32_t past = before.width + (apart ? kBetween * own.distance / 100 : 0);
            // What may stand together does so on one line.
            const int32_t shift = before.shift + (Collide(before, own) ? past : 0);
            if (shift <= own.shift) continue;
            own.shift = shift;
            moved = true;
        }
    }
}

}  // namespace

bool ShareHeads(const Chords* one, const Chords* other) {
    return KindOfHead(one) == KindOfHead(other) && DotCount(one) == DotCount(other);
}

std::vector<const Chords*> ChordsBeside(const Chords* chord) {
    std::vector<const Chords*> beside;
    const MeasureStaff* crossing = MeasureStaffPar(chord);
    if (!crossing || IsAlone(crossing) || IsGrace(chord)) return beside;
    const Voice* own = VoicePar(chord);
    const int32_t x = XOf(chord);
    for (const Voice* voice : measureStaffVoices.Of(crossing)) {
        if (voice == own) continue;
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            const auto* other = As<Chords>(symbol);
            // Places are also asked for while a chord goes, whose stem is the first to.
            if (other && !IsGrace(other) && StemOf(other) && std::abs(XOf(other) - x) <= kSamePlace) beside.push_back(other);
        }
    }
    return beside;
}

bool StandsBefore(const Chords* one, const Chords* other) {
    const bool up = IsUp(StemOf(one)->_direction), otherUp = IsUp(StemOf(other)->_direction);
    return up != otherUp ? up : VoicePar(one)->_number < VoicePar(other)->_number;
}

int32_t VoiceShift(const Stem* stem) {
    const GenericNote* head = stemNotes.First(stem);
    const Voice* voice = head ? VoicePar(ChordPar(head)) : nullptr;
    if (!voice) return 0;
    // Nobody stands before the first voice's stems that point up.
    if (IsUp(stem->_direction) && !measureStaffVoices.Prev(voice)) return 0;
    return VoiceShift(stem, ChordsBeside(ChordPar(head)));
}

int32_t VoiceShift(const Stem* stem, const std::vector<const Chords*>& beside) {
    const GenericNote* head = stemNotes.First(stem);
    if (!head) return 0;
    const Chords* chord = ChordPar(head);
    const Staff* staff = StaffPar(head);
    std::vector<Standing> row;
    for (const Chords* other : beside)
        if (const Stem* its = StemOf(other);
            its && !stemNotes.IsEmpty(its) && StandsBefore(other, chord) && LinesOf(other, staff).Any())
            row.emplace_back(other, staff);
    if (row.empty()) return 0;
    std::sort(row.begin(), row.end(),
              [](const Standing& a, const Standing& b) { return StandsBefore(a.chord, b.chord); });
    row.emplace_back(chord, staff);
    for (size_t i = 1; i < row.size(); ++i) PutBehind(row, i);
    return row.back().shift;
}

}  // namespace corvane
