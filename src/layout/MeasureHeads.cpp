#include "layout/MeasureHeads.h"

#include "layout/ScoreSkeleton.h"
#include "layout/SignRecords.h"
#include "model/Clefs.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int32_t kAtTheEnd = 1000;  // per mille

bool HasOneMeter(const Measure* a, const Measure* b) { return a && a->_num == b->_num && a->_den == b->_den; }

// Clefs, keys and time signatures stand in front of all else, in this order.
int RankOf(const StaffMeasureSymbol* symbol) {
    constexpr int16_t kOrder[] = {StaticClaf::kClass, ClafSignature::kClass, TimeSignature::kClass};
    int rank = 0;
    while (rank < 3 && kOrder[rank] != symbol->ClassNumber()) ++rank;
    return rank;
}

void MoveSign(StaffMeasureSymbol* sign, MeasureStaff* to) {
    StaffMeasureSymbol* behind = nullptr;
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(to)) {
        if (RankOf(symbol) >= RankOf(sign)) break;
        behind = symbol;
    }
    staffSymbols.Remove(sign);
    staffSymbols.Insert(to, sign, behind);
}

template <class Sign>
void BequeathLast(const std::vector<Measure*>& going, MeasureStaff* heir) {
    if (SignOf<Sign>(heir)) return;
    for (auto measure = going.rbegin(); measure != going.rend(); ++measure) {
        const MeasureStaff* crossing = MeasureStaffAt(*measure, DocStaffPar(heir));
        Sign* sign = crossing ? SignOf<Sign>(crossing) : nullptr;
        if (sign) return MoveSign(sign, heir);
    }
}

}  // namespace

MeasureHead::MeasureHead(Measure* measure) : _measure(measure) {
    const bool inside = !StartsSystem(), oneMeter = HasOneMeter(PrevMeasure(measure), measure);
    for (MeasureStaff* crossing : measureStaffs.Of(measure)) {
        const int key = KeyInForce(crossing);
        const bool keyIsRepeated =
            inside && SignOf<ClafSignature>(crossing) && KeyInForce(PrevOnStaff(crossing)) == key;
        const bool timeIsRepeated = oneMeter && SignOf<TimeSignature>(crossing);
        _readings.push_back({crossing, ClefInForce(crossing, 0), key, keyIsRepeated, timeIsRepeated});
    }
}

bool MeasureHead::StartsSystem() const { return systemMeasures.Prev(_measure) == nullptr; }

bool MeasureHead::Settle() const {
    bool changed = false;
    for (const Reading& reading : _readings) {
        changed |= SettleClef(reading);
        changed |= SettleKey(reading);
        changed |= SettleTime(reading);
    }
    return changed;
}

bool MeasureHead::SettleClef(const Reading& reading) const {
    auto* own = SignOf<StaticClaf>(reading.crossing);
    if (StartsSystem()) {
        if (own && own->_code == reading.clef) return false;
        if (own)
            SetClef(own, reading.clef);
        else
            AddClef(reading.crossing, reading.clef);
        return true;
    }
    if (own) ReleaseSign(own);
    if (ClefInForce(reading.crossing, 0) == reading.clef) return own;
    MeasureStaff* before = PrevOnStaff(reading.crossing);
    auto* last = SignOf<MovingClaf>(before);
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(before))
        if (auto* clef = As<MovingClaf>(symbol); clef && clef->_place > last->_place) last = clef;
    if (last && last->_place >= kAtTheEnd)
        SetClef(last, reading.clef);
    else
        AddMovingClaf(before, reading.clef, kAtTheEnd);
    return true;
}

bool MeasureHead::SettleKey(const Reading& reading) const {
    auto* own = SignOf<ClafSignature>(reading.crossing);
    const bool holdsAnyway = !StartsSystem() && KeyInForce(PrevOnStaff(reading.crossing)) == reading.key;
    if (holdsAnyway && !own) return false;
    if (holdsAnyway && !reading.keyIsRepeated) {
        ReleaseSign(own);
        return true;
    }
    if (own && own->_key == reading.key + 7) return RenewKeySymbol(reading.crossing);
    SetKey(reading.crossing, reading.key);
    return true;
}

bool MeasureHead::SettleTime(const Reading& reading) const {
    auto* own = SignOf<TimeSignature>(reading.crossing);
    const bool holdsAnyway = HasOneMeter(PrevMeasure(_measure), _measure);
    if (holdsAnyway == !own || (own && reading.timeIsRepeated)) return false;
    if (own)
        ReleaseSign(own);
    else
        SetTime(reading.crossing, Meter{{_measure->_num}, _measure->_den, MeterKind::Normal});
    return true;
}

void BequeathSigns(const std::vector<Measure*>& going, Measure* heir) {
    for (MeasureStaff* crossing : measureStaffs.Of(heir)) {
        BequeathLast<StaticClaf>(going, crossing);
        BequeathLast<ClafSignature>(going, crossing);
        BequeathLast<TimeSignature>(going, crossing);
    }
}

}  // namespace corvane
