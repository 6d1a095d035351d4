// Loading: the objects of a file into an empty pool, their pointers turned into addresses. Proves each
// pointer, not yet the rings.
#pragma once

#include <span>
#include <vector>

#include "base/Status.h"
#include "store/ObjectFilePlaces.h"
#include "store/ScoreStream.h"
#include "store/Verifier.h"

namespace corvane {

class NewMemoryPool;

// Where the objects of a file come to lie, by number; entry 0 is unused.
struct FilledObjects {
    std::vector<uint32_t> distances = {0};
    std::vector<uint8_t> classes = {0xFF};  // kRawClass for a raw block
    std::vector<uint32_t> positions = {0};  // of the words in a legacy file's stream
    uint32_t Count() const { return static_cast<uint32_t>(classes.size()) - 1; }
    // Takes out objects that were given back, once the positions are of no more use.
    void Forget(std::vector<void*> gone);
};

// What differs between the forms of a file.
class ObjectDecoder {
public:
    virtual ~ObjectDecoder() = default;
    // The bytes of a typed record in memory form, pointers as they stand in the file.
    virtual void ToMemory(const ScoreStream::Record& record, uint8_t* object) = 0;
    // Where a stored value other than 0 leads; false where `field` may not lead there.
    virtual bool Decode(const ObjectFilePlaces::Field& field, uint32_t value, PointerTarget& target) = 0;
};

// Today's form: most significant byte first, pointers as object numbers and half offsets.
class FileFormDecoder : public ObjectDecoder {
public:
    static constexpr uint32_t kMargin = 32;  // kept free at the end of each block
    explicit FileFormDecoder(const FilledObjects& objects) : _objects(objects) {}
    void ToMemory(const ScoreStream::Record& record, uint8_t* object) override;
    bool Decode(const ObjectFilePlaces::Field& field, uint32_t value, PointerTarget& target) override;

private:
    const FilledObjects& _objects;
};

// Gives each record of the stream its place in the pool, at ascending addresses. Damaged with a finding, or
// NoSpace.
Status TakePlaces(NewMemoryPool& pool, std::span<const uint8_t> bytes, const ScoreHeader& header,
                  uint32_t margin, FilledObjects& objects, Finding& fault);

// The word and the bytes of each object, its behaviour words set. Damaged with a finding.
Status FillObjects(std::span<const uint8_t> bytes, const ScoreHeader& header, const FilledObjects& objects,
                   ObjectDecoder& decoder, Finding& fault);

}  // namespace corvane
