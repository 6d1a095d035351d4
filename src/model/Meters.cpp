#include "model/Meters.h"

#include <charconv>
#include <numeric>

#include "model/Par.h"
#include "model/Preferences.h"
#include "model/SymbolNames.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

TimeForm FormIn(const Document* document) {
    const auto* preferences = Preferences<TimeMeasurePref>(document);
    return preferences ? static_cast<TimeForm>(preferences->_type.Get()) : TimeForm::Stacked;
}

TimeForm FormOf(const Document* document, MeterKind kind) {
    switch (kind) {
        case MeterKind::Sum:
            return TimeForm::Sum;
        case MeterKind::SumOfFractions:
            return TimeForm::Stacked;
        case MeterKind::NoteBelow:
            return TimeForm::Upper;
        case MeterKind::NumeratorOnly:
            return TimeForm::NumeratorOnly;
        case MeterKind::Bracketed:
            return TimeForm::Bracketed;
        default:
            return FormIn(document);
    }
}

bool IsPowerOfTwo(int n) { return n > 0 && (n & (n - 1)) == 0; }

// The numerators of a name as SymbolNames.h tells it: the number before a " su " that stands alone or behind
// a plus.
std::vector<int> SummandsIn(std::string_view name) {
    constexpr std::string_view kOver = " su ";
    std::vector<int> summands;
    const auto number = [&](size_t at) {
        int value = 0;
        if (at < name.size()) std::from_chars(name.data() + at, name.data() + name.size(), value);
        if (value > 0) summands.push_back(value);
    };
    if (const size_t first = name.find(kOver); first != name.npos) number(first + kOver.size());
    for (size_t plus = name.find(" + "); plus != name.npos; plus = name.find(" + ", plus + 1))
        number(plus + 3);
    return summands;
}

}  // namespace

int Meter::Num() const { return std::accumulate(summands.begin(), summands.end(), 0); }

const char* FaultOf(const Meter& meter) {
    for (const int part : meter.summands)
        if (part < 1) return "A meter counts at least one beat";
    const int num = meter.Num();
    if (num < 1 || num > kMostBeats) return "A meter has 1 to 99 beats";
    if (meter.den < 1 || meter.den > kMostParts) return "A meter's beat is a whole note to a 128th";
    if (meter.kind == MeterKind::Common && (num != 4 || meter.den != 4)) return "The C stands for 4/4";
    if (meter.kind == MeterKind::Cut && (num != 2 || meter.den != 2))
        return "The C with a stroke stands for 2/2";
    if (meter.kind == MeterKind::NoteBelow && !IsPowerOfTwo(meter.den)) return "No note has that value";
    const bool sum = meter.kind == MeterKind::Sum || meter.kind == MeterKind::SumOfFractions;
    if (!sum && meter.summands.size() != 1) return "Only a sum has several numerators";
    return nullptr;
}

std::string SymbolNameOf(const Document* document, const Meter& meter) {
    if (meter.kind == MeterKind::Common || meter.kind == MeterKind::Cut)
        return CommonTimeName(meter.kind == MeterKind::Cut);
    std::vector<TimeFraction> fractions;
    for (const int part : meter.summands) fractions.emplace_back(part, meter.den);
    return TimeSignatureName(FormOf(document, meter.kind), fractions);
}

Meter MeterOf(const TimeSignature* sign) {
    const Measure* measure = MeasurePar(sign);
    Meter meter{{measure->_num}, measure->_den, static_cast<MeterKind>(sign->_kind.Get())};
    meter.pickup = sign->_pickup != 0;
    if (meter.kind != MeterKind::Sum && meter.kind != MeterKind::SumOfFractions) return meter;
    std::vector<int> summands = SummandsIn(SymbolName(sign->_symbol));
    if (std::accumulate(summands.begin(), summands.end(), 0) == measure->_num)
        meter.summands = std::move(summands);
    return meter;
}

}  // namespace corvane
