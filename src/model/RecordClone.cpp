#include "model/RecordClone.h"

#include <cstring>

#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr uint16_t kWord = sizeof(BehaviourWord);

void* CloneBlock(const void* block) {
    const uint32_t size = NewMemoryPool::SizeOf(block);
    void* copy = MemoryManager::Instance().AllocateRaw(static_cast<int32_t>(size));
    std::memcpy(copy, block, size);
    return copy;
}

void* CloneOwned(Document* target, Aim aim, void* object) {
    const int16_t number = ClassNumberOf(object);
    if (number < 0) return aim == Aim::Text || aim == Aim::Raw ? CloneBlock(object) : nullptr;
    if (FontSymbol::IsHeir(number)) {
        auto* symbol = static_cast<FontSymbol*>(object);
        const bool here = MemoryManager::Instance().GetCurrentPool()->BlockOf(symbol);
        return here ? ShareSymbol(symbol) : CopySymbol(target, symbol);
    }
    if (number == TarnFont::kClass) {
        const auto* font = static_cast<const TarnFont*>(object);
        return LookupFont(target, TextOf(font->_name), font->_size, font->_style);
    }
    if (aim == Aim::GenericText) return CloneRecord(target, static_cast<const BehaviourWord*>(object));
    return nullptr;
}

// The bytes of all fields but stored pointers and behaviour words.
void CopyFields(const ClassInfo& info, uint8_t* to, const uint8_t* from) {
    for (uint16_t at = kWord; at < info.size;) {
        if (info.LinkAt(at) || (info.secondWord && at == info.secondWord)) {
            at += kWord;
            continue;
        }
        to[at] = from[at];
        ++at;
    }
}

}  // namespace

BehaviourWord* CloneRecord(Document* target, const BehaviourWord* record) {
    const ClassInfo& info = *InfoOfObject(record);
    auto* clone = static_cast<BehaviourWord*>(MemoryManager::Instance().Allocate(info.number));
    CORVANE_ASSERT_AS(clone, "object");
    auto* to = reinterpret_cast<uint8_t*>(clone);
    const auto* from = reinterpret_cast<const uint8_t*>(record);
    CopyFields(info, to, from);
    for (const LinkField& link : info.links) {
        if (link.role != LinkRole::Whole) continue;
        void* owned = *reinterpret_cast<const Ptr<void>*>(from + link.offset);
        if (!owned) continue;
        void* copy = CloneOwned(target, link.aim, owned);
        *reinterpret_cast<Ptr<void>*>(to + link.offset) = copy;
    }
    return clone;
}

}  // namespace corvane
