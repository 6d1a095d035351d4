// Key signatures over measures. The head of each system repeats the key; within a system a signature stands
// where it changes.
#include <cstdlib>

#include "edit/Signs.h"
#include "edit/SystemRedraw.h"
#include "layout/NotePitches.h"
#include "layout/SignRecords.h"
#include "model/Clefs.h"
#include "model/Par.h"

namespace corvane {
namespace {

// The last measure before the key of the range's start changes on some staff.
Measure* EndOfKey(Measure* first) {
    Measure* last = first;
    for (Measure* next = NextMeasure(first); next; next = NextMeasure(next)) {
        for (const MeasureStaff* crossing : measureStaffs.Of(next)) {
            const auto* sign = SignOf<ClafSignature>(crossing);
            if (sign && sign->_key - 7 != KeyInForce(PrevOnStaff(crossing))) return last;
        }
        last = next;
    }
    return last;
}

bool IsHead(const MeasureStaff* crossing) { return SignOf<StaticClaf>(crossing) != nullptr; }

// Writes the key into one staff, up to a measure, and says the one behind again where it holds on.
class KeyOfStaff {
public:
    KeyOfStaff(MeasureStaff* first, const Measure* last, int key) : _first(first), _last(last), _key(key) {}

    void Write() {
        const MeasureStaff* before = PrevOnStaff(_first);
        const int keyBefore = before ? KeyInForce(before) : _key;
        const int keyAfter = KeyInForce(MeasureStaffAt(_last, DocStaffPar(_first)));
        MeasureStaff* crossing = _first;
        for (; crossing && MeasurePar(crossing)->_number <= _last->_number;
             crossing = NextOnStaff(crossing)) {
            const bool wanted = IsHead(crossing) || (crossing == _first && keyBefore != _key);
            if (wanted)
                SetKey(crossing, _key);
            else if (auto* sign = SignOf<ClafSignature>(crossing))
                ReleaseSign(sign);
        }
        if (crossing) Resume(crossing, keyAfter);
    }

private:
    // The first crossing behind the range.
    void Resume(MeasureStaff* crossing, int key) {
        auto* sign = SignOf<ClafSignature>(crossing);
        if (sign) {
            if (!IsHead(crossing) && sign->_key - 7 == _key)
                ReleaseSign(sign);
            else
                RenewKeySymbol(crossing);
        } else if (key != _key) {
            SetKey(crossing, key);
        }
    }

    MeasureStaff* _first;
    const Measure* _last;
    const int _key;
};

}  // namespace

Status ChangeKey(WindowTarn& window, MeasureRange range, int fifths) {
    if (std::abs(fifths) > 7) return {Fault::Refused, "A key has seven flats to seven sharps"};
    if (!range.last) range.last = EndOfKey(range.first);
    const EditStep step(window);
    const Measure* behind = NextMeasure(range.last);
    const SystemRedraw redraw(window, range.first, behind ? behind : range.last);
    for (MeasureStaff* crossing : measureStaffs.Of(range.first))
        KeyOfStaff(crossing, range.last, fifths).Write();
    for (Measure* measure = range.first; measure != behind; measure = NextMeasure(measure))
        for (MeasureStaff* crossing : measureStaffs.Of(measure)) RedoAccidentals(crossing);
    return Status::Ok();
}

}  // namespace corvane
