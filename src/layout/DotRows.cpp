#include "layout/DotRows.h"

#include <algorithm>

#include "layout/NoteGeometry.h"
#include "layout/SymbolInk.h"
#include "layout/VoicesTogether.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

// The preferred gap counts from what half a head usually measures. Hundredths of a line distance.
constexpr int32_t kUsualHalfHead = 57, kLeastDotGap = 20, kDefaultDotGap = 100;

int32_t DotGap(const Document* document) {
    const auto* preferences = document ? Preferences<NotePref>(document) : nullptr;
    const int32_t gap = preferences ? preferences->_dotGap.Get() : kDefaultDotGap;
    return std::max(kLeastDotGap, gap - kUsualHalfHead);
}

struct Taken {
    const Chords* chord;
    const Staff* staff;
    int line, space;  // of the head and of its dots
};

bool IsShared(const Taken& taken, const GenericNote* note, const Chords* chord) {
    return taken.chord != chord && taken.staff == StaffPar(note) && taken.line == note->_line &&
           ShareHeads(taken.chord, chord) && VoiceShift(StemOf(taken.chord)) == VoiceShift(StemOf(chord));
}

// The space of a head's dots among those that are taken: its own, or the one above its line, or the next one
// that is free.
int SpaceFor(const GenericNote* note, const Chords* chord, const std::vector<Taken>& all) {
    const Staff* staff = StaffPar(note);
    int space = note->_line % 2 ? note->_line + 1 : note->_line.Get(), step = 0;
    for (const Taken& taken : all)
        if (IsShared(taken, note, chord)) return taken.space;
    for (bool free = false; !free;) {
        free = true;
        for (const Taken& taken : all) {
            if (taken.staff != staff || taken.space != space) continue;
            if (step == 0) step = note->_line > taken.line ? 2 : -2;
            space += step;
            free = false;
        }
    }
    return space;
}

// The dotted chords at a chord's place in the order in which they take their spaces, up to the chord itself.
std::vector<const Chords*> DottedUpTo(const Chords* chord) {
    std::vector<const Chords*> dotted;
    for (const Chords* other : ChordsBeside(chord))
        if (DotOf(other) && StemOf(other) && StandsBefore(other, chord)) dotted.push_back(other);
    std::sort(dotted.begin(), dotted.end(), StandsBefore);
    dotted.push_back(chord);
    return dotted;
}

int32_t RightOfHeadsAt(const Chords* chord) {
    int32_t right = HeadsOf(Column(StemOf(chord))).right;
    for (const Chords* beside : ChordsBeside(chord))
        if (const Stem* other = StemOf(beside); other && VoiceShift(other))
            right = std::max(right, HeadsOf(Column(other)).right);
    return right;
}

}  // namespace

std::vector<Point> RowsOf(const Chords* chord) {
    std::vector<Point> rows;
    if (!StemOf(chord)) return rows;
    const int32_t right = RightOfHeadsAt(chord);
    std::vector<Taken> taken;
    for (const Chords* each : DottedUpTo(chord))
        for (const GenericNote* note : stemNotes.Of(StemOf(each))) {
            if (ChordPar(note) != each) continue;
            const Staff* staff = StaffPar(note);
            const int space = SpaceFor(note, each, taken);
            taken.push_back({each, staff, note->_line, space});
            if (each != chord) continue;
            const StaffFrame frame = FrameOf(staff);
            rows.push_back(
                {right + DotGap(DocumentPar(note)) * frame.lineDistance / 100, frame.YOfLine(space)});
        }
    return rows;
}

std::vector<Point> RowsOf(const Pause* pause) {
    const StaffFrame staff = FrameOf(StaffPar(pause));
    const Point place = PlaceOf(pause);
    const int32_t right = InkOf(pause->_symbol, place, staff.lineDistance, 100).right;
    const int32_t gap = DotGap(DocumentPar(pause)) * staff.lineDistance / 100;
    return {{right + gap, place.y - staff.lineDistance / 2}};
}

}  // namespace corvane
