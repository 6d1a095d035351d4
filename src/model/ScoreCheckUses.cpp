// Symbols, fonts and preference records: names, and who uses them how often.
#include <algorithm>
#include <cstring>
#include <unordered_set>

#include "model/ScoreCheckRules.h"

namespace corvane {
namespace {

constexpr int16_t kMostUses = 32767;  // a count that has come to this stays there

bool IsCounted(Aim aim) {
    return aim == Aim::Symbol || aim == Aim::Font || aim == Aim::GenericText || aim == Aim::Any;
}

// Of each class the fields that count as a use.
const std::vector<std::vector<uint16_t>>& CountedFields() {
    static const auto fields = [] {
        std::vector<std::vector<uint16_t>> all(static_cast<size_t>(ClassCount()) + 1);
        for (int16_t number = 1; number <= ClassCount(); ++number)
            for (const LinkField& link : InfoOf(number)->links)
                if (link.role == LinkRole::Whole && IsCounted(link.aim))
                    all[static_cast<size_t>(number)].push_back(link.offset);
        return all;
    }();
    return fields;
}

template <class Count>
void CheckCount(ScoreProof& proof, Stored<Count>& field, int32_t uses, const char* what) {
    if (field.Get() != kMostUses || uses == 0)
        proof.ExpectNumber(field, std::min<int32_t>(uses, kMostUses), what);
}

void CheckSymbols(ScoreProof& proof, const UseCounts& uses) {
    std::unordered_set<std::string_view> names;
    for (FontSymbol* symbol : documentFontSymbols.Of(proof.document)) {
        proof.Expect(symbol->_name.Get() && names.insert(TextOf(symbol->_name)).second, symbol,
                     "a symbol without a name of its own");
        CheckCount(proof, symbol->_useCount, uses.Of(symbol), "use count of a symbol");
    }
    for (TarnFont* font : documentFonts.Of(proof.document)) {
        proof.Expect(font->_name.Get() != nullptr, font, "a font without a name");
        // The document itself may hold a font that nothing names.
        if (const int32_t count = uses.Of(font); font->_useCount < count)
            proof.ExpectNumber(font->_useCount, count, "use count of a font");
    }
}

void CheckObjects(ScoreProof& proof, const UseCounts& uses) {
    for (void* object : uses.TextsAndSymbols()) {
        if (ClassNumberOf(object) == GenericText::kClass) {
            proof.Expect(uses.Of(object) == 1, object, "the text has not one owner");
            continue;
        }
        const bool listed = documentFontSymbols.IsLinked(static_cast<FontSymbol*>(object));
        proof.Expect(listed || uses.Of(object) == 0, object, "a symbol in use is not in the document's list");
    }
}

void CheckPreferences(ScoreProof& proof) {
    bool seen[kClassCapacity] = {};
    int count = 0;
    for (ClassPreferences* record : documentPreferences.Of(proof.document)) {
        const int16_t number = record->ClassNumber();
        proof.Expect(!seen[number], record, "a second preference record of its class");
        seen[number] = true;
        ++count;
        proof.Expect(TextOf(record->_className) == InfoOf(number)->name, record,
                     "the preference record bears another class's name");
    }
    constexpr int kKinds = 19;
    proof.Expect(count == kKinds, proof.document, "not one preference record of each class");
}

}  // namespace

void UseCounts::Take(void* object, int16_t number) {
    for (const uint16_t offset : CountedFields()[static_cast<size_t>(number)]) {
        uint32_t distance;
        std::memcpy(&distance, static_cast<const uint8_t*>(object) + offset, sizeof distance);
        if (distance) ++_uses[StoredSpace::At<void>(distance)];
    }
    if (number == GenericText::kClass || FontSymbol::IsHeir(number)) _textsAndSymbols.push_back(object);
}

int32_t UseCounts::Of(const void* object) const {
    const auto found = _uses.find(object);
    return found == _uses.end() ? 0 : found->second;
}

void CheckUses(ScoreProof& proof, const UseCounts& uses) {
    CheckSymbols(proof, uses);
    CheckObjects(proof, uses);
    CheckPreferences(proof);
}

}  // namespace corvane
