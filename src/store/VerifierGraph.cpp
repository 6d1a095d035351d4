#include "store/VerifierGraph.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "base/StoredSpace.h"
#include "store/NamedClasses.h"
#include "store/NewMemoryPool.h"
#include "store/VerifierEnds.h"

namespace corvane {
namespace {

int16_t WordOf(ObjectIndexBitmap::Object object) { return WordAt(object.start - kWordSize); }

uint32_t PointerAt(const uint8_t* place) {
    uint32_t value;
    std::memcpy(&value, place, sizeof value);
    return value;
}
const uint8_t* Follow(uint32_t distance) { return StoredSpace::At<const uint8_t>(distance); }

// Hands each item out some turns after it came in: until then what it leads to is on its way from memory.
template <class T>
class Delay {
public:
    static constexpr size_t kTurns = 8;
    T Turn(const T& in) { return std::exchange(_items[_turn++ % kTurns], in); }

private:
    std::array<T, kTurns> _items{};
    size_t _turn = 0;
};

bool IsHolderOfRaw(Aim aim) { return aim == Aim::Text || aim == Aim::Raw || aim == Aim::Any; }

}  // namespace

VerifierGraph::VerifierGraph(const NewMemoryPool& pool, const ObjectIndexBitmap& index,
                             std::vector<Finding>& findings, size_t limit)
    : _pool(pool), _index(index), _findings(findings), _limit(limit), _held(_index.BitCount()) {}

void VerifierGraph::Add(Object object, int32_t offset, const char* text) {
    if (_findings.size() < _limit)
        _findings.push_back({_index.NumberOf(object), WordOf(object), offset, text});
}

// ---- objects

void VerifierGraph::CheckObjects(bool pointersProven) {
    uint32_t documents = 0, number = 0;
    _index.ForEach([&](Object object) {
        ++number;
        const int16_t word = WordOf(object);
        if (word < 0) return;
        if (word == named::kDocument && (++documents > 1 || number > 1 || object.start != _pool.DocumentObject()))
            Add(object, -1, "a Document that is not the one first object");
        CheckObject(object, word, pointersProven);
    });
    if (!documents && _findings.size() < _limit) _findings.push_back({0, 0, -1, "there is no Document"});
}

void VerifierGraph::CheckObject(Object object, int16_t number, bool pointersProven) {
    for (const ObjectFilePlaces::Field& field : _places.FieldsOf(number)) {
        const bool mayHoldRaw = field.link.role == LinkRole::Whole && IsHolderOfRaw(field.link.aim);
        if ((mayHoldRaw || !pointersProven) && PointerAt(object.start + field.link.offset))
            CheckField(object, field);
    }
    CheckChildEnds(object, number);
}

void VerifierGraph::CheckField(Object object, const ObjectFilePlaces::Field& field) {
    const uint8_t* place = Follow(PointerAt(object.start + field.link.offset));
    const Object target = _index.Find(place);
    if (!target.start) return Add(object, field.link.offset, "the pointer leads to no object");
    const int16_t targetClass = TargetClass(WordOf(target));
    if (!PointerFits(field, targetClass, static_cast<uint32_t>(place - target.start)))
        return Add(object, field.link.offset, "the pointer leads to a place that its field does not allow");
    if (targetClass == kRawClass)
        CheckText(object, field, target);
    else if (field.link.aim == Aim::Text)
        Add(object, field.link.offset, "the text is not a raw block");
}

void VerifierGraph::CheckText(Object object, const ObjectFilePlaces::Field& field, Object raw) {
    const auto length = static_cast<size_t>(-WordOf(raw));
    if (field.link.aim == Aim::Text && !std::memchr(raw.start, 0, length))
        Add(object, field.link.offset, "the text has no end");
    if (_held[raw.bit]) Add(object, field.link.offset, "the raw block belongs to another field too");
    _held[raw.bit] = true;
}

void VerifierGraph::CheckChildEnds(Object object, int16_t number) {
    for (const ChildEnd& end : EndsOf(number).children) {
        const uint8_t* next = object.start + end.next;
        const bool linked = PointerAt(next) != 0;
        _linked += linked;
        if (end.prev && (PointerAt(next + end.prev) != 0) != linked)
            Add(object, end.next + end.prev, "prev and next do not agree");
        if (end.source && (PointerAt(next + end.source) != 0) != linked)
            Add(object, end.next + end.source, "source and next do not agree");
    }
}

// ---- rings

void VerifierGraph::CheckRings() {
    struct Ring {
        Object parent;
        const TopOfRing* top = nullptr;
    };
    Delay<Ring> coming;
    const auto walk = [&](const Ring& ring) {
        if (ring.top) WalkRing(ring.parent, *ring.top, nullptr);
    };
    _index.ForEach([&](Object object) {
        const int16_t word = WordOf(object);
        if (word < 0) return;
        for (const TopOfRing& top : EndsOf(word).tops) {
            const uint32_t last = PointerAt(object.start + top.last);
            if (!last) continue;
            __builtin_prefetch(Follow(last));
            walk(coming.Turn({object, &top}));
        }
    });
    for (size_t i = 0; i < coming.kTurns; ++i) walk(coming.Turn({}));
    std::sort(_withoutSource.begin(), _withoutSource.end());
    const auto twice = std::adjacent_find(_withoutSource.begin(), _withoutSource.end());
    if (twice != _withoutSource.end()) Add(_index.Find(Follow(*twice)), -1, "two parents share a ring");
    if (!_findings.empty() || _inRings == _linked) return;
    std::vector<uint32_t> met;
    _index.ForEach([&](Object object) {
        if (WordOf(object) < 0) return;
        for (const TopOfRing& top : EndsOf(WordOf(object)).tops) WalkRing(object, top, &met);
    });
    FindStrays(met);
}

// With `met`, only gathers the children of a ring that is known to be closed.
void VerifierGraph::WalkRing(Object parent, const TopOfRing& top, std::vector<uint32_t>* met) {
    const uint8_t* end = parent.start + top.last;
    const uint32_t last = PointerAt(end);
    uint64_t steps = 0;
    for (uint32_t at = last; at;) {
        if (met) met->push_back(at);
        const uint8_t* child = Follow(at);
        const uint32_t next = PointerAt(child);
        if (!next || ++steps > _linked) return Add(parent, top.last, "the ring does not close");
        if (top.source && Follow(PointerAt(child + top.source)) != end)
            return Add(_index.Find(child), -1, "the source is not the parent whose ring holds the object");
        if (top.prev && PointerAt(Follow(next) + top.prev) != at)
            return Add(_index.Find(Follow(next)), -1, "prev is not the one whose next it is");
        if (!top.source && !met) _withoutSource.push_back(at);
        at = next == last ? 0 : next;
    }
    if (!met) _inRings += steps;
}

void VerifierGraph::FindStrays(std::vector<uint32_t>& met) {
    std::sort(met.begin(), met.end());
    _index.ForEach([&](Object object) {
        if (WordOf(object) < 0) return;
        for (const ChildEnd& end : EndsOf(WordOf(object)).children) {
            const uint32_t at = StoredSpace::DistanceOf(object.start + end.next);
            if (PointerAt(object.start + end.next) && !std::binary_search(met.begin(), met.end(), at))
                Add(object, end.next, "no parent's ring holds the object");
        }
    });
}

// ---- what can be reached

std::vector<void*> VerifierGraph::Unreached(std::span<const void* const> kept) const {
    std::vector<bool> reached(_index.BitCount());
    std::vector<Object> open;
    uint32_t count = 0;
    const auto reach = [&](const void* place) {
        const Object object = _index.Find(place);
        if (!object.start || reached[object.bit]) return;
        reached[object.bit] = true;
        ++count;
        open.push_back(object);
    };
    // The links that a class can be left by, each with what it led to the last time: brothers have one
    // parent, and many heads one symbol. A prev leads nowhere that the next of its ring does not.
    struct Way {
        uint16_t offset;
        uint32_t last;
    };
    std::vector<std::vector<Way>> ways(static_cast<size_t>(ClassCount()) + 1);
    for (size_t number = 1; number < ways.size(); ++number)
        for (const ObjectFilePlaces::Field& field : _places.FieldsOf(static_cast<int16_t>(number)))
            if (field.link.role != LinkRole::Prev) ways[number].push_back({field.link.offset, 0});
    reach(_pool.DocumentObject());
    for (const void* place : kept) reach(place);
    const auto leave = [&](const Object& object) {
        if (WordOf(object) < 0) return;
        for (Way& way : ways[static_cast<size_t>(WordOf(object))]) {
            const uint32_t value = PointerAt(object.start + way.offset);
            if (!value || value == way.last) continue;
            way.last = value;
            reach(Follow(value));
        }
    };
    Delay<Object> coming;
    for (size_t idle = 0; idle < coming.kTurns;) {
        Object next;
        if (!open.empty()) {
            next = open.back();
            open.pop_back();
            __builtin_prefetch(next.start);
        }
        const Object object = coming.Turn(next);
        idle = object.start || next.start ? 0 : idle + 1;
        if (object.start) leave(object);
    }
    std::vector<void*> left;
    if (count < _index.Count())
        _index.ForEach([&](Object object) {
            if (!reached[object.bit]) left.push_back(object.start);
        });
    return left;
}

}  // namespace corvane
