#include "layout/SpannerMarks.h"

#include <algorithm>

#include "layout/PageFiling.h"
#include "model/Par.h"

namespace corvane {
namespace {

using Marks = std::vector<StaffMeasureSymbol*>;

template <class Mark, const auto& relation>
Marks ListOf(const StaffMeasureSymbol* mark) {
    Marks marks;
    const auto* own = static_cast<const Mark*>(mark);
    if (auto* spanner = relation.ParentOf(own))
        for (Mark* each : relation.Of(spanner)) marks.push_back(each);
    return marks;
}

// A new mark in a crossing behind another one of the spanner.
template <class Mark, const auto& relation>
StaffMeasureSymbol* AddBehind(StaffMeasureSymbol* before, MeasureStaff* crossing) {
    Mark* mark = Make<Mark>();
    auto* behind = static_cast<Mark*>(before);
    staffSymbols.Add(crossing, mark);
    relation.Insert(relation.ParentOf(behind), mark, behind);
    return mark;
}

template <class Mark, const auto& relation>
void Drop(StaffMeasureSymbol* mark) {
    auto* own = static_cast<Mark*>(mark);
    relation.Remove(own);
    staffSymbols.Remove(own);
    Release(own);
}

struct Family {
    int16_t number;
    Marks (*list)(const StaffMeasureSymbol* mark);
    StaffMeasureSymbol* (*addBehind)(StaffMeasureSymbol* before, MeasureStaff* crossing);
    void (*drop)(StaffMeasureSymbol* mark);
};
template <class Mark, const auto& relation>
constexpr Family FamilyOf() {
    return {Mark::kClass, ListOf<Mark, relation>, AddBehind<Mark, relation>, Drop<Mark, relation>};
}
constexpr Family kFamilies[] = {
    FamilyOf<MarkHairpin, hairpinMarks>(), FamilyOf<MarkOttava, ottavaMarks>(),
    FamilyOf<MarkSlur, slurMarks>(),       FamilyOf<MarkTrillo, trilloMarks>(),
    FamilyOf<MarkPedale, pedaleMarks>(),
};

const Family* FindFamily(const StaffMeasureSymbol* symbol) {
    for (const Family& family : kFamilies)
        if (family.number == symbol->ClassNumber()) return &family;
    return nullptr;
}

const System* SystemOf(const MeasureStaff* crossing) {
    const Measure* measure = crossing ? MeasurePar(crossing) : nullptr;
    return measure ? SystemPar(measure) : nullptr;
}

// From one staff's crossing to a later one of it, or the same.
bool IsRun(const MeasureStaff* first, const MeasureStaff* last) {
    return SystemOf(first) && SystemOf(last) && DocStaffPar(first) == DocStaffPar(last) &&
           MeasurePar(first)->_number <= MeasurePar(last)->_number;
}

// The first of each system behind a crossing's, up to that of another crossing, that one left out.
std::vector<MeasureStaff*> HeadsBetween(MeasureStaff* first, const MeasureStaff* last) {
    std::vector<MeasureStaff*> heads;
    const System* system = SystemOf(first);
    for (MeasureStaff* each = first; each && each != last; each = NextOnStaff(each)) {
        if (SystemOf(each) == system) continue;
        system = SystemOf(each);
        if (system == SystemOf(last)) break;
        heads.push_back(each);
    }
    return heads;
}

const MeasureStaff* FirstInSystem(const MeasureStaff* crossing) {
    while (const MeasureStaff* before = PrevOnStaff(crossing)) {
        if (SystemOf(before) != SystemOf(crossing)) break;
        crossing = before;
    }
    return crossing;
}

}  // namespace

bool IsSpannerMark(const StaffMeasureSymbol* symbol) { return FindFamily(symbol) != nullptr; }

std::vector<StaffMeasureSymbol*> MarksOf(const StaffMeasureSymbol* mark) {
    const Family* family = FindFamily(mark);
    return family ? family->list(mark) : Marks{};
}

SpannerPart PartOn(const System* system, const MeasureStaff* first, const MeasureStaff* last) {
    if (!system || systemMeasures.IsEmpty(system) || !IsRun(first, last)) return {};
    const Measure *head = systemMeasures.First(system), *end = systemMeasures.Last(system);
    const bool meets =
        MeasurePar(first)->_number <= end->_number && head->_number <= MeasurePar(last)->_number;
    const MeasureStaff* crossing = meets ? MeasureStaffAt(head, DocStaffPar(first)) : nullptr;
    if (!crossing || !crossing->_staff.Get()) return {};
    SpannerPart part;
    part.first = first;
    part.last = last;
    part.system = system;
    part.begins = SystemOf(first) == system;
    part.ends = SystemOf(last) == system;
    part.staff = FrameOf(crossing->_staff.Get());
    part.left = FrameOf(head).XOf(0);
    part.right = OriginOf(system).x + end->_right;
    return part;
}

SpannerPart PartOf(const StaffMeasureSymbol* mark) {
    const Marks marks = MarksOf(mark);
    const MeasureStaff* own = MeasureStaffPar(mark);
    if (marks.size() < 2 || !SystemOf(own) || !own->_staff.Get()) return {};
    const MeasureStaff *first = MeasureStaffPar(marks.front()), *last = MeasureStaffPar(marks.back());
    if (!IsRun(first, own) || !IsRun(own, last)) return {};
    for (const StaffMeasureSymbol* each : marks) {
        if (each == mark) break;
        if (SystemOf(MeasureStaffPar(each)) == SystemOf(own)) return {};
    }
    return PartOn(SystemOf(own), first, last);
}

std::vector<const MeasureStaff*> SpannerPart::Crossings() const {
    std::vector<const MeasureStaff*> crossings;
    const MeasureStaff* from = first;
    if (!begins) {
        from = last;
        while (from && SystemOf(from) != system) from = PrevOnStaff(from);
        if (from) from = FirstInSystem(from);
    }
    for (; from && SystemOf(from) == system; from = NextOnStaff(from)) {
        crossings.push_back(from);
        if (from == last) break;
    }
    return crossings;
}

void SettleMarks(StaffMeasureSymbol* mark) {
    const Family* family = FindFamily(mark);
    const Marks marks = MarksOf(mark);
    if (!family || marks.size() < 2) return;
    MeasureStaff *first = MeasureStaffPar(marks.front()), *last = MeasureStaffPar(marks.back());
    if (!IsRun(first, last)) return;
    const std::vector<MeasureStaff*> wanted = HeadsBetween(first, last);
    std::vector<MeasureStaff*> there;
    for (size_t i = 1; i + 1 < marks.size(); ++i) there.push_back(MeasureStaffPar(marks[i]));
    if (wanted == there) return;
    for (size_t i = 1; i + 1 < marks.size(); ++i) family->drop(marks[i]);
    StaffMeasureSymbol* before = marks.front();
    for (MeasureStaff* crossing : wanted) before = family->addBehind(before, crossing);
}

void MoveMarks(StaffMeasureSymbol* mark, MeasureStaff* first, MeasureStaff* last) {
    const Marks marks = MarksOf(mark);
    if (marks.size() < 2 || !IsRun(first, last)) return;
    const auto hang = [](StaffMeasureSymbol* end, MeasureStaff* crossing) {
        if (MeasureStaffPar(end) == crossing) return;
        staffSymbols.Remove(end);
        staffSymbols.Add(crossing, end);
    };
    hang(marks.front(), first);
    hang(marks.back(), last);
    SettleMarks(marks.front());
}

void SettleMarks(const std::vector<System*>& systems) {
    // By the first marks, which stay: those between come and go.
    Marks firsts;
    for (const System* system : systems)
        for (const Measure* measure : systemMeasures.Of(system))
            for (const MeasureStaff* crossing : measureStaffs.Of(measure))
                for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
                    if (const Marks marks = MarksOf(symbol); !marks.empty()) firsts.push_back(marks.front());
    std::sort(firsts.begin(), firsts.end());
    firsts.erase(std::unique(firsts.begin(), firsts.end()), firsts.end());
    for (StaffMeasureSymbol* first : firsts) SettleMarks(first);
}

int32_t ReachUnder(const SpannerPart& part, int32_t left, int32_t right, bool above,
                   const StaffMeasureSymbol* own) {
    const Marks marks = MarksOf(own);
    int32_t reach = above ? part.staff.top : part.staff.Bottom();
    const auto look = [&](const DrawPatch& patch, int) {
        if (std::find(marks.begin(), marks.end(), patch.Object()) != marks.end()) return;
        const Rect ink = patch.Bounds();
        if (ink.IsEmpty() || ink.right <= left || ink.left >= right) return;
        reach = above ? std::min(reach, ink.top) : std::max(reach, ink.bottom);
    };
    for (const MeasureStaff* crossing : part.Crossings()) {
        ForEachPatch(crossing, look);
        ForEachSpannerOver(crossing, look);
    }
    return reach;
}

}  // namespace corvane
