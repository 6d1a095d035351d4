// Clefs at the heads of systems and within measures. What a clef governs ends at the next clef of its staff;
// a clef at the head of a system that only repeats what was in force before is no such end, but is renewed
// with it.
#include <algorithm>
#include <limits>

#include "edit/Insertion.h"
#include "edit/Signs.h"
#include "edit/SystemRedraw.h"
#include "edit/TarnClick.h"
#include "layout/Frames.h"
#include "layout/NotePitches.h"
#include "layout/SignRecords.h"
#include "model/Clefs.h"
#include "model/GlyphTable.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int32_t kBeforeAll = std::numeric_limits<int32_t>::min();

// Whether a clef stands right of a place.
bool HasClefBehind(const MeasureStaff* crossing, int32_t place) {
    for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
        if (const auto* clef = As<MovingClaf>(symbol); clef && clef->_place > place) return true;
    return false;
}

// What is read by one clef from a place on: crossings, and the clefs at heads of systems that repeat it.
struct ClefReach {
    std::vector<MeasureStaff*> crossings;
    std::vector<StaticClaf*> repeats;
};

ClefReach ReachOf(MeasureStaff* crossing, int32_t place, int code) {
    ClefReach reach{{crossing}, {}};
    bool ends = HasClefBehind(crossing, place);
    for (MeasureStaff* next = NextOnStaff(crossing); next && !ends; next = NextOnStaff(next)) {
        auto* head = SignOf<StaticClaf>(next);
        if (head && head->_code != code) break;
        if (head) reach.repeats.push_back(head);
        reach.crossings.push_back(next);
        ends = HasClefBehind(next, kBeforeAll);
    }
    return reach;
}

// Runs a change of the clef that is in force from a place of a crossing on, keeping what notes sound like.
template <class Change>
void ChangeFrom(WindowTarn& window, MeasureStaff* crossing, int32_t place, int from, int to, Change change) {
    const ClefReach reach = ReachOf(crossing, place, from);
    const SystemRedraw redraw(window, MeasurePar(crossing), MeasurePar(reach.crossings.back()));
    SoundingSteps steps;
    for (MeasureStaff* each : reach.crossings) steps.Add(each);
    change();
    for (StaticClaf* repeat : reach.repeats) SetClef(repeat, to);
    for (MeasureStaff* each : reach.crossings) RenewKeySymbol(each);
    steps.Apply();
}

// A clef, other than one, that governs just what one at that place would.
MovingClaf* ClefAt(const MeasureStaff* crossing, int32_t place, const MovingClaf* but = nullptr) {
    const auto sameEvents = [&](const MovingClaf* clef) {
        for (const Voice* voice : measureStaffVoices.Of(crossing))
            for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
                if ((XOf(symbol) > clef->_place) != (XOf(symbol) > place)) return false;
        return true;
    };
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
        if (auto* clef = As<MovingClaf>(symbol); clef && clef != but && sameEvents(clef)) return clef;
    return nullptr;
}

}  // namespace

bool SetClefAtHead(WindowTarn& window, MeasureStaff* crossing, int code) {
    auto* head = SignOf<StaticClaf>(crossing);
    if (!head || head->_code == code) return false;
    ChangeFrom(window, crossing, kBeforeAll, head->_code, code, [&] { SetClef(head, code); });
    return true;
}

bool SetClefWithin(WindowTarn& window, MeasureStaff* crossing, int32_t place, int code) {
    MovingClaf* there = ClefAt(crossing, place);
    const int before = ClefInForce(crossing, there ? there->_place.Get() : place + 1);
    const int now = there ? there->_code.Get() : before;
    if (now == code) return false;
    if (there && before == code) return DeleteClaf(window, there), true;
    ChangeFrom(window, crossing, there ? there->_place.Get() : place, now, code, [&] {
        if (there)
            SetClef(there, code);
        else
            AddMovingClaf(crossing, code, place);
    });
    return true;
}

void DeleteClaf(WindowTarn& window, MovingClaf* clef) {
    MeasureStaff* crossing = MeasureStaffPar(clef);
    const int32_t place = clef->_place;
    ChangeFrom(window, crossing, place, clef->_code, ClefInForce(crossing, place),
               [&] { ReleaseSign(clef); });
}

Status ChangeClafPlace(WindowTarn& window, MovingClaf* clef, int32_t place) {
    MeasureStaff* crossing = MeasureStaffPar(clef);
    int32_t least = 0, most = 1000;
    for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
        if (const auto* other = As<MovingClaf>(symbol); other && other != clef) {
            if (other->_place < clef->_place) least = std::max(least, other->_place + 1);
            if (other->_place > clef->_place) most = std::min(most, other->_place - 1);
        }
    place = std::clamp(place, std::min(least, most), most);
    if (ClefAt(crossing, place, clef)) return {Fault::Refused, "Another clef stands there"};
    const EditStep step(window);
    const SystemRedraw redraw(window, MeasurePar(crossing));
    SoundingSteps steps;
    steps.Add(crossing);
    clef->_place = place;
    steps.Apply();
    return Status::Ok();
}

void ClafInsertion(const InsertionPlace& place, std::string_view descriptor) {
    MeasureStaff* crossing = FindMeasureStaff(place.system, place.point);
    const int code = ClefCodeOfSymbol(CanonicalSymbolName(descriptor));
    if (!crossing || !crossing->_staff.Get() || !code) return;
    const MeasureFrame frame = FrameOf(MeasurePar(crossing));
    const int32_t at = frame.PerMilleOfX(place.point.x);
    bool changed = true;
    if (at >= 0) {
        changed = SetClefWithin(place.window, crossing, std::min(at, int32_t{1000}), code);
    } else if (SignOf<StaticClaf>(crossing)) {
        changed = SetClefAtHead(place.window, crossing, code);
    } else if (MeasureStaff* before = PrevOnStaff(crossing)) {
        // A clef for a whole measure stands before its barline.
        changed = SetClefWithin(place.window, before, 1000, code);
    }
    if (!changed) place.window.Shell().Tell("This clef is in force there already.");
}

}  // namespace corvane
