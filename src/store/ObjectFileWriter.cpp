// Saving: one run over the pool for the numbers and the class names, one that encodes each object into the
// bytes.
#include <array>

#include "base/BigEndian.h"
#include "base/StoredSpace.h"
#include "store/ClassSpans.h"
#include "store/FileForm.h"
#include "store/NewMemoryPool.h"
#include "store/ObjectFile.h"
#include "store/ObjectFilePlaces.h"
#include "store/ObjectIndexBitmap.h"
#include "store/ScoreStream.h"

namespace corvane {
namespace {

constexpr uint32_t kMostObjects = 0xFFFFFF;  // a stored pointer has 24 bits for the number
constexpr size_t kMostClasses = 150;

class ObjectFileWriter {
public:
    ObjectFileWriter(const NewMemoryPool& pool, std::vector<uint8_t>& out) : _index(pool), _out(out) {}
    Status Write();

private:
    void NameClasses();
    bool EncodeTyped(const uint8_t* object, int16_t number, uint8_t* file);
    bool EncodeField(const ObjectFilePlaces::Field& field, uint8_t* memory) const;

    const ObjectIndexBitmap _index;
    std::vector<uint8_t>& _out;
    std::vector<int16_t> _classes;                  // in order of first appearance
    std::array<uint16_t, kMostClasses + 1> _ids{};  // by class number
    size_t _streamSize = 0;
};

void ObjectFileWriter::NameClasses() {
    _index.ForEach([&](ObjectIndexBitmap::Object object) {
        const int16_t word = WordAt(object.start - kWordSize);
        _streamSize += ClassSpans::OfWord(word);
        if (word < 0 || _ids[static_cast<size_t>(word)]) return;
        _classes.push_back(word);
        _ids[static_cast<size_t>(word)] = static_cast<uint16_t>(_classes.size());
    });
}

bool ObjectFileWriter::EncodeField(const ObjectFilePlaces::Field& field, uint8_t* memory) const {
    uint32_t value;
    std::memcpy(&value, memory + field.link.offset, sizeof value);
    if (!value) return true;
    const auto* place = StoredSpace::At<const uint8_t>(value);
    const ObjectIndexBitmap::Object target = _index.Find(place);
    if (!target.start) return false;
    const PointerTarget to{_index.NumberOf(target), static_cast<uint32_t>(place - target.start)};
    if (!EncodePointer(field, TargetClass(WordAt(target.start - kWordSize)), to, value)) return false;
    std::memcpy(memory + field.link.offset, &value, sizeof value);
    return true;
}

bool ObjectFileWriter::EncodeTyped(const uint8_t* object, int16_t number, uint8_t* file) {
    uint8_t memory[kLargestRecord];
    const uint16_t size = InfoOf(number)->size;
    std::memcpy(memory, object, size);
    for (const ObjectFilePlaces::Field& field : ObjectFilePlaces::Instance().FieldsOf(number))
        if (!EncodeField(field, memory)) return false;
    FileForm::Of(number).Encode(memory, file);
    return true;
}

Status ObjectFileWriter::Write() {
    if (_index.Count() > kMostObjects)
        return {Fault::Refused, "Can't save, the score has more than " + std::to_string(kMostObjects) + " objects"};
    NameClasses();
    WriteHeader(_classes, _out);
    uint32_t number = 0, damaged = 0;
    size_t at = _out.size();
    _out.resize(at + _streamSize);
    _index.ForEach([&](ObjectIndexBitmap::Object object) {
        ++number;
        const int16_t word = WordAt(object.start - kWordSize);
        uint8_t* record = _out.data() + at;
        at += ClassSpans::OfWord(word);
        WriteBig16(record, word < 0 ? static_cast<uint16_t>(word) : _ids[static_cast<size_t>(word)]);
        if (word < 0)
            std::memcpy(record + kWordSize, object.start, static_cast<size_t>(-word));
        else if (!EncodeTyped(object.start, word, record + kWordSize))
            damaged = number;
    });
    if (!damaged) return Status::Ok();
    return {Fault::Damaged, "Can't save, object " + std::to_string(damaged) + " of the score is damaged"};
}

}  // namespace

Status EncodeScore(const NewMemoryPool& pool, std::vector<uint8_t>& out) {
    out.clear();
    if (!pool.DocumentObject()) return {Fault::Refused, "Can't save, there is no score"};
    Status status = ObjectFileWriter(pool, out).Write();
    if (!status) out.clear();
    return status;
}

}  // namespace corvane
