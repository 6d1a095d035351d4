#include "model/RecordRelease.h"

#include "model/SymbolTable.h"

namespace corvane {
namespace {

void DropObject(Document* document, void* object) {
    const int16_t number = ClassNumberOf(object);
    if (number < 0) return MemoryManager::Instance().Release(object);
    if (FontSymbol::IsHeir(number)) return ReleaseSymbol(document, static_cast<FontSymbol*>(object));
    if (number == TarnFont::kClass) return ReleaseFont(document, static_cast<TarnFont*>(object));
    if (number == GenericText::kClass) return DropRecord(document, static_cast<BehaviourWord*>(object));
}

bool IsOwned(Aim aim) {
    return aim != Aim::DocStaff && aim != Aim::Time && aim != Aim::Staff && aim != Aim::Record;
}

}  // namespace

void DropRecord(Document* document, BehaviourWord* record) {
    for (const LinkField& link : InfoOfObject(record)->links) {
        if (link.role != LinkRole::Whole) continue;
        auto& field = *reinterpret_cast<Ptr<void>*>(reinterpret_cast<uint8_t*>(record) + link.offset);
        void* target = field;
        if (!target) continue;
        field = nullptr;
        if (IsOwned(link.aim)) DropObject(document, target);
    }
    MemoryManager::Instance().Release(record);
}

}  // namespace corvane
