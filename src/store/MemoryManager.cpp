#include "store/MemoryManager.h"

#include <algorithm>

#include "base/Assert.h"
#include "store/ClassInfo.h"
#include "store/CommandObserver.h"
#include "store/NamedClasses.h"
#include "store/Stored.h"

namespace corvane {

MemoryManager& MemoryManager::Instance() {
    static MemoryManager _instance;
    return _instance;
}

NewMemoryPool& MemoryManager::Current() const {
    CORVANE_ASSERT_AS(_currentPool, "_instance->_currentPool");
    return *_currentPool;
}

NewMemoryPool* MemoryManager::NewPool(uint32_t size) {
    _pools.push_back(std::make_unique<NewMemoryPool>(size));
    return _currentPool = _pools.back().get();
}

void MemoryManager::DeletePool(NewMemoryPool* pool) {
    const auto found =
        std::find_if(_pools.begin(), _pools.end(), [&](const auto& p) { return p.get() == pool; });
    CORVANE_ASSERT_AS(found != _pools.end(), "pool");
    if (_currentPool == pool) _currentPool = nullptr;
    _pools.erase(found);
}

void* MemoryManager::Allocate(int32_t size, const char* className) {
    const int16_t number = NumberOf(className);
    CORVANE_ASSERT_AS(number && InfoOf(number)->size == size, "_infoArray");
    return Allocate(number);
}

void* MemoryManager::Allocate(int16_t classNumber) {
    const ClassInfo* info = InfoOf(classNumber);
    void* object = Current().Allocate(classNumber, info->size);
    if (!object) return nullptr;
    info->creator->Rebind(object, *info);
    if (classNumber == named::kDocument) Current().SetDocumentObject(object);
    return object;
}

void* MemoryManager::AllocateRaw(int32_t size) { return Current().AllocateRaw(size); }

void MemoryManager::Release(void* object) { Current().Release(object); }

void MemoryManager::BeginCommand() {
    Current().BeginCommand();
    if (_observer) _observer->CommandBegins(Current());
}

void MemoryManager::EndCommand() {
    Current().EndCommand();
    if (_observer) _observer->CommandEnds(Current());
}

void Touch(const void* place, size_t bytes) {
    if (!place) return;
    NewMemoryPool* pool = MemoryManager::Instance().GetCurrentPool();
    CORVANE_ASSERT_AS(pool, "_instance->_currentPool");
    pool->Touch(place, bytes);
}

}  // namespace corvane
