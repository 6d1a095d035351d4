#include "store_graph.h"

#include "store/FileForm.h"
#include "store/NewMemoryPool.h"
#include "store/ObjectIndexBitmap.h"

namespace corvane::test {
namespace {

constexpr int16_t kDocument = 1, kPage = 2, kSystem = 3, kMeasure = 10, kTime = 32;
constexpr uint16_t kTimeFields[] = {20, 24, 28};

std::string NameOf(uint16_t relation, char family) {
    return std::to_string(relation) + (family ? std::string(1, family) : std::string());
}

const LinkField* End(const void* object, LinkRole role, const std::string& relation) {
    for (const LinkField& link : InfoOfObject(object)->links)
        if (link.role == role && (NameOf(link.relation, link.family) == relation ||
                                  (link.other && NameOf(link.other, link.family) == relation)))
            return &link;
    return nullptr;
}

bool IsAbstract(int16_t number) { return number == 9 || number == 97 || number == 98; }

}  // namespace

const std::map<std::string, RelationClasses>& AllRelations() {
    static const auto relations = [] {
        std::map<std::string, RelationClasses> all;
        for (int16_t n = 1; n <= ClassCount(); ++n)
            for (const LinkField& link : InfoOf(n)->links) {
                if (IsAbstract(n)) continue;
                if (link.role == LinkRole::Last) all[NameOf(link.relation, link.family)].parents.push_back(n);
                if (link.role != LinkRole::Next) continue;
                all[NameOf(link.relation, link.family)].children.push_back(n);
                if (link.other) all[NameOf(link.other, link.family)].children.push_back(n);
            }
        return all;
    }();
    return relations;
}

GraphBuilder::GraphBuilder()
    : document(New(kDocument)), page(New(kPage)), system(New(kSystem)), measure(New(kMeasure)) {
    Ring(document, "1", {page});
    Ring(page, "2", {system});
    Ring(system, "10", {measure});
}

void* GraphBuilder::New(int16_t number) { return MemoryManager::Instance().Allocate(number); }

void* GraphBuilder::NewText(const std::string& text) {
    void* raw = MemoryManager::Instance().AllocateRaw(static_cast<int32_t>(text.size()) + 1);
    std::memcpy(raw, text.c_str(), text.size() + 1);
    return raw;
}

void GraphBuilder::Ring(void* parent, const std::string& relation, const std::vector<void*>& children) {
    const LinkField* top = End(parent, LinkRole::Last, relation);
    ASSERT_TRUE(top) << relation;
    const size_t n = children.size();
    const auto link = [&](void* child, LinkRole role, const void* target, LinkRole targetRole) {
        if (const LinkField* end = End(child, role, relation))
            PutPointer(child, end->offset, target, End(target, targetRole, relation)->offset);
    };
    for (size_t i = 0; i < n; ++i) {
        link(children[i], LinkRole::Next, children[(i + 1) % n], LinkRole::Next);
        link(children[i], LinkRole::Prev, children[(i + n - 1) % n], LinkRole::Next);
        link(children[i], LinkRole::Source, parent, LinkRole::Last);
    }
    PutPointer(parent, top->offset, children[n - 1], End(children[n - 1], LinkRole::Next, relation)->offset);
}

void GraphBuilder::Hang(void* object) {
    if (!_times.empty())
        for (const uint16_t field : kTimeFields)
            if (!PointerAt(_times.back(), field)) return PutPointer(_times.back(), field, object);
    _times.push_back(New(kTime));
    PutPointer(_times.back(), kTimeFields[0], object);
}

void GraphBuilder::FinishHanging() {
    if (!_times.empty()) Ring(measure, "31", _times);
}

void GraphBuilder::EveryRelation() {
    for (const auto& [relation, classes] : AllRelations())
        for (const int16_t parentClass : classes.parents) {
            if (parentClass == kDocument) continue;
            for (size_t i = 0; i < classes.children.size(); ++i)
                for (size_t j = i; j < classes.children.size(); ++j) {
                    void* parent = New(parentClass);
                    Ring(parent, relation, {New(classes.children[i]), New(classes.children[j])});
                    Hang(parent);
                }
        }
}

void GraphBuilder::FillWithNoise(unsigned seed) {
    std::minstd_rand random(seed);
    NewMemoryPool* pool = MemoryManager::Instance().GetCurrentPool();
    for (void* object = pool->FirstObject(); object; object = pool->NextObject(object)) {
        if (ClassNumberOf(object) < 0) continue;
        const ClassInfo& info = *InfoOfObject(object);
        for (uint16_t i = 4; i < info.size; ++i) {
            bool pointer = info.secondWord && i >= info.secondWord && i < info.secondWord + 4;
            for (const LinkField& link : info.links)
                pointer = pointer || (i >= link.offset && i < link.offset + 4);
            // A Tempo's place and count must make sense.
            if (info.number == 99 && i >= 16 && i < 22)
                static_cast<uint8_t*>(object)[i] = i % 2 ? 0 : 1;
            else if (!pointer)
                static_cast<uint8_t*>(object)[i] = static_cast<uint8_t>(random());
        }
    }
}

std::vector<std::string> Describe(const NewMemoryPool& pool) {
    const ObjectIndexBitmap index(pool);
    std::vector<std::string> lines;
    index.ForEach([&](ObjectIndexBitmap::Object object) {
        const int16_t word = ClassNumberOf(object.start);
        std::string line = std::to_string(word) + ":";
        const auto add = [&](uint32_t number) { line += " " + std::to_string(number); };
        if (word < 0) {
            for (int i = 0; i < -word; ++i) add(object.start[i]);
            lines.push_back(line);
            return;
        }
        const ClassInfo& info = *InfoOf(word);
        for (uint16_t i = 0; i < info.size; ++i) {
            if (const LinkField* link = info.LinkAt(i)) {
                const auto* target = StoredSpace::At<uint8_t>(PointerAt(object.start, link->offset));
                const ObjectIndexBitmap::Object found = index.Find(target);
                line += " " + std::to_string(i) + ">";
                if (target)
                    line +=
                        std::to_string(index.NumberOf(found)) + "+" + std::to_string(target - found.start);
                i = static_cast<uint16_t>(i + 3);
            } else if (FileForm::Of(word).PlaceInFile(i) != FileForm::kNone) {
                add(object.start[i]);
            }
        }
        lines.push_back(line);
    });
    return lines;
}

}  // namespace corvane::test
