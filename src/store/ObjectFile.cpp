#include "store/ObjectFile.h"

#include <algorithm>
#include <cstring>
#include <set>

#include "base/StoredSpace.h"
#include "store/ClassInfo.h"
#include "store/LegacyReader.h"
#include "store/NamedClasses.h"
#include "store/NewMemoryPool.h"
#include "store/ObjectFileLoader.h"
#include "store/VerifierEnds.h"
#include "store/VerifierGraph.h"

namespace corvane {
namespace {

constexpr size_t kMostFindings = 20;

class ScoreLoad {
public:
    ScoreLoad(NewMemoryPool& pool, LoadReport& report) : _pool(pool), _report(report) {}
    Status Run(std::span<const uint8_t> bytes, const ScoreHeader& header);
    std::unique_ptr<const ObjectIndexBitmap> TakeIndex() { return std::move(_index); }

private:
    Status Fill(std::span<const uint8_t> bytes, const ScoreHeader& header);
    Status CheckDocument();
    Status EmbedTexts();
    Status Prove();
    void Drop(const std::vector<void*>& objects);
    Status Refuse(Finding fault);
    void Number();

    NewMemoryPool& _pool;
    LoadReport& _report;
    FilledObjects _objects;
    std::unique_ptr<const ObjectIndexBitmap> _index;
};

uint32_t PointerAt(const void* object, uint16_t offset) {
    uint32_t value;
    std::memcpy(&value, static_cast<const uint8_t*>(object) + offset, sizeof value);
    return value;
}

void PutPointer(void* object, uint16_t offset, uint32_t value) {
    std::memcpy(static_cast<uint8_t*>(object) + offset, &value, sizeof value);
}

Status ScoreLoad::Refuse(Finding fault) {
    _report.faults.push_back(std::move(fault));
    return {Fault::Damaged, kInvalidFile};
}

Status ScoreLoad::Fill(std::span<const uint8_t> bytes, const ScoreHeader& header) {
    if (!_pool.StartFilling()) return {Fault::NoSpace, kNoMemoryToOpen};
    Finding fault;
    const uint32_t margin = header.legacy ? LegacyDecoder::kMargin : FileFormDecoder::kMargin;
    Status status = TakePlaces(_pool, bytes, header, margin, _objects, fault);
    if (status && header.legacy) {
        LegacyDecoder decoder(_objects);
        status = FillObjects(bytes, header, _objects, decoder, fault);
    } else if (status) {
        FileFormDecoder decoder(_objects);
        status = FillObjects(bytes, header, _objects, decoder, fault);
    }
    _pool.FinishFilling();
    if (status.fault() == Fault::Damaged) return Refuse(std::move(fault));
    return status;
}

Status ScoreLoad::CheckDocument() {
    if (_objects.Count() == 0 || _objects.classes[1] != named::kDocument)
        return Refuse({0, 0, -1, "the Document is not first"});
    _pool.SetDocumentObject(StoredSpace::At<void>(_objects.distances[1]));
    return Status::Ok();
}

// A text that a record of its own holds moves into the field that names the record.
Status ScoreLoad::EmbedTexts() {
    if (std::find(_objects.classes.begin(), _objects.classes.end(), named::kStringa) ==
        _objects.classes.end())
        return Status::Ok();
    std::set<void*> emptied;
    for (uint32_t number = 1; number <= _objects.Count(); ++number) {
        if (_objects.classes[number] == 0) continue;
        auto* object = StoredSpace::At<void>(_objects.distances[number]);
        for (const LinkField& link : InfoOfObject(object)->links) {
            if (link.role != LinkRole::Whole || link.aim != Aim::Text) continue;
            auto* stringa = StoredSpace::At<void>(PointerAt(object, link.offset));
            if (!stringa || ClassNumberOf(stringa) != named::kStringa) continue;
            if (!emptied.insert(stringa).second)
                return Refuse(
                    {number, ClassNumberOf(object), link.offset, "the text belongs to another field too"});
            PutPointer(object, link.offset, PointerAt(stringa, 0));
            PutPointer(stringa, 0, 0);
        }
    }
    for (void* stringa : emptied) _pool.Release(stringa);
    _objects.Forget({emptied.begin(), emptied.end()});
    return Status::Ok();
}

// Rings that tell no parent are taken apart first: their children may stay, under another one.
void ScoreLoad::Drop(const std::vector<void*>& objects) {
    for (void* object : objects) {
        if (ClassNumberOf(object) < 0) continue;
        for (const TopOfRing& top : EndsOf(ClassNumberOf(object)).tops)
            for (uint32_t at = top.source ? 0 : PointerAt(object, top.last); at;) {
                auto* child = StoredSpace::At<void>(at);
                at = PointerAt(child, 0);
                PutPointer(child, 0, 0);
            }
    }
    for (void* object : objects)
        if (ClassNumberOf(object) > 0)
            for (const uint16_t offset : InfoOfObject(object)->pointers) PutPointer(object, offset, 0);
    for (void* object : objects) _pool.Release(object);
    _objects.Forget(objects);
    _report.healed.push_back(std::to_string(objects.size()) + " objects that nothing led to were left out");
}

void ScoreLoad::Number() {
    _index = std::make_unique<ObjectIndexBitmap>(_pool, std::span(_objects.distances).subspan(1));
}

Status ScoreLoad::Prove() {
    Number();
    VerifierGraph graph(_pool, *_index, _report.faults, kMostFindings);
    graph.CheckObjects(true);
    if (_report.faults.empty()) graph.CheckRings();
    if (!_report.faults.empty()) return {Fault::Damaged, kInvalidFile};
    const std::vector<void*> unreached = graph.Unreached({});
    if (unreached.empty()) return Status::Ok();
    Drop(unreached);
    Number();
    return Status::Ok();
}

Status ScoreLoad::Run(std::span<const uint8_t> bytes, const ScoreHeader& header) {
    Status status = Fill(bytes, header);
    if (status) status = CheckDocument();
    if (status) status = EmbedTexts();
    if (status) status = Prove();
    if (!status) {
        EmptyPool(_pool);
        return status;
    }
    _pool.SetFileMagic(header.magic);
    for (uint32_t number = 1; number <= _objects.Count(); ++number)
        if (const int16_t kind = _objects.classes[number]; kind != kRawClass)
            InfoOf(kind)->creator->AfterLoad(StoredSpace::At<void>(_objects.distances[number]));
    return status;
}

}  // namespace

void EmptyPool(NewMemoryPool& pool) {
    if (pool.StartFilling()) pool.FinishFilling();
}

Status LoadScore(NewMemoryPool& pool, std::span<const uint8_t> bytes, LoadReport* report,
                 std::unique_ptr<const ObjectIndexBitmap>* index) {
    LoadReport unseen;
    LoadReport& told = report ? *report : unseen;
    told = {};
    ScoreHeader header;
    std::string fault;
    if (ReadHeader(bytes, header, fault)) {
        ScoreLoad load(pool, told);
        const Status status = load.Run(bytes, header);
        if (status && index) *index = load.TakeIndex();
        return status;
    }
    told.faults.push_back({0, 0, -1, fault});
    return {Fault::Damaged, kInvalidFile};
}

}  // namespace corvane
