#include "store/ObjectFileLoader.h"

#include <algorithm>
#include <cstring>

#include "base/BigEndian.h"
#include "base/StoredSpace.h"
#include "store/FileForm.h"
#include "store/NamedClasses.h"
#include "store/NewMemoryPool.h"
#include "store/ObjectFile.h"

namespace corvane {
namespace {

Status Refuse(Finding& fault, Finding found) {
    fault = std::move(found);
    return {Fault::Damaged, kInvalidFile};
}

// Whether a record of `length` bytes behind its word goes into the next block: a block is not filled to its
// end.
bool BlockIsFull(const NewMemoryPool& pool, uint32_t length, uint32_t margin) {
    const uint32_t usable = pool.NewPoolSize() - kTrailerSize, used = pool.FillOffset();
    return used && (used >= usable || (used + length + margin) / usable != used / usable);
}

// Early writers left a Tempo's place and count in the machine's byte order. Which order it is shows in the
// numbers.
void MendTempo(uint8_t* tempo) {
    constexpr uint16_t kBeat = 16, kClock = 18, kCount = 20, kEnd = 22;
    struct Reading {
        int16_t beat, clock, count;
        bool MakesSense() const { return beat >= 1 && beat <= 4095 && clock >= 0 && clock < named::kClocksPerBeat; }
    };
    const auto read = [&] {
        return Reading{WordAt(tempo + kBeat), WordAt(tempo + kClock), WordAt(tempo + kCount)};
    };
    const auto turn = [&] {
        for (uint16_t at = kBeat; at < kEnd; at = static_cast<uint16_t>(at + 2)) ReverseBytes(tempo + at, 2);
    };
    const Reading asToday = read();
    turn();
    const Reading turned = read();
    const bool smaller = turned.count > 0 && (asToday.count <= 0 || turned.count < asToday.count);
    if (!turned.MakesSense() || (asToday.MakesSense() && !smaller)) turn();
}

}  // namespace

void FilledObjects::Forget(std::vector<void*> gone) {
    std::sort(gone.begin(), gone.end());
    uint32_t kept = 1;
    for (uint32_t number = 1; number <= Count(); ++number) {
        if (std::binary_search(gone.begin(), gone.end(), StoredSpace::At<void>(distances[number]))) continue;
        distances[kept] = distances[number];
        classes[kept++] = classes[number];
    }
    distances.resize(kept);
    classes.resize(kept);
}

Status TakePlaces(NewMemoryPool& pool, std::span<const uint8_t> bytes, const ScoreHeader& header,
                  uint32_t margin, FilledObjects& objects, Finding& fault) {
    ScoreStream stream(bytes, header);
    ScoreStream::Record record;
    while (stream.Next(record)) {
        if (BlockIsFull(pool, record.length, margin) && !pool.NextFillingBlock())
            return {Fault::NoSpace, kNoMemoryToOpen};
        const uint32_t span = record.word < 0 ? RawSpanOfWord(record.word) : kWordSize + record.length;
        if (pool.FillOffset() + span > pool.NewPoolSize() - kTrailerSize)
            return {Fault::NoSpace, kNoMemoryToOpen};
        objects.distances.push_back(StoredSpace::DistanceOf(pool.FillPlace() + kWordSize));
        objects.classes.push_back(static_cast<uint8_t>(TargetClass(record.word)));
        if (header.legacy) objects.positions.push_back(static_cast<uint32_t>(record.at));
        pool.AdvanceFilling(span);
    }
    if (stream.Fault().empty()) return Status::Ok();
    return Refuse(fault, {objects.Count() + 1, 0, -1, stream.Fault()});
}

void FileFormDecoder::ToMemory(const ScoreStream::Record& record, uint8_t* object) {
    FileForm::Of(record.word).Decode(record.data, object);
    if (record.word == named::kTempo) MendTempo(object);
}

bool FileFormDecoder::Decode(const ObjectFilePlaces::Field& field, uint32_t value, PointerTarget& target) {
    return DecodePointer(field, value, _objects.classes, target);
}

namespace {

// Turns each pointer of an object from what stands in a file into an address; the field that leads astray, or
// null.
const ObjectFilePlaces::Field* DecodeFields(uint8_t* object, int16_t number, const FilledObjects& objects,
                                            ObjectDecoder& decoder) {
    for (const ObjectFilePlaces::Field& field : ObjectFilePlaces::Instance().FieldsOf(number)) {
        uint32_t value;
        std::memcpy(&value, object + field.link.offset, sizeof value);
        if (!value) continue;
        PointerTarget target;
        if (!decoder.Decode(field, value, target)) return &field;
        value = objects.distances[target.number] + target.place;
        std::memcpy(object + field.link.offset, &value, sizeof value);
    }
    return nullptr;
}

}  // namespace

Status FillObjects(std::span<const uint8_t> bytes, const ScoreHeader& header, const FilledObjects& objects,
                   ObjectDecoder& decoder, Finding& fault) {
    ScoreStream stream(bytes, header);
    ScoreStream::Record record;
    for (uint32_t number = 1; stream.Next(record); ++number) {
        auto* object = StoredSpace::At<uint8_t>(objects.distances[number]);
        PutWord(object - kWordSize, record.word);
        if (record.word < 0) {
            std::memcpy(object, record.data, record.length);
            continue;
        }
        decoder.ToMemory(record, object);
        if (const auto* field = DecodeFields(object, record.word, objects, decoder))
            return Refuse(fault,
                          {number, record.word, field->link.offset, "the pointer leads nowhere that it may"});
        const ClassInfo& info = *InfoOf(record.word);
        info.creator->Rebind(object, info);
    }
    return Status::Ok();
}

}  // namespace corvane
