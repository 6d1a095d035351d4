// Brackets over the measures that a repeat plays once only.
#include <algorithm>
#include <charconv>
#include <string>

#include "edit/Signs.h"
#include "edit/SpannerSteps.h"
#include "edit/SystemRedraw.h"
#include "edit/TarnClick.h"
#include "layout/AboveStaff.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr size_t kLongestText = 200;
constexpr int kMostNumber = 999;

MarkEndings* MarkIn(const Measure* measure) {
    for (MeasureSymbol* symbol : measureSymbols.Of(measure))
        if (auto* mark = As<MarkEndings>(symbol)) return mark;
    return nullptr;
}

// Up over what stands under any part of the bracket.
void LiftBracket(Endings* endings) {
    int32_t lift = 0;
    for (const MarkEndings* mark : endingsMarks.Of(endings))
        lift = std::max(lift, LiftOver(MeasurePar(mark), InkOfMark(mark), mark));
    endings->_long[0] = -lift;
}

Endings* EndingsIn(const Measure* measure) {
    const MarkEndings* mark = measure ? MarkIn(measure) : nullptr;
    return mark ? endingsMarks.ParentOf(mark) : nullptr;
}

bool AreInOneSystem(const Measure* a, const Measure* b) { return a && b && SystemPar(a) == SystemPar(b); }

// A run of measures with the endings that adjoin it in its systems, and further ones that adjoin those.
MeasureRange WithNeighbours(MeasureRange range) {
    for (const Measure* before = PrevMeasure(range.first); AreInOneSystem(before, range.first);
         before = PrevMeasure(range.first)) {
        const Endings* endings = EndingsIn(before);
        if (!endings) break;
        range.first = MeasurePar(endingsMarks.First(endings));
    }
    for (const Measure* behind = NextMeasure(range.last); AreInOneSystem(behind, range.last);
         behind = NextMeasure(range.last)) {
        const Endings* endings = EndingsIn(behind);
        if (!endings) break;
        range.last = MeasurePar(endingsMarks.Last(endings));
    }
    return range;
}

// Brackets that adjoin each other stand at one height, as high as any of them has to.
void LevelBrackets(const MeasureRange& range) {
    int32_t highest = 0;
    const Measure* behind = NextMeasure(range.last);
    for (const Measure* each = range.first; each != behind; each = NextMeasure(each))
        if (const Endings* endings = EndingsIn(each)) highest = std::min(highest, endings->_long[0].Get());
    for (const Measure* each = range.first; each != behind; each = NextMeasure(each))
        if (Endings* endings = EndingsIn(each); endings && endings->_long[0] != highest)
            endings->_long[0] = highest;
}

void ReleaseEndings(Endings* endings) {
    while (MarkEndings* mark = endingsMarks.First(endings)) {
        endingsMarks.Remove(mark);
        measureSymbols.Remove(mark);
        Release(mark);
    }
    ReleaseText(endings->_text);
    Release(endings);
}

// The last number in the text of an ending; 0 for none.
int NumberOf(const Endings* endings) {
    constexpr std::string_view kDigits = "0123456789";
    const std::string_view text = TextOf(endings->_text);
    const size_t last = text.find_last_of(kDigits);
    if (last == text.npos) return 0;
    const size_t before = text.find_last_not_of(kDigits, last);
    const size_t start = before == text.npos ? 0 : before + 1;
    int number = 0;
    std::from_chars(text.data() + start, text.data() + last + 1, number);
    return number < kMostNumber ? number : 0;
}

// Behind that of the ending which leads up to a measure; its own where it is drawn anew from there.
int NumberFor(const Measure* first) {
    const MarkEndings *own = MarkIn(first),
                      *before = PrevMeasure(first) ? MarkIn(PrevMeasure(first)) : nullptr;
    if (!before) return 1;
    const Endings* endings = endingsMarks.ParentOf(before);
    const bool isOwn = own && endingsMarks.ParentOf(own) == endings;
    return std::max(1, NumberOf(endings) + (isOwn ? 0 : 1));
}

Measure* MeasureUnder(const WindowTarn& window, Point point) {
    const System* system = FindSystem(window.CurrentPage(), point.y);
    return system ? FindMeasure(system, point.x) : nullptr;
}

}  // namespace

Status InsertEndings(WindowTarn& window, const MeasureRange& range, std::string_view text) {
    if (text.size() > kLongestText) return {Fault::Refused, "The text of an ending has at most 200 bytes"};
    const EditStep step(window);
    const Measure* behind = NextMeasure(range.last);
    for (Measure* measure = range.first; measure != behind; measure = NextMeasure(measure))
        if (MarkEndings* mark = MarkIn(measure)) DeleteEndings(window, endingsMarks.ParentOf(mark));
    if (text.empty()) return Status::Ok();
    const MeasureRange level = WithNeighbours(range);
    const SystemRedraw redraw(window, level.first, level.last);
    auto* endings = Make<Endings>();
    SetText(endings->_text, text);
    for (Measure* measure = range.first; measure != behind; measure = NextMeasure(measure)) {
        auto* mark = Make<MarkEndings>();
        measureSymbols.Add(measure, mark);
        endingsMarks.Add(endings, mark);
    }
    LiftBracket(endings);
    LevelBrackets(level);
    return Status::Ok();
}

void RaiseEndings(WindowTarn& window, MeasureRange range, const Rect& ink) {
    if (const Endings* endings = EndingsIn(range.first))
        range.first = MeasurePar(endingsMarks.First(endings));
    if (const Endings* endings = EndingsIn(range.last)) range.last = MeasurePar(endingsMarks.Last(endings));
    const MeasureRange level = WithNeighbours(range);
    int32_t lift = 0;
    std::vector<MarkEndings*> marks;
    const Measure* behind = NextMeasure(level.last);
    for (const Measure* each = level.first; each != behind; each = NextMeasure(each)) {
        MarkEndings* mark = MarkIn(each);
        if (!mark) continue;
        marks.push_back(mark);
        const Rect bracket = InkOfMark(mark);
        const int32_t distance = TopStaffOf(each) ? TopStaffOf(each)->_lineDistance.Get() : 0;
        if (distance > 0 && bracket.left < ink.right && ink.left < bracket.right)
            lift =
                std::max(lift, ((bracket.bottom + distance / 2 - ink.top) * 100 + distance - 1) / distance);
    }
    if (lift == 0) return;
    const Endings* last = nullptr;
    for (MarkEndings* mark : marks)
        if (Endings* endings = endingsMarks.ParentOf(mark); endings != last) {
            endings->_long[0] = endings->_long[0] - lift;
            last = endings;
        }
    for (MarkEndings* mark : marks)
        if (window.Sheet().IsFiled(PatchOf(mark))) window.Sheet().AddObject(PatchOf(mark), 0);
}

void EndingsStroke(WindowTarn& window, const PaletteItem&, Point from, Point to, int) {
    MeasureRange range{MeasureUnder(window, from), MeasureUnder(window, to)};
    if (!range.first || !range.last) return;
    if (range.last->_number < range.first->_number) std::swap(range.first, range.last);
    const bool takesAway = range.first == range.last && MarkIn(range.first);
    const Status status = InsertEndings(
        window, range, takesAway ? std::string() : std::to_string(NumberFor(range.first)) + ".");
    if (!status) window.Shell().Tell(status.message());
}

void DeleteEndings(WindowTarn& window, Endings* endings) {
    const SystemRedraw redraw(window, MeasurePar(endingsMarks.First(endings)),
                              MeasurePar(endingsMarks.Last(endings)));
    ReleaseEndings(endings);
}

}  // namespace corvane
