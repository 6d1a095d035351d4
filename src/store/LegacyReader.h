// The older form of files: objects as they lay in memory, least significant byte first, behaviour words
// included; pointers are positions in the stream. Read, never written.
#pragma once

#include "store/ObjectFileLoader.h"

namespace corvane {

class LegacyDecoder : public ObjectDecoder {
public:
    static constexpr uint32_t kMargin = 2;
    explicit LegacyDecoder(const FilledObjects& objects) : _objects(objects) {}
    void ToMemory(const ScoreStream::Record& record, uint8_t* object) override;
    bool Decode(const ObjectFilePlaces::Field& field, uint32_t value, PointerTarget& target) override;

private:
    const FilledObjects& _objects;
};

}  // namespace corvane
