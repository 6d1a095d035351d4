#include "layout/SignRecords.h"

#include "layout/ScoreSkeleton.h"
#include "model/Clefs.h"
#include "model/Par.h"
#include "model/RecordRelease.h"
#include "model/SymbolNames.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

void Rename(Document* document, Ptr<FontSymbol>& field, const std::string& name, bool& changed) {
    if (field.Get() && SymbolName(field) == name) return;
    ChangeSymbol(document, field, name);
    changed = true;
}

// The key that a signature takes back; at the head of a system that has been done at the end of the one
// before.
int KeyBefore(const MeasureStaff* crossing, int key) {
    const MeasureStaff* before = PrevOnStaff(crossing);
    return before && systemMeasures.Prev(MeasurePar(crossing)) ? KeyInForce(before) : key;
}

}  // namespace

void SetClef(Claf* clef, int code) {
    const ClefInfo& info = ClefOf(code);
    clef->_code = info.code;
    clef->_line = static_cast<uint8_t>(info.line);
    ChangeSymbol(DocumentPar(MeasureStaffPar(clef)), clef->_symbol, info.symbol);
}

MovingClaf* AddMovingClaf(MeasureStaff* crossing, int code, int32_t place) {
    StaffMeasureSymbol* behind = nullptr;
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(crossing)) {
        const auto* other = As<MovingClaf>(symbol);
        if (!other || other->_place <= place) behind = symbol;
    }
    auto* clef = Make<MovingClaf>();
    staffSymbols.Insert(crossing, clef, behind);
    clef->_place = place;
    SetClef(clef, code);
    return clef;
}

void SetKey(MeasureStaff* crossing, int key) {
    auto* sign = SignOf<ClafSignature>(crossing);
    if (!sign) {
        AddKey(crossing, key);
        RenewKeySymbol(crossing);
        return;
    }
    if (sign->_key != key + 7) sign->_key = static_cast<uint8_t>(key + 7);
    RenewKeySymbol(crossing);
}

bool RenewKeySymbol(MeasureStaff* crossing) {
    auto* sign = SignOf<ClafSignature>(crossing);
    if (!sign) return false;
    const int key = sign->_key - 7;
    bool changed = false;
    Rename(DocumentPar(crossing), sign->_symbol,
           KeySignatureName(ClefInForce(crossing, 0), key, KeyBefore(crossing, key)), changed);
    return changed;
}

void SetTime(MeasureStaff* crossing, const Meter& meter) {
    auto* sign = SignOf<TimeSignature>(crossing);
    if (!sign) {
        AddTime(crossing);
        sign = SignOf<TimeSignature>(crossing);
    }
    const auto kind = static_cast<uint8_t>(meter.kind);
    bool changed = false;
    if (sign->_kind != kind) sign->_kind = kind;
    if (sign->_pickup != uint8_t{meter.pickup}) sign->_pickup = meter.pickup;
    Document* document = DocumentPar(crossing);
    Rename(document, sign->_symbol, SymbolNameOf(document, meter), changed);
}

void ReleaseSign(StaffMeasureSymbol* sign) {
    Document* document = DocumentPar(MeasureStaffPar(sign));
    staffSymbols.Remove(sign);
    DropRecord(document, sign);
}

}  // namespace corvane
