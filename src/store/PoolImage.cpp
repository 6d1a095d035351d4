#include "store/PoolImage.h"

#include <algorithm>
#include <cstring>

#include "base/StoredSpace.h"
#include "store/ClassInfo.h"
#include "store/NewMemoryPool.h"
#include "store/VerifierBlocks.h"
#include "store/VerifierGraph.h"

namespace corvane {
namespace {

class Restoration {
public:
    Restoration(const PoolImage& image, NewMemoryPool& pool) : _image(image), _pool(pool) {}
    bool Run();

private:
    // Where a block lay and where it lies now.
    struct Move {
        uint32_t from;
        uint8_t* to;
    };
    bool Fill();
    bool Relocate(uint8_t* place) const;
    uint8_t* NowAt(uint32_t distance) const;
    bool Prove() const;

    const PoolImage& _image;
    NewMemoryPool& _pool;
    std::vector<Move> _moves;  // by `from`
};

// Holes become nothing: their list is not kept. False where the way through the block breaks off.
bool ClearHoles(uint8_t* start, uint32_t usable) {
    for (uint32_t at = 0; at < usable;) {
        uint8_t* place = start + at;
        const uint32_t span = SpanAt(place);
        if (span == 0 || span % kGranule || span > usable - at) return false;
        if (WordAt(place) == kHoleWord) std::memset(place, 0, span);
        at += span;
    }
    return true;
}

bool Restoration::Fill() {
    if (!_pool.StartFilling()) return false;
    bool room = true;
    for (const PoolImage::Block& block : _image.blocks) {
        if (block.bytes.size() != _image.usable) return false;
        if (!_moves.empty()) room = _pool.NextFillingBlock();
        if (!room) return false;
        std::memcpy(_pool.FillPlace(), block.bytes.data(), _image.usable);
        _moves.push_back({block.distance, _pool.FillPlace()});
        _pool.AdvanceFilling(_image.usable);
    }
    _pool.FinishFilling();
    std::sort(_moves.begin(), _moves.end(), [](const Move& a, const Move& b) { return a.from < b.from; });
    return std::all_of(_moves.begin(), _moves.end(),
                       [&](const Move& move) { return ClearHoles(move.to, _image.usable); });
}

// Null for a distance that lay in no block.
uint8_t* Restoration::NowAt(uint32_t distance) const {
    auto move = std::upper_bound(_moves.begin(), _moves.end(), distance,
                                 [](uint32_t d, const Move& m) { return d < m.from; });
    if (move == _moves.begin()) return nullptr;
    --move;
    return distance - move->from < _image.usable ? move->to + (distance - move->from) : nullptr;
}

bool Restoration::Relocate(uint8_t* object) const {
    for (const uint16_t offset : InfoOfObject(object)->pointers) {
        uint32_t value;
        std::memcpy(&value, object + offset, sizeof value);
        if (!value) continue;
        const uint8_t* target = NowAt(value);
        if (!target) return false;
        value = StoredSpace::DistanceOf(target);
        std::memcpy(object + offset, &value, sizeof value);
    }
    return true;
}

bool Restoration::Prove() const {
    std::vector<Finding> faults;
    CheckBlocks(_pool, faults);
    if (!faults.empty()) return false;
    const ObjectIndexBitmap index(_pool);
    VerifierGraph graph(_pool, index, faults, 1);
    graph.CheckObjects();
    if (faults.empty()) graph.CheckRings();
    return faults.empty();
}

bool Restoration::Run() {
    if (_image.blocks.empty() || !Fill()) return false;
    for (void* object = _pool.FirstObject(); object; object = _pool.NextObject(object))
        if (ClassNumberOf(object) > 0 && !Relocate(static_cast<uint8_t*>(object))) return false;
    _pool.SetDocumentObject(NowAt(_image.document));
    return Prove();
}

}  // namespace

std::unique_ptr<NewMemoryPool> RestorePool(const PoolImage& image) {
    if (image.usable == 0 || image.usable % kGranule || image.usable > kDefaultPoolSize) return nullptr;
    auto pool = std::make_unique<NewMemoryPool>(image.usable);
    if (!Restoration(image, *pool).Run()) return nullptr;
    return pool;
}

}  // namespace corvane
