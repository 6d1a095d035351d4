#include "play/RepetitionRoute.h"

#include <algorithm>
#include <string_view>

#include "model/SymbolTable.h"

namespace corvane {
namespace {

enum Kind : unsigned {
    kDaCapo = 1,
    kDalSegno = 2,
    kSaysCoda = 4,
    kAlCoda = 8,
    kCoda = 16,
    kSegno = 32,
    kFine = 64
};

constexpr struct {
    std::string_view text;
    unsigned kinds;
} kTexts[] = {
    {"D.C.", kDaCapo},
    {"D.C. al coda", kDaCapo | kSaysCoda},
    {"D.C. al fine", kDaCapo},
    {"D.S.", kDalSegno},
    {"D.S. al coda", kDalSegno | kSaysCoda},
    {"D.S. al fine", kDalSegno},
    {"Al Coda", kAlCoda},
    {"Coda", kCoda},
    {"Segno", kSegno},
    {"Fine", kFine},
};

unsigned KindsIn(const Measure* measure) {
    unsigned kinds = 0;
    for (const MeasureSymbol* symbol : measureSymbols.Of(measure)) {
        const auto* coda = As<Coda>(symbol);
        if (!coda) continue;
        for (const auto& row : kTexts)
            if (SymbolName(coda->_symbol) == row.text) kinds |= row.kinds;
    }
    return kinds;
}

}  // namespace

RepetitionRoute::RepetitionRoute(const Document* document) {
    for (const Page* page : documentPages.Of(document))
        for (const System* system : pageSystems.Of(page))
            for (const Measure* measure : systemMeasures.Of(system)) {
                if (!_first) _first = measure;
                if (const unsigned kinds = KindsIn(measure)) _texts.push_back({measure, kinds});
            }
}

RepetitionRoute::Text* RepetitionRoute::At(const Measure* measure) {
    const auto found = std::lower_bound(
        _texts.begin(), _texts.end(), measure->_number.Get(),
        [](const Text& text, int32_t number) { return text.measure->_number.Get() < number; });
    return found != _texts.end() && found->measure == measure ? &*found : nullptr;
}

// The first measure, or the nearest Segno before.
const Measure* RepetitionRoute::GoalOf(const Text& text) const {
    if (text.kinds & kDaCapo) return _first;
    const Measure* goal = nullptr;
    for (const Text& other : _texts) {
        if (other.kinds & kSegno) goal = other.measure;
        if (&other == &text) break;
    }
    return goal;
}

const Measure* RepetitionRoute::CodaBehind(const Measure* measure) const {
    for (const Text& other : _texts)
        if (other.kinds & kCoda && other.measure->_number > measure->_number) return other.measure;
    return nullptr;
}

RepetitionRoute::Turn RepetitionRoute::Behind(const Measure* measure) {
    Text* text = At(measure);
    if (!text) return {};
    if (_returning && !_toCoda && text->kinds & kFine) return {Way::End};
    if (_returning && _toCoda && text->kinds & kAlCoda)
        if (const Measure* coda = CodaBehind(measure)) {
            _returning = false;
            return {Way::Jump, coda};
        }
    if (!(text->kinds & (kDaCapo | kDalSegno)) || text->taken) return {};
    const Measure* goal = GoalOf(*text);
    if (!goal) return {};
    text->taken = _returning = true;
    _toCoda = text->kinds & kSaysCoda;
    return {Way::Jump, goal};
}

}  // namespace corvane
