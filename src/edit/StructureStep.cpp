#include "edit/StructureStep.h"

#include "edit/TarnSelect.h"
#include "layout/Frames.h"
#include "layout/PageFit.h"
#include "model/Par.h"

namespace corvane {

StructureStep::StructureStep(WindowTarn& window)
    : _window(window),
      _step(window),
      _page(window.CurrentPage()),
      _firstSystem(FirstSystem(window.GetDocument())),
      _firstLeft(_firstSystem ? _firstSystem->_left.Get() : 0),
      _firstIndent(_firstSystem ? IndentOf(window.GetDocument(), _firstSystem) : 0),
      _lastSystem(window.GetDocument()),
      _pageNumber(_page ? _page->_pageNumber.Get() : 0),
      _pageCount(window.GetDocument()->_pageCount) {
    const Caret& caret = window.caret;
    if (caret.measure) _caretPlace = FrameOf(caret.measure).PerMilleOfX(caret.x);
    window.interaction.reset();
    window.TheSelection().Clear();
    ClearSelectionAnchors();
    window.Sheet().FilePage(nullptr);
}

StructureStep::~StructureStep() {
    SettleIndent();
    _lastSystem.Settle();
    PlaceCaret();
    if (_page != _window.CurrentPage() || _pageCount != _window.GetDocument()->_pageCount)
        _window.SetCurrentPage(_page);
    else
        _window.RefilePage();
}

void StructureStep::Leave(const Page* page) {
    if (page != _page) return;
    Page* next = documentPages.Next(page);
    _page = next ? next : documentPages.Prev(page);
}

void StructureStep::LookForPage() {
    Page* nearest = nullptr;
    for (Page* page : documentPages.Of(_window.GetDocument())) {
        if (page == _page) return;
        if (!nearest || page->_pageNumber <= _pageNumber) nearest = page;
    }
    _page = nearest;
}

// The first system is indented and no other; where a hand has drawn its edge it stays as long as nothing else
// asks for another. One that was the first may be gone, so where another one is now it is looked for among
// all.
void StructureStep::SettleIndent() {
    const Document* document = _window.GetDocument();
    System* first = FirstSystem(document);
    if (!first) return;
    const int32_t indent = IndentOf(document, first);
    const bool isAsBefore = first == _firstSystem && first->_left == _firstLeft && indent == _firstIndent;
    if (!isAsBefore && first->_left != indent) FitWidth(first);
    if (first == _firstSystem) return;
    for (const Page* page : documentPages.Of(document))
        for (System* system : pageSystems.Of(page))
            if (system == _firstSystem) FitWidth(system);
}

// The caret keeps its place in its measure, as long as that is shown.
void StructureStep::PlaceCaret() {
    Caret& caret = _window.caret;
    if (!caret.measure) return;
    if (PagePar(caret.measure) == _page)
        caret.x = FrameOf(caret.measure).XOf(_caretPlace);
    else
        caret = Caret();
}

}  // namespace corvane
