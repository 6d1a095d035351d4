// Any bytes at all: refused with an empty pool, or a score that is sound, saves, and comes back the same.
#include <cstdlib>

#include "model/ClassTable.h"
#include "model/ScoreCheck.h"
#include "store/MemoryManager.h"

namespace {

void Require(bool good) {
    if (!good) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace corvane;
    RegisterClasses();
    MemoryManager& manager = MemoryManager::Instance();
    NewMemoryPool* pool = manager.NewPool();
    if (!ReadScore(*pool, {data, size})) {
        Require(!pool->FirstObject() && pool->Free() == pool->Total());
    } else {
        std::vector<uint8_t> once, twice;
        Require(CheckPool(*pool).empty());
        Require(EncodeScore(*pool, once).ok());
        NewMemoryPool* again = manager.NewPool();
        LoadReport report;
        Require(ReadScore(*again, once, &report).ok() && report.healed.empty());
        Require(EncodeScore(*again, twice).ok() && once == twice);
        manager.DeletePool(again);
    }
    manager.DeletePool(pool);
    return 0;
}
