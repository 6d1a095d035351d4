#include "store/LegacyReader.h"

#include <algorithm>
#include <cstring>

#include "store/FileForm.h"
#include "store/ObjectHeader.h"

namespace corvane {

void LegacyDecoder::ToMemory(const ScoreStream::Record& record, uint8_t* object) {
    // Through the file form and back: bytes that hold nothing, such as a foreign program's addresses, come
    // out zero.
    const uint16_t size = InfoOf(record.word)->size;
    uint8_t memory[kLargestRecord], file[kLargestRecord];
    std::memcpy(memory, record.data, size);
    const FileForm& form = FileForm::Of(record.word);
    form.Encode(memory, file);
    form.Decode(file, object);
}

bool LegacyDecoder::Decode(const ObjectFilePlaces::Field& field, uint32_t value, PointerTarget& target) {
    const auto behind = std::upper_bound(_objects.positions.begin() + 1, _objects.positions.end(), value);
    if (behind == _objects.positions.begin() + 1) return false;
    const uint32_t place = value - *(behind - 1);
    if (place < kWordSize) return false;
    target = {static_cast<uint32_t>(behind - _objects.positions.begin() - 1), place - kWordSize};
    return PointerFits(field, _objects.classes[target.number], target.place);
}

}  // namespace corvane
