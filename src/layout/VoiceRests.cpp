// Rests of voices that share a staff.
#include <algorithm>

#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "layout/SymbolInk.h"
#include "layout/VoicesTogether.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int kRestSpaces = 2, kMostSpaces = 40;  // a rest's way from the middle, and on from there
constexpr int32_t kRestAir = 10;                  // hundredths of a line distance, above and below
constexpr int kFarSpaces = 8;                     // beside a chord's place none of its ink is so far away

bool IsUnmoved(const Pause* pause) {
    const Staff* staff = StaffPar(pause);
    return staff && staff->_lineDistance != 0 &&
           pause->_y == staff->LinesHeight() / 2 * 1000 / staff->_lineDistance;
}

// What is at a rest's place of other voices, and where the rest goes from there.
class RestRoom {
public:
    // `ink` where it stands now.
    RestRoom(const Pause* pause, Rect ink)
        : _own(VoicePar(pause)),
          _ink(ink),
          _space(StaffPar(pause)->_lineDistance),
          _measure(FrameOf(MeasurePar(pause))) {
        for (const Voice* voice : measureStaffVoices.Of(MeasureStaffPar(pause)))
            if (voice != _own) Add(voice);
    }
    bool IsAlone() const { return _alone; }
    // Spaces upward. On its side of the staff the outer voice has the outside: beside one of its chords the
    // rest goes inward where there is room. Else it goes outward past everything.
    int Spaces() const {
        const int out = _own->_number % 2 ? 1 : -1, usual = out * kRestSpaces;
        for (int spaces = usual; !_outer.empty() && !Hits(_others, spaces); spaces -= out)
            if (!Hits(_outer, spaces)) return spaces;
        int spaces = usual;
        for (int step = 0; step < kMostSpaces && (Hits(_outer, spaces) || Hits(_others, spaces)); ++step)
            spaces += out;
        return spaces;
    }

private:
    void Add(const Voice* voice) {
        const bool sameSide = (voice->_number - _own->_number) % 2 == 0,
                   outer = voice->_number < _own->_number;
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            _alone = false;
            const auto* chord = As<Chords>(symbol);
            const Stem* stem = chord && !IsGrace(chord) ? StemOf(chord) : nullptr;
            if (stem && IsNear(stem)) AddColumn(stem, sameSide && outer ? _outer : _others);
            const auto* rest = As<Pause>(symbol);
            if (rest && !rest->_hidden && GoesFirst(*voice)) AddInk(RectOf(rest), _others);
        }
    }
    // Whose rests this one heeds: of inner voices on its side, below also of those above.
    bool GoesFirst(const Voice& voice) const {
        const bool below = _own->_number % 2 == 0, sameSide = (voice._number - _own->_number) % 2 == 0;
        return sameSide ? voice._number > _own->_number : below;
    }
    // Most chords are told by their place alone, which costs nothing.
    bool IsNear(const Stem* stem) const {
        const int32_t x = _measure.XOf(stem->_x), far = kFarSpaces * _space;
        return _ink.left - far < x && x < _ink.right + far;
    }
    void AddColumn(const Stem* stem, std::vector<Rect>& to) const {
        const Column column(stem);
        for (const GenericNote* note : stemNotes.Of(stem)) {
            AddInk(RectOf(note, column), to);
            AddInk(LedgerLinesOf(note, column).Ink(), to);
        }
        if (!HasStemInk(stem)) return;
        AddInk(StemInk(column), to);
        if (const Flag* flag = FlagOf(stem)) AddInk(RectOf(flag, column), to);
    }
    void AddInk(Rect ink, std::vector<Rect>& to) const {
        if (ink.left < _ink.right && _ink.left < ink.right) to.push_back(ink);
    }
    bool Hits(const std::vector<Rect>& inks, int spaces) const {
        const int32_t up = spaces * _space, air = kRestAir * _space / 100;
        return std::any_of(inks.begin(), inks.end(), [&](const Rect& ink) {
            return ink.top < _ink.bottom - up + air && _ink.top - up - air < ink.bottom;
        });
    }

    const Voice* _own;
    const Rect _ink;
    const int32_t _space;
    const MeasureFrame _measure;
    bool _alone = true;
    std::vector<Rect> _outer, _others;  // chords of outer voices of its side; chords and rests of all others
};

}  // namespace

int32_t VoiceLift(const Pause* pause, Point place) {
    const MeasureStaff* crossing = MeasureStaffPar(pause);
    if (!VoicePar(pause) || !crossing || !IsUnmoved(pause) ||
        measureStaffVoices.First(crossing) == measureStaffVoices.Last(crossing))
        return 0;
    const RestRoom room(pause, InkOf(pause->_symbol, place, StaffPar(pause)->_lineDistance, 100));
    return room.IsAlone() ? 0 : room.Spaces() * 1000;
}

}  // namespace corvane
