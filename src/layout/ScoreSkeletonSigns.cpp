#include <cstdio>
#include <string>

#include "layout/ScoreSkeleton.h"
#include "model/Clefs.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr int32_t kDigitSize = 189;  // of a time signature's digits, as its symbol's name tells it

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

// The letters that a key signature's symbol is named by: none of its seven accidentals is there in C.
std::string KeyName(int clef, int key) {
    std::string name = "cs" + std::to_string(clef) + (key < 0 ? '%' : '$');
    return name + std::string(static_cast<size_t>(7 - (key < 0 ? -key : key)), '-');
}

std::string TimeName(const Document* document, const Measure* measure) {
    const auto* preferences = Preferences<TimeMeasurePref>(document);
    char name[64];
    std::snprintf(name, sizeof name, "ts %d su %d su %d su %ld*", measure->_num.Get(), measure->_den.Get(),
                  preferences ? preferences->_type.Get() : 5, static_cast<long>(kDigitSize));
    return name;
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
    signature->_symbol = LookupSymbol(DocumentPar(crossing), KeyName(ClefInForce(crossing, 0), key));
    InsertSign<StaticClaf>(crossing, signature);
}

void AddTime(MeasureStaff* crossing) {
    auto* signature = Make<TimeSignature>();
    const Document* document = DocumentPar(crossing);
    signature->_symbol = LookupSymbol(DocumentPar(crossing), TimeName(document, MeasurePar(crossing)));
    InsertSign<StaticClaf, ClafSignature>(crossing, signature);
}

}  // namespace corvane
