// The proof of the objects of a pool whose blocks are sound.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "store/ObjectFilePlaces.h"
#include "store/ObjectIndexBitmap.h"
#include "store/Verifier.h"

namespace corvane {

struct TopOfRing;

class VerifierGraph {
public:
    // The index is the pool's, and outlives this.
    VerifierGraph(const NewMemoryPool& pool, const ObjectIndexBitmap& index, std::vector<Finding>& findings,
                  size_t limit);

    // Every pointer on a place that its field may lead to, texts ended and held once, child ends linked
    // wholly or not at all, one Document, first. What follows may only be asked when this finds nothing.
    // With `pointersProven`, as a load has found them good one by one, only what a pointer alone does not
    // show.
    void CheckObjects(bool pointersProven = false);
    // Every ring closed and mirrored, its children's source its parent, every linked child in a ring.
    void CheckRings();
    // Objects to which no way leads from the Document or from `kept`, in the order of their numbers.
    std::vector<void*> Unreached(std::span<const void* const> kept) const;

private:
    using Object = ObjectIndexBitmap::Object;
    void Add(Object object, int32_t offset, const char* text);
    void CheckObject(Object object, int16_t number, bool pointersProven);
    void CheckField(Object object, const ObjectFilePlaces::Field& field);
    void CheckText(Object object, const ObjectFilePlaces::Field& field, Object raw);
    void CheckChildEnds(Object object, int16_t number);
    void WalkRing(Object parent, const TopOfRing& top, std::vector<uint32_t>* met);
    void FindStrays(std::vector<uint32_t>& met);
    uint32_t Distance(const uint8_t* at) const;

    const NewMemoryPool& _pool;
    const ObjectFilePlaces& _places = ObjectFilePlaces::Instance();
    const ObjectIndexBitmap& _index;
    std::vector<Finding>& _findings;
    const size_t _limit;
    std::vector<bool> _held;               // raw blocks that a field holds, by bit of the index
    std::vector<uint32_t> _withoutSource;  // children met in rings that have no source
    uint64_t _linked = 0, _inRings = 0;    // child ends
};

}  // namespace corvane
