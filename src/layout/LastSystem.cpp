#include "layout/LastSystem.h"

#include <algorithm>

#include "layout/CourtesySigns.h"
#include "layout/PageFit.h"
#include "layout/Spacing.h"
#include "model/Par.h"

namespace corvane {
namespace {

System* LastUpTo(System* system) {
    while (system && systemMeasures.IsEmpty(system)) system = pageSystems.Prev(system);
    return system;
}

// With measures; null for none.
System* LastIn(const Page* page) {
    for (; page; page = documentPages.Prev(page))
        if (System* last = LastUpTo(pageSystems.Last(page))) return last;
    return nullptr;
}

System* Above(const System* system) {
    System* above = LastUpTo(pageSystems.Prev(system));
    return above ? above : LastIn(documentPages.Prev(PagePar(system)));
}

int32_t HeadersOf(const System* system) {
    int32_t headers = 0;
    for (const Measure* measure : systemMeasures.Of(system)) headers += NoteAreaLeft(measure);
    return headers;
}

int32_t AllNoteAreas(const System* system) {
    return system->_right - system->_left - CourtesyWidth(system) - HeadersOf(system);
}

bool IsShort(const System* system) { return system && system->_right < FullRight(system); }

}  // namespace

LastSystem::End::End(const Document* document) : last(LastIn(documentPages.Last(document))) {
    if (!last) return;
    above = Above(last);
    count = last->_measureCount;
    if (!above) return;
    aboveCount = above->_measureCount;
    aboveWidth = above->_right - above->_left;
}

void LastSystem::End::Fit() const {
    const int32_t areas = AllNoteAreas(above);
    if (areas <= 0) return FitWidth(last);
    const auto wanted = static_cast<int32_t>(int64_t{areas} * count / aboveCount) + HeadersOf(last);
    SetSides(last, last->_left, std::min(last->_left + wanted, FullRight(last)));
}

void FitLastSystem(const Document* document) {
    const LastSystem::End end(document);
    if (end.IsSparse()) end.Fit();
}

LastSystem::LastSystem(const Document* document)
    : _document(document), _before(document), _wasShort(IsShort(_before.last)) {}

void LastSystem::Settle() const {
    const End now(_document);
    if (_wasShort && _before.IsSparse() && now.last != _before.last) FillFormer();
    // Whoever fits a system to its page fills the line.
    const bool filled = _wasShort && !IsShort(now.last);
    if (now == _before && !filled) return;
    if (now.IsSparse())
        now.Fit();
    else if (now.last == _before.last && _before.IsSparse())
        FitWidth(now.last);
}

void LastSystem::FillFormer() const {
    for (const Page* page = documentPages.Last(_document); page; page = documentPages.Prev(page))
        for (System* system = pageSystems.Last(page); system; system = pageSystems.Prev(system))
            if (system == _before.last) return FitWidth(system);
}

}  // namespace corvane
