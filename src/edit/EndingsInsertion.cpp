// Brackets over the measures that a repeat plays once only.
#include <algorithm>
#include <string>

#include "edit/Signs.h"
#include "edit/SystemRedraw.h"
#include "layout/AboveStaff.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr size_t kLongestText = 200;

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

void ReleaseEndings(Endings* endings) {
    while (MarkEndings* mark = endingsMarks.First(endings)) {
        endingsMarks.Remove(mark);
        measureSymbols.Remove(mark);
        Release(mark);
    }
    ReleaseText(endings->_text);
    Release(endings);
}

}  // namespace

Status InsertEndings(WindowTarn& window, const MeasureRange& range, std::string_view text) {
    if (text.size() > kLongestText) return {Fault::Refused, "The text of an ending has at most 200 bytes"};
    const EditStep step(window);
    const Measure* behind = NextMeasure(range.last);
    for (Measure* measure = range.first; measure != behind; measure = NextMeasure(measure))
        if (MarkEndings* mark = MarkIn(measure)) DeleteEndings(window, endingsMarks.ParentOf(mark));
    if (text.empty()) return Status::Ok();
    const SystemRedraw redraw(window, range.first, range.last);
    auto* endings = Make<Endings>();
    SetText(endings->_text, text);
    for (Measure* measure = range.first; measure != behind; measure = NextMeasure(measure)) {
        auto* mark = Make<MarkEndings>();
        measureSymbols.Add(measure, mark);
        endingsMarks.Add(endings, mark);
    }
    LiftBracket(endings);
    return Status::Ok();
}

void DeleteEndings(WindowTarn& window, Endings* endings) {
    const SystemRedraw redraw(window, MeasurePar(endingsMarks.First(endings)),
                              MeasurePar(endingsMarks.Last(endings)));
    ReleaseEndings(endings);
}

}  // namespace corvane
