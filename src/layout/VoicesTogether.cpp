#include "layout/VoicesTogether.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "layout/NoteGeometry.h"
#include "layout/SymbolInk.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int32_t kSamePlace = 3;  // per mille of the note area
constexpr int32_t kLift = 2000;    // thousandths of a line distance
constexpr int32_t kBetween = 10;   // hundredths of a line distance, between heads that cross
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

// Both heads of a unison are printed as one where they look the same.
bool ShareHeads(const Chords* upper, const Chords* lower) {
    return KindOfHead(upper) == KindOfHead(lower) && DotCount(upper) == DotCount(lower);
}

}  // namespace

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
            if (other && !IsGrace(other) && std::abs(XOf(other) - x) <= kSamePlace) beside.push_back(other);
        }
    }
    return beside;
}

int32_t VoiceShift(const Stem* stem) {
    const GenericNote* head = stemNotes.First(stem);
    if (!head || IsUp(stem->_direction)) return 0;
    const Chords* chord = ChordPar(head);
    const Staff* staff = StaffPar(head);
    int32_t shift = 0;
    for (const Chords* upper : ChordsBeside(chord)) {
        const Stem* up = StemOf(upper);
        if (!up || !IsUp(up->_direction) || stemNotes.IsEmpty(up)) continue;
        const Lines above = LinesOf(upper, staff), own = LinesOf(chord, staff);
        if (above.low > above.high || own.high < above.low - 1) continue;
        if (own.high == above.low && ShareHeads(upper, chord)) continue;
        const bool cross = own.high > above.low;
        shift = std::max(shift, HeadWidth(up) + (cross ? kBetween * staff->_lineDistance / 100 : 0));
    }
    return shift;
}

int32_t VoiceLift(const Pause* pause) {
    const Voice* own = VoicePar(pause);
    const MeasureStaff* crossing = MeasureStaffPar(pause);
    const Staff* staff = StaffPar(pause);
    if (!own || !crossing || !staff || staff->_lineDistance == 0 || IsAlone(crossing)) return 0;
    if (pause->_y != staff->LinesHeight() / 2 * 1000 / staff->_lineDistance) return 0;
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        if (voice != own && !voiceSymbols.IsEmpty(voice)) return own->_number % 2 ? kLift : -kLift;
    return 0;
}

}  // namespace corvane
