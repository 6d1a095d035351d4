#include "layout/ScoreSkeleton.h"
#include "model/Clefs.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/SymbolNames.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// Puts a sign behind the last of a crossing's leading clefs, keys and time signatures of a lower class of
// sign.
template <class... Before>
void InsertSign(MeasureStaff* crossing, StaffMeasureSymbol* sign) {
    StaffMeasureSymbol* behind = nullptr;
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(crossing)) {
        if (!(As<Before>(symbol) || ...)) break;
        behind = symbol;
    }
    staffSymbols.Insert(crossing, sign, behind);
}

TimeForm FormIn(const Document* document) {
    const auto* preferences = Preferences<TimeMeasurePref>(document);
    return preferences ? static_cast<TimeForm>(preferences->_type.Get()) : TimeForm::Stacked;
}

}  // namespace

void AddClef(MeasureStaff* crossing, int code) {
    const ClefInfo& info = ClefOf(code);
    auto* clef = Make<StaticClaf>();
    clef->_code = info.code;
    clef->_line = static_cast<uint8_t>(info.line);
    clef->_symbol = LookupSymbol(DocumentPar(crossing), info.symbol);
    staffSymbols.Insert(crossing, clef, nullptr);
}

void AddKey(MeasureStaff* crossing, int key) {
    auto* signature = Make<ClafSignature>();
    signature->_key = static_cast<uint8_t>(key + 7);
    signature->_symbol = LookupSymbol(DocumentPar(crossing), KeySignatureName(ClefInForce(crossing, 0), key));
    InsertSign<StaticClaf>(crossing, signature);
}

void AddTime(MeasureStaff* crossing) {
    auto* signature = Make<TimeSignature>();
    Document* document = DocumentPar(crossing);
    const Measure* measure = MeasurePar(crossing);
    signature->_symbol =
        LookupSymbol(document, TimeSignatureName(FormIn(document), measure->_num, measure->_den));
    InsertSign<StaticClaf, ClafSignature>(crossing, signature);
}

}  // namespace corvane
