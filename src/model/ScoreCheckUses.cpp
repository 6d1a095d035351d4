// Symbols, fonts and preference records: names, and who uses them how often.
#include <algorithm>
#include <cstring>
#include <unordered_map>
#include <unordered_set>

#include "model/ScoreCheckRules.h"

namespace corvane {
namespace {

constexpr int16_t kMostUses = 32767;  // a count that has come to this stays there

using Uses = std::unordered_map<const void*, int32_t>;

bool IsCounted(Aim aim) {
    return aim == Aim::Symbol || aim == Aim::Font || aim == Aim::GenericText || aim == Aim::Any;
}

// How often each symbol, font and text is pointed at as a whole.
Uses CountUses(const ScoreProof& proof) {
    Uses uses;
    proof.ForEachObject([&](const uint8_t* object, int16_t number) {
        for (const LinkField& link : InfoOf(number)->links) {
            if (link.role != LinkRole::Whole || !IsCounted(link.aim)) continue;
            uint32_t distance;
            std::memcpy(&distance, object + link.offset, sizeof distance);
            if (distance) ++uses[StoredSpace::At<void>(distance)];
        }
    });
    return uses;
}

int32_t UsesOf(const Uses& uses, const void* object) {
    const auto found = uses.find(object);
    return found == uses.end() ? 0 : found->second;
}

template <class Count>
void CheckCount(ScoreProof& proof, Stored<Count>& field, int32_t uses, const char* what) {
    if (field.Get() != kMostUses || uses == 0)
        proof.ExpectNumber(field, std::min<int32_t>(uses, kMostUses), what);
}

void CheckSymbols(ScoreProof& proof, const Uses& uses) {
    std::unordered_set<std::string_view> names;
    for (FontSymbol* symbol : documentFontSymbols.Of(proof.document)) {
        proof.Expect(symbol->_name.Get() && names.insert(TextOf(symbol->_name)).second, symbol,
                     "a symbol without a name of its own");
        CheckCount(proof, symbol->_useCount, UsesOf(uses, symbol), "use count of a symbol");
    }
    for (TarnFont* font : documentFonts.Of(proof.document)) {
        proof.Expect(font->_name.Get() != nullptr, font, "a font without a name");
        // The document itself may hold a font that nothing names.
        if (const int32_t count = UsesOf(uses, font); font->_useCount < count)
            proof.ExpectNumber(font->_useCount, count, "use count of a font");
    }
}

void CheckObjects(ScoreProof& proof, const Uses& uses) {
    proof.ForEachObject([&](void* object, int16_t number) {
        if (number == GenericText::kClass)
            proof.Expect(UsesOf(uses, object) == 1, object, "the text has not one owner");
        if (!FontSymbol::IsHeir(number)) return;
        const bool listed = documentFontSymbols.IsLinked(static_cast<FontSymbol*>(object));
        proof.Expect(listed || UsesOf(uses, object) == 0, object,
                     "a symbol in use is not in the document's list");
    });
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

void CheckUses(ScoreProof& proof) {
    const Uses uses = CountUses(proof);
    CheckSymbols(proof, uses);
    CheckObjects(proof, uses);
    CheckPreferences(proof);
}

}  // namespace corvane
