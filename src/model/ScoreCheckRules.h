// The rules of a sound score, for ScoreCheck alone: what a rule may read, and how it tells what it finds. A
// rule looks at one object; it may follow any pointer, for the graph is proven before.
#pragma once

#include <map>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "model/Relations.h"
#include "store/ObjectFile.h"
#include "store/ObjectIndexBitmap.h"

namespace corvane {

enum class Weight {
    Grave,   // the score cannot be used
    Slight,  // told of a live score; a file that has it opens all the same
};

class ScoreProof {
public:
    // The index is the pool's, and outlives this.
    ScoreProof(const NewMemoryPool& pool, const ObjectIndexBitmap& index, bool healing, size_t limit);

    void Run(std::span<const void* const> kept);

    // Told at most `limit` times; on a load slight ones are passed over.
    void Tell(Weight weight, const void* object, int32_t offset, const char* text);
    void Expect(bool good, const void* object, const char* text, Weight weight = Weight::Grave) {
        if (!good) Tell(weight, object, -1, text);
    }
    // A number that the rest of the score tells: set right on a load, else found.
    template <class T, class V>
    void ExpectNumber(Stored<T>& field, V value, const char* what) {
        if (field.Get() == static_cast<T>(value)) return;
        if (!_healing) return Tell(Weight::Grave, &field, 0, what);
        field = static_cast<T>(value);
        Healed(what);
    }
    void Healed(const char* what) { ++_healed[what]; }
    bool Healing() const { return _healing; }

    // Each typed object, what only a clipboard holds included.
    template <class Visit>
    void ForEachObject(Visit visit) const {
        _index.ForEach([&](ObjectIndexBitmap::Object object) {
            if (const int16_t number = ClassNumberOf(object.start); number > 0) visit(object.start, number);
        });
    }

    Document* const document;
    const int docStaffCount;
    std::vector<Finding> findings;
    std::vector<std::string> HealedLines() const;

private:
    void CheckMembership(void* object, int16_t number);
    bool IsOfScore(const void* object) const { return _apart.empty() || !_apart.contains(object); }

    const NewMemoryPool& _pool;
    const ObjectIndexBitmap& _index;
    const bool _healing;
    const size_t _limit;
    std::map<std::string, int> _healed;
    std::unordered_set<const void*> _apart;  // what only a clipboard holds: no rule but the graph's is for it
};

// What must hold of an object of a class.
struct ScoreRule {
    int16_t classNumber;
    void (*check)(ScoreProof& proof, void* object);
};
template <class R, void (*Check)(ScoreProof&, R*)>
constexpr ScoreRule RuleFor(int16_t number = R::kClass) {
    return {number, [](ScoreProof& proof, void* object) { Check(proof, static_cast<R*>(object)); }};
}
std::span<const ScoreRule> SkeletonRules();
std::span<const ScoreRule> MusicRules();
std::span<const ScoreRule> TimeRules();

// How often each symbol, font and text is pointed at as a whole, gathered object by object.
class UseCounts {
public:
    void Take(void* object, int16_t number);
    int32_t Of(const void* object) const;
    const std::vector<void*>& TextsAndSymbols() const { return _textsAndSymbols; }

private:
    std::unordered_map<const void*, int32_t> _uses;
    std::vector<void*> _textsAndSymbols;
};

// What is told of the score as a whole.
void CheckSkeleton(ScoreProof& proof);  // numbers and counts from the Document down
// Names and use counts of symbols and fonts, preference records.
void CheckUses(ScoreProof& proof, const UseCounts& uses);

}  // namespace corvane
