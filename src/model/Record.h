// What all records share. A record lies in a pool and never on the stack; it has fields, relation ends and no virtual
// function. What differs by class is found by the class number in its behaviour word.
#pragma once

#include <cstdint>

#include "store/ClassInfo.h"
#include "store/MemoryManager.h"
#include "store/RelationKit.h"
#include "store/Stored.h"

namespace corvane {

// The first word of a record and of each base that stands at different places in different classes. Holds the class
// number while the program runs; not in files.
struct BehaviourWord {
    BehaviourWord() = delete;
    BehaviourWord(const BehaviourWord&) = delete;
    BehaviourWord& operator=(const BehaviourWord&) = delete;
    int16_t ClassNumber() const { return static_cast<int16_t>(_behaviour.Get()); }

private:
    Packed2<uint32_t> _behaviour;
};

// Bytes between two ends that no field names; N tells several of one record apart.
template <int Count, int N = 0>
struct Gap {
    Filler<Count> _gap;
};

// A pointer to a raw block that holds a zero-ended text.
using TextBlock = Ptr<char>;

// A new object of the class in the current pool, all fields zero.
template <class R>
R* Make() {
    void* object = MemoryManager::Instance().Allocate(R::kClass);
    CORVANE_ASSERT_AS(object, "object");
    return static_cast<R*>(object);
}

// Whether a class number is R or, for an abstract R, one of its heirs.
template <class R>
constexpr bool IsClass(int16_t number) {
    if constexpr (requires { R::IsHeir(number); }) return R::IsHeir(number);
    else return number == R::kClass;
}

// The object as R, null if it is none or null itself.
template <class R, class Base>
R* As(Base* object) {
    return object && IsClass<R>(object->ClassNumber()) ? static_cast<R*>(object) : nullptr;
}
template <class R, class Base>
const R* As(const Base* object) {
    return object && IsClass<R>(object->ClassNumber()) ? static_cast<const R*>(object) : nullptr;
}

// Gives an unlinked object back to its pool. R is its concrete class.
template <class R>
void Release(R* object) {
    static_assert(R::kClass > 0);
    MemoryManager::Instance().Release(object);
}

// A raw block with the text and its ending zero; null for a text beyond 31988 bytes.
char* MakeText(std::string_view text);
// Releases the old text of a field and stores a new one.
void SetText(TextBlock& field, std::string_view text);
// Releases the text of a field, which becomes null.
void ReleaseText(TextBlock& field);
// The text of a field; empty for null.
std::string_view TextOf(const TextBlock& field);

}  // namespace corvane
