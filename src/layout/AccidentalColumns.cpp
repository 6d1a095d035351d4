#include "layout/AccidentalColumns.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "layout/SymbolInk.h"
#include "layout/VoicesTogether.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

// Hundredths of a line distance. The preferred spacing counts from left edge to left edge of what accidentals
// usually measure, so that what is wider keeps the same distance.
constexpr int32_t kUsualWidth = 90, kDefaultSpacing = 100, kLeastGap = 15;
constexpr int32_t kAirBefore = 25;

struct Standing {
    const Accident* accident;
    int line;
};

// Of the heads of some chords on one staff, the highest first.
std::vector<Standing> AccidentalsOf(const std::vector<const Chords*>& chords, const Staff* staff) {
    std::vector<Standing> standing;
    for (const Chords* each : chords)
        for (const GenericNote* note : chordNotes.Of(each))
            if (const Accident* accident = AccidentOf(note); accident && StaffPar(note) == staff)
                standing.push_back({accident, note->_line});
    std::stable_sort(standing.begin(), standing.end(), [](const Standing& a, const Standing& b) {
        return a.line != b.line ? a.line > b.line : a.accident < b.accident;
    });
    return standing;
}

struct ColumnOfSigns {
    std::vector<int> lines;
    int32_t width = 0;

    bool HasRoomAt(int line) const {
        return std::none_of(lines.begin(), lines.end(),
                            [line](int other) { return std::abs(line - other) < kAccidentalColumnSteps; });
    }
};

}  // namespace

int32_t AccidentalShift(const Accident* accident) {
    return AccidentalShift(accident, ChordsBeside(ChordPar(noteAttributes.ParentOf(accident))));
}

int32_t AccidentalShift(const Accident* accident, std::vector<const Chords*> beside) {
    const GenericNote* note = noteAttributes.ParentOf(accident);
    const Staff* staff = StaffPar(note);
    beside.push_back(ChordPar(note));
    const std::vector<Standing> all = AccidentalsOf(beside, staff);
    if (all.size() < 2) return 0;
    const int32_t distance = FrameOf(staff).lineDistance;
    std::vector<ColumnOfSigns> columns;
    size_t own = 0;
    for (const Standing& each : all) {
        size_t place = 0;
        while (place < columns.size() && !columns[place].HasRoomAt(each.line)) ++place;
        if (place == columns.size()) columns.emplace_back();
        columns[place].lines.push_back(each.line);
        columns[place].width =
            std::max(columns[place].width, InkOf(each.accident->_symbol, {}, distance, 100).Width());
        if (each.accident == accident) own = place;
    }
    const auto* preferences = Preferences<NotePref>(DocumentPar(note));
    const int32_t spacing = preferences ? preferences->_accidentalSpacing.Get() : kDefaultSpacing;
    const int32_t gap = std::max(kLeastGap, spacing - kUsualWidth) * distance / 100;
    int32_t shift = 0;
    for (size_t i = 0; i < own; ++i) shift += columns[i].width + gap;
    return shift;
}

int32_t AccidentalReach(const Chords* chord) { return AccidentalReach(chord, ChordsBeside(chord)); }

int32_t AccidentalReach(const Chords* chord, const std::vector<const Chords*>& beside) {
    int32_t reach = 0;
    for (const GenericNote* note : chordNotes.Of(chord))
        if (const Accident* accident = AccidentOf(note)) {
            const int32_t more = AccidentalShift(accident, beside) - AccidentalShift(accident);
            const int32_t place = FrameOf(MeasurePar(chord)).XOf(XOf(chord));
            reach = std::max(reach, place - RectOf(accident).left + more);
        }
    return reach;
}

int32_t RoomOfAccidentals(const Chords* chord) {
    const int32_t reach = AccidentalReach(chord);
    return reach > 0 ? reach + kAirBefore * StaffPar(chord)->_lineDistance / 100 : 0;
}

}  // namespace corvane
