#include "store/VerifierEnds.h"

#include "store/ClassInfo.h"

namespace corvane {
namespace {

uint8_t DistanceTo(const ClassInfo& info, LinkRole role, const LinkField& next) {
    const LinkField* end = info.EndOf(role, next.relation, next.family);
    return end ? static_cast<uint8_t>(end->offset - next.offset) : uint8_t{0};
}

ChildEnd ChildEndAt(const ClassInfo& info, const LinkField& next) {
    return {next.offset, DistanceTo(info, LinkRole::Prev, next), DistanceTo(info, LinkRole::Source, next)};
}

// All child ends of a relation are of one kind: the first class that has one tells it.
TopOfRing TopAt(const LinkField& last) {
    for (int16_t n = 1; n <= ClassCount(); ++n)
        if (const LinkField* next = InfoOf(n)->EndOf(LinkRole::Next, last.relation, last.family)) {
            const ChildEnd child = ChildEndAt(*InfoOf(n), *next);
            return {last.offset, child.prev, child.source};
        }
    return {last.offset, 0, 0};
}

std::vector<ClassEnds> AllEnds() {
    std::vector<ClassEnds> all(static_cast<size_t>(ClassCount()) + 1);
    for (int16_t n = 1; n <= ClassCount(); ++n)
        for (const LinkField& link : InfoOf(n)->links) {
            ClassEnds& ends = all[static_cast<size_t>(n)];
            if (link.role == LinkRole::Next) ends.children.push_back(ChildEndAt(*InfoOf(n), link));
            if (link.role == LinkRole::Last) ends.tops.push_back(TopAt(link));
        }
    return all;
}

}  // namespace

const ClassEnds& EndsOf(int16_t classNumber) {
    static const std::vector<ClassEnds> all = AllEnds();
    return all[static_cast<size_t>(classNumber)];
}

}  // namespace corvane
